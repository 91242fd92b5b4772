#include "client/RegistryCommand.h"

#include "client/SettingCommand.h"
#include "client/registryData.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

namespace zorvo {
namespace {

struct Outcome {
    int nExit = -1;
    std::string out;
    std::string err;
};

using Arguments = std::vector<std::string>;

/// A user and a machine with nothing stored yet.
class CommandTest : public testing::Test {
protected:
    template <typename Command>
    static Outcome run(Command command, const Arguments& arguments)
    {
        std::ostringstream out;
        std::ostringstream err;
        const int nExit = command(arguments, out, err);
        return {nExit, out.str(), err.str()};
    }

    static Outcome registry(const Arguments& arguments) { return run(runRegistryCommand, arguments); }
    static Outcome setting(const Arguments& arguments) { return run(runSettingCommand, arguments); }

    /// Failed with one line on standard error and nothing on standard output.
    static void expectFailure(const Outcome& run, const std::string& line)
    {
        EXPECT_EQ(run.nExit, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, line + "\n");
    }

    static void expectWrongUsage(const Outcome& run)
    {
        EXPECT_EQ(run.nExit, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.starts_with("usage: brendle "));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    }

    TemporaryFolder folder;
    const ScopedEnvironment data{"XDG_DATA_HOME", folder / "data"};
    const ScopedEnvironment config{"XDG_CONFIG_HOME", folder / "config"};
    const ScopedEnvironment machine{"ZORVOBRENDLE_MACHINE_DIR", folder / "machine"};
};

TEST_F(CommandTest, RegistrySetMakesTheKeyAndGetPrintsTheValue)
{
    const Outcome set = registry({"set", "HKEY_LOCAL_MACHINE\\Software\\Zorvo\\X", "Title", "A title"});
    EXPECT_EQ(set.nExit, 0);
    EXPECT_EQ(set.out + set.err, "");
    const Outcome get = registry({"get", "HKLM\\SOFTWARE\\zorvo\\x", "TITLE"});
    EXPECT_EQ(get.nExit, 0);
    EXPECT_EQ(get.out, "A title\n");
    EXPECT_TRUE(std::filesystem::exists(folder / "machine/registry.db"));
    EXPECT_FALSE(std::filesystem::exists(folder / "data/zorvobrendle/registry.db"));
}

TEST_F(CommandTest, RegistryGetWithoutANameGivesTheDefaultValue)
{
    registry({"set", "HKCU\\K", "", "default"});
    registry({"set", "HKCU\\K", "other", ""});
    EXPECT_EQ(registry({"get", "HKCU\\K"}).out, "default\n");
    EXPECT_EQ(registry({"get", "HKCU\\K", ""}).out, "default\n");
    EXPECT_EQ(registry({"get", "HKCU\\K", "other"}).out, "\n");
}

TEST_F(CommandTest, RegistryGetOfWhatIsAbsentFails)
{
    expectFailure(registry({"get", "HKCU\\K"}), "There is no registry key HKCU\\K.");
    registry({"set", "HKCU\\K", "v", "1"});
    expectFailure(registry({"get", "HKCU\\K"}), "The key has no default value.");
    expectFailure(registry({"get", "HKCU\\K", "w"}), "The key has no value w.");
    expectFailure(registry({"get", "HKCU\\K", "two\nlines"}), "The key has no value two lines.");
    expectFailure(registry({"list", "HKCU\\L"}), "There is no registry key HKCU\\L.");
    expectFailure(registry({"export", "HKCU\\L"}), "There is no registry key HKCU\\L.");
    expectFailure(registry({"get", "HKEY_OTHER\\K"}), "HKEY_OTHER\\K is no registry key.");
    expectFailure(registry({"set", "HKCU\\K\\", "v", "1"}), "HKCU\\K\\ is no registry key.");
}

TEST_F(CommandTest, RegistryValuesOfEachTypeAreSetAndShown)
{
    const std::vector<std::array<std::string, 4>> rows{
        // type, data, what get prints, what list shows
        {"REG_SZ", "C:\\a b", "C:\\a b", "C:\\a b"},
        {"REG_EXPAND_SZ", "%A%", "%A%", "%A%"},
        {"REG_MULTI_SZ", "a\\0b c", "a\nb c", "a\\0b c"},
        {"REG_MULTI_SZ", "", "", ""},
        {"REG_DWORD", "42", "42", "42"},
        {"REG_DWORD", "0xFFFFFFFF", "-1", "-1"},
        {"REG_DWORD", "-2147483648", "-2147483648", "-2147483648"},
        {"reg_dword", "4294967295", "-1", "-1"},
        {"REG_DWORD_BIG_ENDIAN", "258", "258", "258"},
        {"REG_QWORD", "0x100000000", "4294967296", "4294967296"},
        {"REG_BINARY", "00 fF,1a", "00ff1a", "00ff1a"},
        {"REG_NONE", "", "", ""},
    };
    for (const auto& [type, text, got, listed] : rows) {
        const Outcome set = registry({"set", "HKCU\\K", "v", text, "--type", type});
        ASSERT_EQ(set.nExit, 0) << set.err;
        EXPECT_EQ(registry({"get", "HKCU\\K", "v"}).out, got + "\n");
        std::string name = type;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char c) { return static_cast<char>(toupper(c)); });
        const std::string line = std::string("v\t").append(name).append("\t").append(listed).append("\n");
        EXPECT_EQ(registry({"list", "HKCU\\K"}).out, line);
    }
}

TEST_F(CommandTest, RegistryDataThatDoesNotFitItsTypeFails)
{
    for (const auto& [type, text] :
         std::vector<std::pair<std::string, std::string>>{{"REG_DWORD", ""},
                                                          {"REG_DWORD", "x"},
                                                          {"REG_DWORD", "0x"},
                                                          {"REG_DWORD", "4294967296"},
                                                          {"REG_DWORD", "-2147483649"},
                                                          {"REG_DWORD", "1 "},
                                                          {"REG_DWORD", "--1"},
                                                          {"REG_DWORD", "-0x1"},
                                                          {"REG_QWORD", "18446744073709551616"},
                                                          {"REG_BINARY", "0"},
                                                          {"REG_BINARY", "0g"}})
        expectFailure(registry({"set", "HKCU\\K", "v", text, "--type", type}),
                      std::string(text).append(" is no ").append(type).append("."));
    expectFailure(registry({"list", "HKCU\\K"}), "There is no registry key HKCU\\K.");
}

TEST_F(CommandTest, RegistryNumbersAreStoredInTheirByteOrder)
{
    EXPECT_EQ(registryDataFromText(RegistryType::dword, "258"), std::string("\x02\x01\0\0", 4));
    EXPECT_EQ(registryDataFromText(RegistryType::dwordBigEndian, "258"), std::string("\0\0\x01\x02", 4));
    EXPECT_EQ(registryDataFromText(RegistryType::multiString, "a\\0b"), std::string("a\0b\0\0", 5));
    EXPECT_EQ(registryDataToText(RegistryType::dword, "abc", RegistryTextLayout::lines), "616263");
    EXPECT_EQ(registryTypeName(static_cast<RegistryType>(99)), "REG_99");
}

TEST_F(CommandTest, RegistryListShowsSubKeysThenValuesInOrder)
{
    registry({"set", "HKCU\\K\\b", "", "x"});
    registry({"set", "HKCU\\K\\A", "", "x"});
    registry({"set", "HKCU\\K", "z", "1"});
    registry({"set", "HKCU\\K", "", "2"});
    EXPECT_EQ(registry({"list", "HKCU\\K"}).out, "A\\\nb\\\n@\tREG_SZ\t2\nz\tREG_SZ\t1\n");
    EXPECT_EQ(registry({"list", "HKEY_CURRENT_USER"}).out, "K\\\n");
    EXPECT_EQ(registry({"list", "HKEY_LOCAL_MACHINE"}).nExit, 0); // a hive is there, stored or not
}

TEST_F(CommandTest, RegistryDeleteTakesAValueOrAKeyWithAllBelow)
{
    registry({"set", "HKCU\\K\\Sub", "v", "1"});
    registry({"set", "HKCU\\K\\Sub", "w", "1"});
    EXPECT_EQ(registry({"delete", "HKCU\\K\\Sub", "V"}).nExit, 0);
    EXPECT_EQ(registry({"list", "HKCU\\K\\Sub"}).out, "w\tREG_SZ\t1\n");
    EXPECT_EQ(registry({"delete", "HKCU\\K"}).nExit, 0);
    EXPECT_EQ(registry({"list", "HKEY_CURRENT_USER"}).out, "");
    expectFailure(registry({"delete", "HKCU\\K"}), "There is no registry key HKCU\\K.");
    registry({"set", "HKCU\\K", "v", "1"});
    expectFailure(registry({"delete", "HKCU\\K", "w"}), "The key has no value w.");
    EXPECT_EQ(registry({"delete", "HKEY_CURRENT_USER"}).nExit, 1);
    EXPECT_EQ(registry({"get", "HKCU\\K", "v"}).out, "1\n");
}

TEST_F(CommandTest, RegistryImportAppliesAFile)
{
    putFile(folder / "in.reg",
            "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Zorvo]\r\n\"Title\"=\"caf\xE9\"\r\n");
    const Outcome run = registry({"import", folder / "in.reg"});
    EXPECT_EQ(run.nExit, 0) << run.err;
    EXPECT_EQ(run.out + run.err, "");
    EXPECT_EQ(registry({"get", "HKLM\\Software\\Zorvo", "title"}).out, "caf\u00E9\n");
}

TEST_F(CommandTest, RegistryImportOfADamagedFileNamesItsLineAndChangesNothing)
{
    const std::string file = folder / "bad.reg";
    putFile(file, "REGEDIT4\n[HKEY_CURRENT_USER\\K]\n\"a\"=\"1\"\n\"b\"=dword:xyz\n");
    expectFailure(registry({"import", file}),
                  file + ": line 4: this is no number of up to eight hexadecimal digits");
    expectFailure(registry({"list", "HKCU\\K"}), "There is no registry key HKCU\\K.");
    expectFailure(registry({"import", folder / "none.reg"}), (folder / "none.reg") + ": File not found");
    expectFailure(registry({"import", folder.path()}), folder.path() + ": Path/File access error");
}

TEST_F(CommandTest, RegistryExportGoesToStandardOutputOrToAFile)
{
    registry({"set", "HKCU\\K\\Sub", "n", "42", "--type=REG_DWORD"});
    registry({"set", "HKCU\\K", "t", "\u00E4\\"});
    const Outcome shown = registry({"export", "HKCU\\k"});
    EXPECT_EQ(shown.nExit, 0);
    EXPECT_EQ(shown.out,
              "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\K]\n\"t\"=\"\u00E4\\\\\"\n\n"
              "[HKEY_CURRENT_USER\\K\\Sub]\n\"n\"=dword:0000002a\n");
    const std::string file = folder / "out.reg";
    const Outcome written = registry({"export", "HKCU\\K", file});
    EXPECT_EQ(written.nExit, 0) << written.err;
    EXPECT_EQ(written.out, "");
    EXPECT_TRUE(fileBytes(file).starts_with(std::string("\xFF\xFEW\0i\0", 6)));
    registry({"delete", "HKCU\\K"});
    EXPECT_EQ(registry({"import", file}).nExit, 0);
    EXPECT_EQ(registry({"export", "HKCU\\K"}).out, shown.out);
    putFile(file, shown.out);
    registry({"delete", "HKCU\\K"});
    EXPECT_EQ(registry({"import", file}).nExit, 0);
    EXPECT_EQ(registry({"export", "HKCU\\K"}).out, shown.out);
    expectFailure(registry({"export", "HKCU\\K", folder / "none/out.reg"}),
                  (folder / "none/out.reg") + ": Path not found");
}

TEST_F(CommandTest, RegistryExportGivesTheStoredSpelling)
{
    registry({"set", "HKCU\\Software\\Zorvo", "v", "1"});
    EXPECT_TRUE(
        registry({"export", "hkcu\\SOFTWARE\\ZORVO"}).out.find("[HKEY_CURRENT_USER\\Software\\Zorvo]") !=
        std::string::npos);
}

TEST_F(CommandTest, ADamagedRegistryIsToldInOneLine)
{
    const std::string file = folder / "data/zorvobrendle/registry.db";
    putFile(file, std::string(5000, '?'));
    for (const Arguments& arguments : {Arguments{"get", "HKCU\\K"}, Arguments{"set", "HKCU\\K", "v", "1"},
                                       Arguments{"export", "HKCU\\K"}, Arguments{"delete", "HKCU\\K"}})
        expectFailure(registry(arguments), "The registry file " + file + " is damaged.");
}

TEST_F(CommandTest, RegistryWrongUsageIsTold)
{
    for (const Arguments& arguments : {Arguments{},
                                       {"frobnicate"},
                                       {"import"},
                                       {"import", "a", "b"},
                                       {"export"},
                                       {"export", "HKCU", "a", "b"},
                                       {"list"},
                                       {"list", "HKCU", "x"},
                                       {"get"},
                                       {"get", "HKCU", "v", "x"},
                                       {"get", "HKCU", "--type", "REG_SZ"},
                                       {"set", "HKCU\\K", "v"},
                                       {"set", "HKCU\\K", "v", "1", "2"},
                                       {"set", "HKCU\\K", "v", "1", "--type"},
                                       {"set", "HKCU\\K", "v", "1", "--type", "REG_OTHER"},
                                       {"delete"},
                                       {"delete", "HKCU", "v", "x"}})
        expectWrongUsage(registry(arguments));
}

TEST_F(CommandTest, RegistryDataMayLookLikeAnOption)
{
    EXPECT_EQ(registry({"set", "--", "HKCU\\K", "--type", "--"}).nExit, 0);
    EXPECT_EQ(registry({"get", "HKCU\\K", "--", "--type"}).out, "--\n");
}

TEST_F(CommandTest, SettingsAreSetShownAndListed)
{
    EXPECT_EQ(setting({"list"}).out, "");
    EXPECT_EQ(setting({"set", "OTRMainState", "2"}).nExit, 0);
    EXPECT_EQ(setting({"set", "DisplaySplash", "False"}).nExit, 0);
    EXPECT_EQ(setting({"get", "displaysplash"}).out, "False\n");
    EXPECT_EQ(setting({"list"}).out, "DisplaySplash=False\nOTRMainState=2\n");
    EXPECT_EQ(fileBytes(folder / "config/ZorvoBrendle/settings.ini"),
              "[Settings]\nOTRMainState=2\nDisplaySplash=False\n");
}

TEST_F(CommandTest, SettingGetOfAnAbsentKeyFails)
{
    expectFailure(setting({"get", "MainState"}), "There is no setting MainState.");
    expectFailure(setting({"get", "two\r\nlines"}), "There is no setting two lines.");
    setting({"set", "Empty", ""});
    EXPECT_EQ(setting({"get", "Empty"}).nExit, 0);
    EXPECT_EQ(setting({"get", "Empty"}).out, "\n");
}

TEST_F(CommandTest, SettingsThatCannotBeReadOrWrittenAreTold)
{
    const std::string file = folder / "config/ZorvoBrendle/settings.ini";
    std::filesystem::create_directories(file);
    expectFailure(setting({"list"}), "The settings file " + file + " can't be read.");
    expectFailure(setting({"get", "x"}), "The settings file " + file + " can't be read.");
    expectFailure(setting({"set", "x", "1"}), "The settings can't be written: Path/File access error");
}

TEST_F(CommandTest, SettingWrongUsageIsTold)
{
    for (const Arguments& arguments : {Arguments{},
                                       {"list", "x"},
                                       {"get"},
                                       {"get", "a", "b"},
                                       {"set", "a"},
                                       {"set", "a", "b", "c"},
                                       {"delete", "a"}})
        expectWrongUsage(setting(arguments));
}

} // namespace
} // namespace zorvo
