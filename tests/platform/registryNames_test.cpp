#include "platform/registryNames.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(RegistryNames, AHiveIsKnownByItsNameAndAbbreviationInAnyCase)
{
    EXPECT_EQ(registryHive("HKEY_CURRENT_USER"), HKEY_CURRENT_USER);
    EXPECT_EQ(registryHive("hkey_local_machine"), HKEY_LOCAL_MACHINE);
    EXPECT_EQ(registryHive("hkcr"), HKEY_CLASSES_ROOT);
    EXPECT_EQ(registryHive("HKU"), HKEY_USERS);
    EXPECT_EQ(registryHive("HKCC"), HKEY_CURRENT_CONFIG);
    EXPECT_EQ(registryHive("HKEY_OTHER"), kHiveNone);
    EXPECT_EQ(registryHive(""), kHiveNone);
}

TEST(RegistryNames, AHiveAloneIsAPlaceAndAClosingBackslashIsNone)
{
    EXPECT_EQ(registryPlace("HKCU")->sPath, "");
    EXPECT_EQ(registryPlace("HKCU\\A\\B")->sPath, "A\\B");
    EXPECT_FALSE(registryPlace("HKCU\\"));
    EXPECT_FALSE(registryPlace("HKCU\\A\\"));
    EXPECT_FALSE(registryPlace("\\A"));
    EXPECT_FALSE(registryPlace(""));
}

TEST(RegistryNames, AKeyIsNeitherTooDeepNorTooLong)
{
    std::string deep = "x";
    for (std::size_t level = 1; level < kDeepestRegistryKey; ++level)
        deep += "\\x";
    EXPECT_EQ(registryLevels(deep)->size(), kDeepestRegistryKey);
    EXPECT_FALSE(registryLevels(deep + "\\x"));
    EXPECT_TRUE(registryLevels(std::string(kLongestRegistryName, 'x')));
    EXPECT_FALSE(registryLevels(std::string(kLongestRegistryName + 1, 'x')));
}

} // namespace
} // namespace zorvo
