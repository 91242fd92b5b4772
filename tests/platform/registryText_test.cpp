#include "platform/linux/RegistryText.h"

#include "base/RunTimeError.h"
#include "platform/linux/RegistryTextWriter.h"
#include "platform/linux/characterSets.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

const std::string kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string kKey = kHeader + "[HKEY_CURRENT_USER\\K]\r\n"; // three lines

std::string asText(const std::string& text)
{
    return text + '\0';
}

/// Each character a UTF-16 unit.
std::string utf16(const std::string& ascii, ByteOrder order)
{
    std::string bytes;
    for (const char character : ascii) {
        bytes.append(order == ByteOrder::littleEndian ? std::string{character, '\0'}
                                                      : std::string{'\0', character});
    }
    return bytes;
}

/// The only value that the lines behind the key give.
RegistryValue valueOf(const std::string& line, const std::string& start = kKey)
{
    const std::vector<RegistryChange> changes = parseRegistryText(start + line);
    EXPECT_EQ(changes.size(), 2U);
    if (changes.size() != 2)
        return {};
    EXPECT_EQ(changes[1].kind, RegistryChange::Kind::setValue);
    return changes[1].value;
}

std::string failureOf(const std::string& bytes)
{
    try {
        parseRegistryText(bytes);
        return "(none)";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kInvalidCall);
        return error.description();
    }
}

TEST(RegistryText, AHeaderAloneChangesNothing)
{
    EXPECT_TRUE(parseRegistryText("REGEDIT4\r\n").empty());
    EXPECT_TRUE(parseRegistryText("REGEDIT4").empty());
    EXPECT_TRUE(parseRegistryText("Windows Registry Editor Version 5.00").empty());
}

TEST(RegistryText, AKeyIsMadeOrDeletedWithItsHive)
{
    const auto changes = parseRegistryText(kHeader + "[HKEY_LOCAL_MACHINE\\Software\\A b]\n"
                                                     "[-HKEY_CLASSES_ROOT\\Old]\n[hkcu]\n");
    ASSERT_EQ(changes.size(), 3U);
    EXPECT_EQ(changes[0].kind, RegistryChange::Kind::makeKey);
    EXPECT_EQ(changes[0].hive, HKEY_LOCAL_MACHINE);
    EXPECT_EQ(changes[0].sPath, "Software\\A b");
    EXPECT_EQ(changes[1].kind, RegistryChange::Kind::deleteKey);
    EXPECT_EQ(changes[1].hive, HKEY_CLASSES_ROOT);
    EXPECT_EQ(changes[1].sPath, "Old");
    EXPECT_EQ(changes[2].hive, HKEY_CURRENT_USER);
    EXPECT_EQ(changes[2].sPath, "");
}

TEST(RegistryText, AKeyNameMayHoldABracket)
{
    EXPECT_EQ(parseRegistryText(kHeader + "[HKEY_CURRENT_USER\\a]b[c]")[0].sPath, "a]b[c");
}

TEST(RegistryText, ATextHasTwoEscapes)
{
    const RegistryValue value = valueOf(R"("a\"b\\c"="C:\\d \"e\" = ;[x]")");
    EXPECT_EQ(value.sName, "a\"b\\c");
    EXPECT_EQ(value.type, RegistryType::string);
    EXPECT_EQ(value.sData, asText("C:\\d \"e\" = ;[x]"));
}

TEST(RegistryText, TheDefaultValueIsAnAtSign)
{
    const RegistryValue value = valueOf("@=\"x\"");
    EXPECT_EQ(value.sName, "");
    EXPECT_EQ(value.sData, asText("x"));
    EXPECT_EQ(valueOf("\"@\"=\"x\"").sName, "@");
}

TEST(RegistryText, AMinusDeletesAValue)
{
    const auto changes = parseRegistryText(kKey + "\"old\"=-\n@=-");
    ASSERT_EQ(changes.size(), 3U);
    EXPECT_EQ(changes[1].kind, RegistryChange::Kind::deleteValue);
    EXPECT_EQ(changes[1].value.sName, "old");
    EXPECT_EQ(changes[2].kind, RegistryChange::Kind::deleteValue);
    EXPECT_EQ(changes[2].value.sName, "");
}

TEST(RegistryText, ADwordIsStoredLowByteFirst)
{
    const RegistryValue value = valueOf("\"n\"=dword:0001e240");
    EXPECT_EQ(value.type, RegistryType::dword);
    EXPECT_EQ(value.sData, std::string("\x40\xE2\x01\x00", 4));
    EXPECT_EQ(valueOf("\"n\"=dword:FFFFFFFF").sData, std::string(4, '\xFF'));
    EXPECT_EQ(valueOf("\"n\"=dword:2a").sData, std::string("\x2A\0\0\0", 4));
}

TEST(RegistryText, HexBytesAreBinary)
{
    const RegistryValue value = valueOf("\"b\"=hex:00,fF,1");
    EXPECT_EQ(value.type, RegistryType::binary);
    EXPECT_EQ(value.sData, std::string("\0\xFF\x01", 3));
    EXPECT_EQ(valueOf("\"b\"=hex:").sData, "");
}

TEST(RegistryText, AnyTypeIsGivenByItsNumber)
{
    for (const auto& [text, type] :
         std::vector<std::pair<std::string, std::uint32_t>>{{"0", 0},
                                                            {"3", 3},
                                                            {"4", 4},
                                                            {"5", 5},
                                                            {"6", 6},
                                                            {"8", 8},
                                                            {"9", 9},
                                                            {"a", 10},
                                                            {"b", 11},
                                                            {"B", 11},
                                                            {"100000", 0x100000}}) {
        const RegistryValue value = valueOf("\"b\"=hex(" + text + "):01,02");
        EXPECT_EQ(static_cast<std::uint32_t>(value.type), type);
        EXPECT_EQ(value.sData, "\x01\x02");
    }
}

TEST(RegistryText, TextsInHexAreUtf16)
{
    EXPECT_EQ(valueOf("\"e\"=hex(2):25,00,41,00,25,00,00,00").sData, asText("%A%"));
    EXPECT_EQ(valueOf("\"e\"=hex(1):e4,00,3d,d8,00,de,00,00").sData, asText("\u00E4\U0001F600"));
    const RegistryValue list = valueOf("\"m\"=hex(7):61,00,00,00,62,00,00,00,00,00");
    EXPECT_EQ(list.type, RegistryType::multiString);
    EXPECT_EQ(list.sData, std::string("a\0b\0\0", 5));
}

TEST(RegistryText, TheOlderFormHasTextsInAnsi)
{
    EXPECT_EQ(valueOf("\"e\"=hex(2):25,41,25,80,00", "REGEDIT4\n[HKEY_CURRENT_USER\\K]\n").sData,
              asText("%A%\u20AC"));
    EXPECT_EQ(valueOf("\"e\"=\"caf\xE9 \x97\"", "REGEDIT4\n[HKEY_CURRENT_USER\\K]\n").sData,
              asText("caf\u00E9 \u2014"));
    EXPECT_EQ(valueOf("\"e\"=\"caf\u00E9\"", "REGEDIT4\n[HKEY_CURRENT_USER\\K]\n").sData,
              asText("caf\u00E9"));
}

TEST(RegistryText, AValueGoesOnBehindABackslash)
{
    EXPECT_EQ(valueOf("\"b\"=hex:01,02,\\\r\n  03,04,\\\r\n\t05").sData, "\x01\x02\x03\x04\x05");
    EXPECT_EQ(valueOf("\"b\"=hex(7):\\\n  61,00,\\\n; a comment between\n  00,00,00,00").sData,
              std::string("a\0\0", 3));
}

TEST(RegistryText, CommentsAndEmptyLinesCountForNothing)
{
    const RegistryValue value =
        valueOf("; first\n\n   ; second\n  \"b\" = dword:1 ; behind\n\n;\"c\"=\"d\"\n\t\n", kKey);
    EXPECT_EQ(value.sName, "b");
    EXPECT_EQ(value.sData, std::string("\x01\0\0\0", 4));
    EXPECT_EQ(valueOf("\"b\"=\"x\" ;behind").sData, asText("x"));
    EXPECT_EQ(valueOf("\"b\"=hex:01,\\ ; behind\n02 ; behind").sData, "\x01\x02");
    EXPECT_EQ(parseRegistryText(kHeader + "[HKCU\\A] ; behind").front().sPath, "A");
}

TEST(RegistryText, LinesEndInEitherWay)
{
    EXPECT_EQ(valueOf("\"b\"=\"x\"\r\n", "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\K]\r\n").sData, asText("x"));
    EXPECT_EQ(valueOf("\"b\"=\"x\"\n", "REGEDIT4\n\n[HKEY_CURRENT_USER\\K]\n").sData, asText("x"));
}

TEST(RegistryText, EveryEncodingOfTheFileIsRead)
{
    const std::string text = kKey + "\"b\"=\"x\"\r\n";
    const std::vector<std::string> files{
        text,
        "\xEF\xBB\xBF" + text,
        "\xFF\xFE" + utf16(text, ByteOrder::littleEndian),
        "\xFE\xFF" + utf16(text, ByteOrder::bigEndian),
        utf16(text, ByteOrder::littleEndian),
        utf16(text, ByteOrder::bigEndian),
    };
    for (const std::string& file : files)
        EXPECT_EQ(valueOf("", file).sData, asText("x"));
    const std::string fromUtf8 = valueOf("\"\u00E4\"=\"\U0001F600\"").sName;
    EXPECT_EQ(fromUtf8, "\u00E4");
}

/// One broken line at each place of the grammar.
struct Broken {
    const char* name;
    std::string bytes;
    std::string message;
};

class BrokenRegistryText : public testing::TestWithParam<Broken> {};

TEST_P(BrokenRegistryText, NamesItsLine)
{
    EXPECT_EQ(failureOf(GetParam().bytes), GetParam().message);
}

const std::string kNoHeader = "line 1: this is no registry file: its header is missing";

INSTANTIATE_TEST_SUITE_P(
    Places, BrokenRegistryText,
    testing::Values(
        Broken{"EmptyFile", "", kNoHeader},
        Broken{"OtherHeader", "Windows Registry Editor Version 6.00\n", kNoHeader},
        Broken{"NoHeader", "[HKEY_CURRENT_USER\\A]\n", kNoHeader}, Broken{"CutHeader", "REGED", kNoHeader},
        Broken{"Neither", kKey + "\n\nname=\"x\"", "line 6: neither a key nor a value"},
        Broken{"KeyNotClosed", kHeader + "[HKEY_CURRENT_USER\\A", "line 3: the key is not closed"},
        Broken{"TextBehindKey", kHeader + "[HKEY_CURRENT_USER\\A] x", "line 3: text behind the key"},
        Broken{"UnknownHive", kHeader + "[HKEY_OTHER\\A]", "line 3: this is no key"},
        Broken{"EmptyKey", kHeader + "[]", "line 3: this is no key"},
        Broken{"EmptyLevel", kHeader + "[HKEY_CURRENT_USER\\A\\\\B]", "line 3: this is no key"},
        Broken{"ClosingBackslash", kHeader + "[HKEY_CURRENT_USER\\]", "line 3: this is no key"},
        Broken{"DeletedHive", kHeader + "[-HKEY_CURRENT_USER]", "line 3: a whole hive can't be deleted"},
        Broken{"ValueAheadOfKeys", kHeader + "\"a\"=\"b\"", "line 3: a value without a key"},
        Broken{"ValueOfDeletedKey", kHeader + "[-HKEY_CURRENT_USER\\A]\n\"a\"=\"b\"",
               "line 4: a value without a key"},
        Broken{"NameNotClosed", kKey + "\"a=1", "line 4: the text is not closed"},
        Broken{"NoEquals", kKey + "\"a\" \"b\"", "line 4: no \"=\" behind the name"},
        Broken{"NoEqualsBehindAt", kKey + "@", "line 4: no \"=\" behind the name"},
        Broken{"NoData", kKey + "\"a\"=", "line 4: this is no value"},
        Broken{"UnknownData", kKey + "\"a\"=word:1", "line 4: this is no value"},
        Broken{"TextNotClosed", kKey + "\"a\"=\"b", "line 4: the text is not closed"},
        Broken{"TextOverTwoLines", kKey + "\"a\"=\"b\nc\"", "line 4: the text is not closed"},
        Broken{"LoneBackslash", kKey + "\"a\"=\"C:\\dir\"",
               "line 4: a backslash in a text stands for itself only as two"},
        Broken{"BackslashAtEnd", kKey + "\"a\"=\"C:\\",
               "line 4: a backslash in a text stands for itself only as two"},
        Broken{"TextBehindText", kKey + "\"a\"=\"b\" c", "line 4: text behind the value"},
        Broken{"TextBehindMinus", kKey + "\"a\"=-1", "line 4: text behind the value"},
        Broken{"DwordEmpty",
               kKey + "\"a\"=dword:", "line 4: this is no number of up to eight hexadecimal digits"},
        Broken{"DwordTooLong", kKey + "\"a\"=dword:123456789",
               "line 4: this is no number of up to eight hexadecimal digits"},
        Broken{"DwordNoHex", kKey + "\"a\"=dword:12g4",
               "line 4: this is no number of up to eight hexadecimal digits"},
        Broken{"HexNoHex", kKey + "\"a\"=hex:01,zz", "line 4: this is no list of hexadecimal bytes"},
        Broken{"HexThreeDigits", kKey + "\"a\"=hex:123", "line 4: this is no list of hexadecimal bytes"},
        Broken{"HexHole", kKey + "\"a\"=hex:01,,02", "line 4: this is no list of hexadecimal bytes"},
        Broken{"HexTrailingComma", kKey + "\"a\"=hex:01,02,", "line 4: the list of bytes breaks off"},
        Broken{"HexNoComma", kKey + "\"a\"=hex:01\\\n02", "line 4: the list of bytes breaks off"},
        Broken{"HexCutBehindBackslash", kKey + "\"a\"=hex:01,\\", "line 4: the value breaks off"},
        Broken{"HexCutByEmptyLine", kKey + "\"a\"=hex:01,\\\n\n02", "line 5: the value breaks off"},
        Broken{"HexBrokenInItsThirdLine", kKey + "\"a\"=hex:01,\\\n02,\\\nxx",
               "line 6: this is no list of hexadecimal bytes"},
        Broken{"TypeEmpty", kKey + "\"a\"=hex():01", "line 4: this is no type"},
        Broken{"TypeNoHex", kKey + "\"a\"=hex(x):01", "line 4: this is no type"},
        Broken{"TypeTooLong", kKey + "\"a\"=hex(123456789):01", "line 4: this is no type"},
        Broken{"TypeNotClosed", kKey + "\"a\"=hex(2:01", "line 4: this is no type"},
        Broken{"HalfUtf16Text", kKey + "\"a\"=hex(2):41,00,42", "line 4: a text of an odd number of bytes"},
        Broken{"ZeroInside", kKey + std::string("\"a\"=\"b\0c\"", 9), "line 4: a zero character"},
        Broken{"NoUtf8", kKey + "\"a\"=\"\xE9\"", "line 4: the text is not UTF-8"},
        Broken{"NameTooLong", kKey + "\"" + std::string(16384, 'n') + "\"=-",
               "line 4: the name is too long or holds a line break"},
        Broken{"Utf16CutInACharacter",
               "\xFF\xFE" + utf16(kKey + "\"a\"=\"b\"", ByteOrder::littleEndian) + "x",
               "line 4: the UTF-16 text is broken"},
        Broken{"Utf16HalfPair", "\xFE\xFF" + utf16(kKey + "\"a\"=\"b\"\n", ByteOrder::bigEndian) + "\xD8\x3D",
               "line 5: the UTF-16 text is broken"}),
    [](const testing::TestParamInfo<Broken>& row) { return std::string(row.param.name); });

TEST(RegistryText, ATextTooLargeForAValueIsDamage)
{
    const std::string huge(kLargestRegistryValue, 'x');
    EXPECT_EQ(failureOf(kKey + "\"a\"=\"" + huge + "\""), "line 4: the value is too large");
    EXPECT_EQ(valueOf("\"a\"=\"" + huge.substr(1) + "\"").sData.size(), kLargestRegistryValue);
}

TEST(RegistryText, AHexValueWithoutEndIsGivenUpOn)
{
    constexpr std::size_t kBytes = 4096;
    std::string line;
    for (std::size_t byte = 0; byte < kBytes; ++byte)
        line += "0,";
    line += "\\\n";
    std::string lines = kKey + "\"a\"=hex:";
    for (std::size_t bytes = 0; bytes <= 2 * kLargestRegistryValue; bytes += kBytes)
        lines += line;
    EXPECT_TRUE(failureOf(lines).ends_with(": the value is too large"));
}

TEST(RegistryText, AnyHalfOfAFileIsReadOrRefusedWithALine)
{
    const std::string text = kKey + "\"a\\\\b\"=\"C:\\\\d\"\r\n\"n\"=dword:0000002a\r\n"
                                    "\"m\"=hex(7):61,00,\\\r\n  00,00,00,00\r\n[-HKEY_CURRENT_USER\\Old]\r\n";
    for (std::size_t length = 0; length < text.size(); ++length) {
        for (const std::string& bytes :
             {text.substr(0, length),
              "\xFF\xFE" + utf16(text, ByteOrder::littleEndian).substr(0, 2 * length + 1)}) {
            const std::string failure = failureOf(bytes);
            EXPECT_TRUE(failure == "(none)" || failure.starts_with("line ")) << failure;
        }
    }
}

TEST(RegistryTextWriter, WritesEachTypeInItsForm)
{
    RegistryTextWriter writer;
    writer.key("HKEY_CURRENT_USER\\A");
    writer.value({"", RegistryType::string, asText("C:\\d \"x\"")});
    writer.value({"a\\\"b", RegistryType::dword, std::string("\x2A\0\0\0", 4)});
    writer.value({"b", RegistryType::binary, std::string("\0\xFF", 2)});
    writer.value({"e", RegistryType::expandString, asText("%A")});
    writer.value({"q", RegistryType::qword, std::string("\x01\0\0\0\0\0\0\x80", 8)});
    writer.value({"none", RegistryType::none, ""});
    writer.value({"no zero", RegistryType::string, "x"});
    writer.value({"lines", RegistryType::string, asText("\n")});
    writer.value({"short", RegistryType::dword, "\x01"});
    EXPECT_EQ(writer.text(), "Windows Registry Editor Version 5.00\n\n"
                             "[HKEY_CURRENT_USER\\A]\n"
                             "@=\"C:\\\\d \\\"x\\\"\"\n"
                             "\"a\\\\\\\"b\"=dword:0000002a\n"
                             "\"b\"=hex:00,ff\n"
                             "\"e\"=hex(2):25,00,41,00,00,00\n"
                             "\"q\"=hex(b):01,00,00,00,00,00,00,80\n"
                             "\"none\"=hex(0):\n"
                             "\"no zero\"=hex(1):78,00\n"
                             "\"lines\"=hex(1):0a,00,00,00\n"
                             "\"short\"=hex(4):01\n");
}

TEST(RegistryTextWriter, NoLineIsLongerThanEightyColumns)
{
    RegistryTextWriter writer;
    writer.key("HKEY_CURRENT_USER\\A");
    writer.value({"bytes", RegistryType::binary, std::string(500, 'x')});
    std::size_t lines = 0;
    for (std::size_t at = 0, end = 0; (end = writer.text().find('\n', at)) != std::string::npos;
         at = end + 1, ++lines)
        EXPECT_LE(end - at, 80U);
    EXPECT_GT(lines, 15U);
    EXPECT_EQ(parseRegistryText(writer.text())[1].value.sData, std::string(500, 'x'));
}

TEST(RegistryTextWriter, TheFileFormIsUtf16WithAMarkAndFullLineEnds)
{
    RegistryTextWriter writer;
    const std::string expected = "Windows Registry Editor Version 5.00\r\n";
    EXPECT_EQ(writer.utf16(), "\xFF\xFE" + utf16(expected, ByteOrder::littleEndian));
}

TEST(CharacterSets, StoredTextThatIsNoTextSurvivesUtf16)
{
    for (const std::string& text :
         {std::string("plain"), std::string("\u00E4\U0001F600"), std::string("\xFF\x80 x\xC3"),
          std::string("\xED\xA0\x80"), std::string("a\0b", 3), std::string()}) {
        const auto back = storedTextFromUtf16(utf16FromStoredText(text));
        ASSERT_TRUE(back);
        EXPECT_EQ(*back, text);
    }
    EXPECT_FALSE(storedTextFromUtf16("abc"));
}

TEST(CharacterSets, Windows1252HasItsOwnCharactersFrom0x80)
{
    EXPECT_EQ(utf8FromWindows1252("A\x80\x97\x9F\xA0\xFF\x81"), "A\u20AC\u2014\u0178\u00A0\u00FF\u0081");
}

} // namespace
} // namespace zorvo
