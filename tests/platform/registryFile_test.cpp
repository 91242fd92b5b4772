#include "platform/linux/RegistryFile.h"

#include "base/RunTimeError.h"
#include "platform/linux/RegistryStore.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace zorvo {
namespace {

const std::string kHeader = "Windows Registry Editor Version 5.00\n\n";

class RegistryFile : public testing::Test {
protected:
    void put(const std::string& path, RegistryValue value)
    {
        registry.apply({{RegistryChange::Kind::setValue, HKEY_CURRENT_USER, path, std::move(value)}});
    }

    std::string exported(const std::string& key, RegistryTextForm form = RegistryTextForm::utf8)
    {
        return exportRegistryKey(registry, key, form);
    }

    TemporaryFolder folder;
    RegistryStore registry{folder / "user.db", folder / "machine.db"};
};

TEST_F(RegistryFile, AnImportMakesChangesAndDeletesInOrder)
{
    importRegistryText(registry, kHeader + "[HKEY_CURRENT_USER\\Old\\Sub]\n\"a\"=\"1\"\n"
                                           "[HKEY_CURRENT_USER\\K]\n\"keep\"=\"1\"\n\"go\"=\"2\"\n");
    importRegistryText(registry, kHeader + "[-HKEY_CURRENT_USER\\OLD]\n[HKEY_CURRENT_USER\\k]\n\"GO\"=-\n"
                                           "\"KEEP\"=\"3\"\n[HKEY_CURRENT_USER\\Old]\n");
    EXPECT_EQ(exported("HKEY_CURRENT_USER"), kHeader + "[HKEY_CURRENT_USER]\n\n[HKEY_CURRENT_USER\\K]\n"
                                                       "\"keep\"=\"3\"\n\n[HKEY_CURRENT_USER\\Old]\n");
}

TEST_F(RegistryFile, ADamagedFileChangesNothing)
{
    put("K", {"v", RegistryType::string, std::string("1\0", 2)});
    const std::string before = exported("HKEY_CURRENT_USER");
    EXPECT_THROW(importRegistryText(
                     registry, kHeader + "[HKEY_CURRENT_USER\\New]\n\"a\"=\"b\"\n[-HKEY_CURRENT_USER\\K]\n"
                                         "[HKEY_LOCAL_MACHINE\\New]\n\"cut\"=\"off"),
                 RunTimeError);
    EXPECT_EQ(exported("HKEY_CURRENT_USER"), before);
    EXPECT_FALSE(registry.hasKey(HKEY_LOCAL_MACHINE, "New"));
}

TEST_F(RegistryFile, OneFileMayChangeBothScopes)
{
    importRegistryText(registry,
                       kHeader + "[HKEY_CURRENT_USER\\A]\n[HKEY_LOCAL_MACHINE\\B]\n[HKEY_CLASSES_ROOT\\C]\n");
    EXPECT_TRUE(registry.hasKey(HKEY_CURRENT_USER, "A"));
    EXPECT_TRUE(registry.hasKey(HKEY_LOCAL_MACHINE, "B"));
    EXPECT_TRUE(registry.hasKey(HKEY_CLASSES_ROOT, "C"));
}

TEST_F(RegistryFile, WhatIsExportedComesBackTheSame)
{
    std::mt19937 random(20240305);
    const auto below = [&random](unsigned limit) { return random() % limit; };
    const std::vector<std::string> names{"",        "plain",    "with \"quotes\"",  "back\\slash",
                                         " blank ", "[x]",      "\u00E4\U0001F600", "a=b;c",
                                         "@",       "tab\there"};
    for (const char* key : {"K", "K\\Sub]", "K\\-x", "K\\ blank ", "K\\\u00E4", "K\\Sub]\\deep;er"}) {
        for (const std::string& name : names) {
            std::string data;
            for (unsigned length = below(200); length > 0; --length)
                data.push_back(static_cast<char>(below(3) == 0 ? below(256) : 'a' + below(26)));
            if (below(2) == 0)
                data.push_back('\0');
            put(key, {name, static_cast<RegistryType>(below(14)), data});
        }
    }
    put("K", {"text", RegistryType::string, std::string("C:\\dir\\\"x\"\0", 11)});
    const std::string before = exported("HKEY_CURRENT_USER\\K");
    for (const RegistryTextForm form : {RegistryTextForm::utf8, RegistryTextForm::utf16}) {
        const std::string file = exported("HKEY_CURRENT_USER\\K", form);
        std::vector<RegistryValue> values = registry.values(HKEY_CURRENT_USER, "K\\Sub]");
        registry.apply({{RegistryChange::Kind::deleteKey, HKEY_CURRENT_USER, "K", {}}});
        importRegistryText(registry, file);
        EXPECT_EQ(exported("HKEY_CURRENT_USER\\K"), before);
        const std::vector<RegistryValue> back = registry.values(HKEY_CURRENT_USER, "K\\Sub]");
        ASSERT_EQ(back.size(), values.size());
        for (std::size_t row = 0; row < back.size(); ++row) {
            EXPECT_EQ(back[row].sName, values[row].sName);
            EXPECT_EQ(back[row].type, values[row].type);
            EXPECT_EQ(back[row].sData, values[row].sData);
        }
    }
}

TEST_F(RegistryFile, AKeyThatIsNotThereOrIsNoneIsNotExported)
{
    EXPECT_THROW(exported("HKEY_CURRENT_USER\\K"), RunTimeError);
    EXPECT_THROW(exported("HKEY_OTHER"), RunTimeError);
    EXPECT_EQ(exported("HKEY_LOCAL_MACHINE"), kHeader + "[HKEY_LOCAL_MACHINE]\n");
}

TEST_F(RegistryFile, TenThousandValuesComeAndGoInSeconds)
{
    std::string text = kHeader;
    for (int row = 0; row < 10000; ++row)
        text += "[HKEY_LOCAL_MACHINE\\Software\\Zorvo\\P" + std::to_string(row) + "]\n\"Title\"=\"x\"\n";
    const auto begin = std::chrono::steady_clock::now();
    importRegistryText(registry, text);
    EXPECT_GT(exported("HKEY_LOCAL_MACHINE").size(), text.size());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
    EXPECT_EQ(registry.subKeys(HKEY_LOCAL_MACHINE, "Software\\Zorvo").size(), 10000U);
}

} // namespace
} // namespace zorvo
