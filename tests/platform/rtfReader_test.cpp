#include "platform/RtfReader.h"

#include "base/text.h"

#include <gtest/gtest.h>

#include <random>

namespace zorvo {
namespace {

/// The text of a file that comes whole.
std::string textOf(std::string_view bytes)
{
    std::string sText;
    RtfReader([&sText](std::string_view piece) { sText += piece; }).read(bytes, true);
    return sText;
}

/// The text of a file that comes in pieces of a few bytes.
std::string textInPieces(std::string_view bytes, std::size_t nPiece)
{
    std::string sText;
    RtfReader reader([&sText](std::string_view piece) { sText += piece; });
    std::size_t at = 0;
    for (std::size_t nHeld = nPiece; at + nHeld < bytes.size();) {
        const std::size_t nDone = reader.read(bytes.substr(at, nHeld), false);
        at += nDone;
        nHeld = nHeld - nDone + nPiece;
    }
    reader.read(bytes.substr(at), true);
    return sText;
}

std::string inDocument(const std::string& sBody)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times;}"
           "{\\f1\\fcharset204 Arial Cyr;}{\\f2\\fcharset2 Symbol;}{\\f3\\fcharset128 Mincho;}"
           "{\\f4\\fnil\\cpg1250 Other{\\*\\falt Nothing};}}" +
           sBody + "}";
}

std::string bodyText(const std::string& sBody)
{
    return textOf(inDocument(sBody));
}

TEST(RtfReader, KnowsItsFilesByTheirBeginning)
{
    EXPECT_TRUE(RtfReader::isRtf("{\\rtf1\\ansi x}"));
    EXPECT_TRUE(RtfReader::isRtf("\xEF\xBB\xBF{\\rtf1 x}"));
    EXPECT_TRUE(RtfReader::isRtf("\r\n {\\rtf"));
    EXPECT_FALSE(RtfReader::isRtf("{\\rt"));
    EXPECT_FALSE(RtfReader::isRtf("rtf"));
    EXPECT_FALSE(RtfReader::isRtf(""));
    EXPECT_FALSE(RtfReader::isRtf("  "));
}

TEST(RtfReader, GivesPlainTextWithoutControlWordsAndLineEnds)
{
    EXPECT_EQ(bodyText("\\pard\\b Current \\b0\\i as\r\nsets\\i0 .\\par"), "Current assets.\n");
    EXPECT_EQ(bodyText("a\\b\r\nb"), "ab");
    EXPECT_EQ(bodyText("a\\fs24 b\\fs24  c\\fs24-1"), "ab c-1");
    EXPECT_EQ(bodyText("a\\li-720 b"), "ab");
}

TEST(RtfReader, EscapedCharactersAndSymbolsAreText)
{
    EXPECT_EQ(bodyText("\\{a\\}\\\\b\\~c\\_d\\-e\\tab f"), "{a}\\b\u00A0c-de\tf");
    EXPECT_EQ(bodyText("\\lquote a\\rquote \\ldblquote b\\rdblquote \\emdash\\endash\\bullet"),
              "\u2018a\u2019\u201Cb\u201D\u2014\u2013\u2022");
    EXPECT_EQ(bodyText("a\\\nb\\\r\nc"), "a\nb\nc");
}

TEST(RtfReader, ParagraphsLinesCellsAndPagesPartWords)
{
    EXPECT_EQ(bodyText("a\\par b\\line c\\page d\\sect e\\column f\\softline g"), "a\nb\nc\nd\ne\nf\ng");
    EXPECT_EQ(bodyText("\\trowd\\cellx1000\\cellx2000\\intbl Cash\\cell 100\\cell\\row"), "Cash\n100\n\n");
    EXPECT_EQ(
        bodyText("{\\itap2 in\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}}\\cell"),
        "in\n\n\n");
}

TEST(RtfReader, BytesAreOfTheDocumentsCodePage)
{
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1252 caf\\'e9 \\'80 \\'97}"), "caf\u00E9 \u20AC \u2014");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1251 \\'c6\\'f3\\'ea}"), "\u0416\u0443\u043A");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1250 \\'9a}"), "\u0161");
    EXPECT_EQ(textOf("{\\rtf1\\ansi caf\\'E9}"), "caf\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\mac caf\\'8e}"), "caf\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\pc caf\\'82}"), "caf\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\pca \\'9d}"), "\u00D8");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg99999 \\'e9}"), "\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1252 caf\xE9}"), "caf\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg65001 caf\xC3\xA9 \\'c3\\'a9}"), "caf\u00E9 \u00E9");
}

TEST(RtfReader, CharactersOfTwoBytesAreRead)
{
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg932 \\'93\\'fa\\'96\\'7b \\'b1}"), "\u65E5\u672C \uFF71");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg932 \x93\xFA\\'83A}"), "\u65E5\u30A2");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg936 \\'d6\\'d0}"), "\u4E2D");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg949 \\'c7\\'d1}"), "\uD55C");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg950 \\'a4\\'a4}"), "\u4E2D");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg932 \\'93\\par x}"), "\uFFFD\nx");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg932 \\'93}"), "\uFFFD");
}

TEST(RtfReader, TheFontSaysWhatItsBytesMean)
{
    EXPECT_EQ(bodyText("\\f1\\'c6\\f0\\'c6"), "\u0416\u00C6");
    EXPECT_EQ(bodyText("{\\f1\\'c6}\\'c6"), "\u0416\u00C6");
    EXPECT_EQ(bodyText("\\f1\\plain\\'c6"), "\u00C6");
    EXPECT_EQ(bodyText("\\f3\\'93\\'fa"), "\u65E5");
    EXPECT_EQ(bodyText("\\f4\\'9a"), "\u0161");
    EXPECT_EQ(bodyText("\\f9\\'e9"), "\u00E9");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\deff1{\\fonttbl{\\f1\\fcharset204 A;}}\\'c6\\plain\\'c6}"),
              "\u00C6\u0416");
    EXPECT_EQ(textOf("{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset0 A;}{\\f1 B;}}"
                     "\\'c6\\f0\\'c6\\f1\\'c6\\plain\\'c6}"),
              "\u0416\u00C6\u0416\u0416");
}

TEST(RtfReader, PicturesOfASymbolFontAreNoLetters)
{
    EXPECT_EQ(bodyText("a{\\f2 bcd\\'e9}e"), "a\uFFFD\uFFFD\uFFFD\uFFFDe");
    EXPECT_EQ(textInPieces(inDocument("{\\f2 bcd}"), 1), bodyText("{\\f2 bcd}"));
}

TEST(RtfReader, UnicodeCharactersHaveAFallbackThatIsSkipped)
{
    EXPECT_EQ(bodyText("\\u233?t\\u233?"), "\u00E9t\u00E9");
    EXPECT_EQ(bodyText("\\u8212-a"), "\u2014a");
    EXPECT_EQ(bodyText("\\u1046 ?x"), "\u0416x");
    EXPECT_EQ(bodyText("\\u1046\\'c6x"), "\u0416x");
    EXPECT_EQ(bodyText("\\uc0\\u1046 x"), "\u0416x");
    EXPECT_EQ(bodyText("\\uc2\\u1046\\'8ay\\u1046??z"), "\u0416\u0416z");
    EXPECT_EQ(bodyText("{\\uc3\\u1046abc}\\u1046?d"), "\u0416\u0416d");
    EXPECT_EQ(bodyText("\\u8217\\rquote s"), "\u2019s");
    EXPECT_EQ(bodyText("\\uc2\\u1046?}x"), "\u0416");
    EXPECT_EQ(bodyText("{\\uc5\\u1046?}x"), "\u0416x");
    EXPECT_EQ(bodyText("\\u1055\\u1056"), "\u041F\u0420");
    EXPECT_EQ(bodyText("\\u1046\r\n?x"), "\u0416x");
}

TEST(RtfReader, UnicodeNumbersAreSignedOrHalvesOfAPair)
{
    EXPECT_EQ(bodyText("\\u-3913?"), "\uF0B7");
    EXPECT_EQ(bodyText("\\u-10179?\\u-9216?"), "\U0001F400");
    EXPECT_EQ(bodyText("\\u55357?\\u56320?"), "\U0001F400");
    EXPECT_EQ(bodyText("\\u128512?"), "\U0001F600");
    EXPECT_EQ(bodyText("\\u55357?x"), "\uFFFDx");
    EXPECT_EQ(bodyText("\\u56320?x"), "\uFFFDx");
    EXPECT_EQ(bodyText("\\u2000000?x\\u-99999?y\\u z"), "xyz");
}

TEST(RtfReader, HiddenAndDeletedTextIsLeftOut)
{
    EXPECT_EQ(bodyText("a{\\v hidden}b"), "ab");
    EXPECT_EQ(bodyText("a\\v hidden\\v0 b"), "ab");
    EXPECT_EQ(bodyText("a\\v1 hidden\\plain b"), "ab");
    EXPECT_EQ(bodyText("a{\\v \\'e9\\u233?\\emdash{ x}}b"), "ab");
    EXPECT_EQ(bodyText("a{\\deleted gone}b"), "ab");
    EXPECT_EQ(bodyText("a{\\v x{\\v0 y}}b"), "ayb");
}

TEST(RtfReader, OfAFieldTheResultIsText)
{
    EXPECT_EQ(bodyText("see {\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt the page}}."),
              "see the page.");
    EXPECT_EQ(bodyText("{\\field\\fldedit{\\fldinst {DATE \\\\@ \"d\"}}{\\fldrslt {\\b 5}}}"), "5");
    EXPECT_EQ(bodyText("a{\\xe index}{\\tc contents}b"), "ab");
}

TEST(RtfReader, TablesOfTheDocumentAreNoText)
{
    EXPECT_EQ(
        bodyText("{\\colortbl;\\red0;}{\\stylesheet{\\s0 Normal;}{\\*\\cs1 Strong;}}"
                 "{\\info{\\title Secret}{\\author Me}}{\\*\\generator Maker 1;}{\\*\\unknown{deep text}}a"),
        "a");
    EXPECT_EQ(bodyText("{\\header{\\pard page head\\par}}{\\footerf foot}a"), "a");
    EXPECT_EQ(bodyText("as{\\*\\bkmkstart here}{\\*\\bkmkend here}sets"), "assets");
    EXPECT_EQ(bodyText("{\\pntext\\'b7\\tab}{\\listtext 1.\\tab}item"), "item");
    EXPECT_EQ(bodyText("{\\unknownword text}"), "text");
}

TEST(RtfReader, PicturesAndBinaryDataAreSkipped)
{
    EXPECT_EQ(bodyText("a{\\pict\\pngblip 89504e470d0a}b"), "ab");
    EXPECT_EQ(
        bodyText("a{\\*\\shppict{\\pict{\\*\\picprop{\\sp{\\sn x}{\\sv y}}}0102}}{\\nonshppict{\\pict 03}}b"),
        "ab");
    EXPECT_EQ(bodyText("a{\\pict\\bin5 {}}{\\}b"), "ab");
    EXPECT_EQ(bodyText("a\\bin3 }}}b"), "ab");
    EXPECT_EQ(bodyText("a\\bin0 b\\bin-5 c\\bin d"), "abcd");
    EXPECT_EQ(bodyText("a{\\object\\objemb{\\*\\objdata 0105}{\\result shown}}b"), "ashownb");
}

TEST(RtfReader, NotesAndTextBoxesStandApart)
{
    EXPECT_EQ(bodyText("assets{\\super\\chftn{\\footnote\\pard note}}more"), "assets\nnote\nmore");
    EXPECT_EQ(bodyText("a{\\shp{\\*\\shpinst\\shpleft0{\\sp{\\sn n}{\\sv v}}drop{\\shptxt boxed\\par}}"
                       "{\\shprslt{\\*\\do{\\dptxbxtext old}}}}b"),
              "a\nboxed\n\nb");
    EXPECT_EQ(bodyText("a{\\*\\do\\dobxpage{\\dptxbxtext boxed}}b"), "a\nboxed\nb");
}

TEST(RtfReader, MalformedFilesGiveWhatCanBeRead)
{
    EXPECT_EQ(textOf("{\\rtf1 cut of"), "cut of");
    EXPECT_EQ(textOf("{\\rtf1 a\\"), "a");
    EXPECT_EQ(textOf("{\\rtf1 a\\'"), "a");
    EXPECT_EQ(textOf("{\\rtf1 a\\'e"), "a");
    EXPECT_EQ(textOf("{\\rtf1 a\\'zzb}"), "azzb");
    EXPECT_EQ(textOf("{\\rtf1 a\\u12"), "a\u000C");
    EXPECT_EQ(textOf("{\\rtf1 a\\bin999999 b}"), "a");
    EXPECT_EQ(textOf("{\\rtf1 a}b}c"), "a");
    EXPECT_EQ(textOf("{\\rtf1 {{{a"), "a");
    EXPECT_EQ(textOf("{\\rtf1{\\fonttbl a"), "");
    EXPECT_EQ(textOf("{\\rtf1{\\*"), "");
    EXPECT_EQ(textOf("{\\rtf1\\par99999999999999999999 a}"), "\n99999999 a");
    EXPECT_EQ(textOf("{\\rtf1\\" + std::string(1000, 'x') + " a}").substr(0, 3), "xxx");
    EXPECT_EQ(textOf(std::string_view("{\\rtf1 a\0b}", 11)), "ab");
    EXPECT_EQ(textOf("}"), "");
    EXPECT_EQ(textOf(""), "");
}

TEST(RtfReader, DeepGroupsAreReadDownToABound)
{
    const auto nested = [](std::size_t n) {
        return "{\\rtf1 a" + std::string(n, '{') + "deep" + std::string(n, '}') + "b}";
    };
    EXPECT_EQ(textOf(nested(50'000)), "adeepb");
    EXPECT_EQ(textOf(nested(1'000'000)), "ab");
    EXPECT_EQ(textOf("{\\rtf1 a" + std::string(1'000'000, '{')), "a");
}

TEST(RtfReader, ComesOutTheSameInPieces)
{
    const std::string sFile =
        inDocument("\\pard Caf\\'e9 \\u-10179?\\u-9216? {\\v hidden}\\f3\\'93\\'fa\\f0{\\field{\\*\\fldinst "
                   "X}{\\fldrslt y}}"
                   "{\\pict\\bin40 0123456789012345678901234567890123456789}{\\footnote n}\\cell\\row raw "
                   "\xE9 end\\par");
    const std::string sWhole = textOf(sFile);
    EXPECT_TRUE(isUtf8(sWhole));
    for (const std::size_t nPiece : {1U, 2U, 3U, 7U, 50U})
        EXPECT_EQ(textInPieces(sFile, nPiece), sWhole) << nPiece;
}

TEST(RtfReader, ALongTextComesInBoundedPiecesOfWholeCharacters)
{
    std::string sFile = "{\\rtf1 ";
    for (int i = 0; i < 200'000; ++i)
        sFile += "\\'e9";
    sFile += "}";
    std::size_t nPieces = 0;
    std::size_t nLongest = 0;
    std::size_t nBytes = 0;
    bool bWhole = true;
    RtfReader([&](std::string_view piece) {
        ++nPieces;
        nLongest = std::max(nLongest, piece.size());
        nBytes += piece.size();
        bWhole = bWhole && isUtf8(piece);
    }).read(sFile, true);
    EXPECT_EQ(nBytes, 400'000U);
    EXPECT_GT(nPieces, 5U);
    EXPECT_LT(nLongest, 70'000U);
    EXPECT_TRUE(bWhole);
}

TEST(RtfReader, IsReadyForAnotherFile)
{
    std::string sText;
    RtfReader reader([&sText](std::string_view piece) { sText += piece; });
    reader.read("{\\rtf1\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 A;}}{\\v\\uc7 \\u1046", true);
    reader.read("{\\rtf1 \\'e9x}", true);
    EXPECT_EQ(sText, "\u00E9x");
}

/// Broken in ways that nobody thought of.
TEST(RtfReader, BearsAnyDamage)
{
    const std::string sFile =
        inDocument("\\pard{\\b Cash \\'e9\\u233?}{\\field{\\*\\fldinst X}{\\fldrslt "
                   "y}}{\\f3\\'93\\'fa}\\trowd a\\cell\\row"
                   "{\\pict\\bin4 abcd}{\\shp{\\*\\shpinst{\\shptxt t}}}{\\footnote n}\\v h\\v0\\par");
    std::mt19937 engine(42);
    const std::string sSigns = "{}\\\\\\'*u-0 \x81\xFF";
    for (int i = 0; i < 3'000; ++i) {
        std::string sDamaged = sFile;
        for (int n = 0; n < 4; ++n) {
            const std::size_t at = engine() % sDamaged.size();
            switch (engine() % 3) {
            case 0:
                sDamaged[at] = sSigns[engine() % sSigns.size()];
                break;
            case 1:
                sDamaged.erase(at, 1 + engine() % 5);
                break;
            default:
                sDamaged.insert(at, sDamaged.substr(engine() % sDamaged.size(), engine() % 20));
            }
        }
        const std::string sText = textOf(sDamaged);
        ASSERT_TRUE(isUtf8(sText)) << sDamaged;
        ASSERT_EQ(textInPieces(sDamaged, 5), sText) << sDamaged;
    }
}

} // namespace
} // namespace zorvo
