#include "base/RunTimeError.h"
#include "platform/linux/LinuxFiles.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <functional>

namespace zorvo {
namespace {

/// What the port promises, held against the file system and against the fake that stands in for it.
struct RealTree {
    TemporaryFolder folder;
    LinuxFiles files{DosPaths(folder.path())};
    void makeReadOnly(const std::string& path) { chmod(files.toNative(path).c_str(), 0444); }
};

struct FakeTree {
    FakeFiles files;
    void makeReadOnly(const std::string& path) { files.setReadOnly(path, true); }
};

template <typename Tree>
class FilesContract : public testing::Test {
protected:
    FilesContract() { files().makeFolder("C:\\dir"); }

    Files& files() { return tree.files; }

    static int numberOf(const std::function<void()>& work)
    {
        try {
            work();
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    }

    Tree tree;
};

using Trees = testing::Types<RealTree, FakeTree>;
TYPED_TEST_SUITE(FilesContract, Trees);

const std::vector<std::string> kNoPaths{
    "",      "name.txt", "dir\\name.txt", "\\\\server\\share\\x", "\\dir", std::string("C:\\dir\0x", 8),
    "1:\\x", "::"};

TYPED_TEST(FilesContract, AFileIsReadAsItWasWritten)
{
    const std::string bytes("a\0\xFF\r\n", 5);
    this->files().write("C:\\dir\\a.txt", bytes);
    EXPECT_TRUE(this->files().fileExists("C:\\dir\\a.txt"));
    EXPECT_EQ(this->files().read("C:\\dir\\a.txt"), bytes);
    EXPECT_EQ(this->files().size("C:\\dir\\a.txt"), 5U);
    this->files().write("C:\\dir\\a.txt", "");
    EXPECT_EQ(this->files().read("C:\\dir\\a.txt"), "");
}

TYPED_TEST(FilesContract, NamesMatchInAnyCase)
{
    this->files().write("C:\\dir\\Gr\u00FC\u00DFe.TXT", "x");
    EXPECT_EQ(this->files().read("c:\\DIR\\GR\u00DC\u00DFE.txt"), "x");
    this->files().write("C:\\Dir\\gR\u00FC\u00DFe.txt", "y");
    ASSERT_EQ(this->files().list("C:\\DIR").size(), 1U);
    EXPECT_EQ(this->files().list("C:\\DIR")[0].sName, "Gr\u00FC\u00DFe.TXT");
    EXPECT_EQ(this->files().read("C:\\dir\\Gr\u00FC\u00DFe.TXT"), "y");
}

TYPED_TEST(FilesContract, ANewNameIsMadeAsSpelled)
{
    this->files().makeFolder("C:\\DIR\\MiXed");
    this->files().write("c:\\dir\\mixed\\NaMe", "x");
    EXPECT_EQ(this->files().list("C:\\dir")[0].sName, "MiXed");
    EXPECT_EQ(this->files().list("C:\\dir\\MIXED")[0].sName, "NaMe");
}

TYPED_TEST(FilesContract, EitherSeparatorIsTakenAndManyCountAsOne)
{
    this->files().write("C:\\dir\\a", "x");
    for (const char* path :
         {"C:/dir/a", "C:\\dir/a", "C:\\dir\\\\a", "C:\\\\dir\\.\\a", "C:\\dir\\..\\dir\\a"})
        EXPECT_TRUE(this->files().fileExists(path)) << path;
}

TYPED_TEST(FilesContract, AFolderIsNoFileAndAFileNoFolder)
{
    this->files().write("C:\\dir\\a", "x");
    EXPECT_FALSE(this->files().fileExists("C:\\dir"));
    EXPECT_TRUE(this->files().folderExists("C:\\dir"));
    EXPECT_TRUE(this->files().folderExists("C:\\dir\\"));
    EXPECT_TRUE(this->files().folderExists("C:\\"));
    EXPECT_TRUE(this->files().folderExists("Z:\\"));
    EXPECT_FALSE(this->files().folderExists("C:\\dir\\a"));
}

TYPED_TEST(FilesContract, PatternsArePlainCharacters)
{
    this->files().write("C:\\dir\\abc", "x");
    EXPECT_FALSE(this->files().fileExists("C:\\dir\\*"));
    EXPECT_FALSE(this->files().fileExists("C:\\dir\\a?c"));
    this->files().write("C:\\dir\\*", "y");
    EXPECT_EQ(this->files().read("C:\\dir\\*"), "y");
    EXPECT_EQ(this->files().read("C:\\dir\\abc"), "x");
}

TYPED_TEST(FilesContract, ATextThatIsNoPathNamesNothing)
{
    for (const std::string& path : kNoPaths) {
        EXPECT_FALSE(this->files().fileExists(path)) << path;
        EXPECT_FALSE(this->files().folderExists(path)) << path;
        EXPECT_TRUE(this->files().list(path).empty()) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().read(path); }), kPathNotFound) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().write(path, "x"); }), kPathNotFound) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().makeFolder(path); }), kPathNotFound) << path;
        EXPECT_EQ(this->files().toNative(path), path);
        EXPECT_EQ(this->files().fromNative(path), path);
    }
}

TYPED_TEST(FilesContract, AMissingFileIsToldFromAMissingFolder)
{
    const std::vector<std::function<void(const std::string&)>> operations{
        [this](const std::string& path) { this->files().read(path); },
        [this](const std::string& path) { this->files().remove(path); },
        [this](const std::string& path) { this->files().size(path); },
        [this](const std::string& path) { this->files().lastModified(path); },
        [this](const std::string& path) { this->files().clearAttributes(path); },
        [this](const std::string& path) { this->files().copy(path, "C:\\dir\\copy"); },
    };
    for (const auto& operation : operations) {
        EXPECT_EQ(this->numberOf([&] { operation("C:\\dir\\none"); }), kFileNotFound);
        EXPECT_EQ(this->numberOf([&] { operation("C:\\none\\none"); }), kPathNotFound);
    }
}

TYPED_TEST(FilesContract, NothingIsWrittenWhereThereIsNoFolder)
{
    this->files().write("C:\\dir\\a", "x");
    for (const char* path : {"C:\\none\\b", "C:\\dir\\a\\b"}) {
        EXPECT_EQ(this->numberOf([&] { this->files().write(path, "x"); }), kPathNotFound) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().append(path, "x"); }), kPathNotFound) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().copy("C:\\dir\\a", path); }), kPathNotFound) << path;
        EXPECT_EQ(this->numberOf([&] { this->files().makeFolder(path); }), kPathNotFound) << path;
    }
}

TYPED_TEST(FilesContract, AFolderCannotBeUsedAsAFile)
{
    this->files().write("C:\\dir\\a", "x");
    EXPECT_EQ(this->numberOf([&] { this->files().read("C:\\dir"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().write("C:\\dir", "x"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().append("C:\\dir", "x"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().remove("C:\\dir"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().copy("C:\\dir\\a", "C:\\dir"); }), kPathOrFileAccess);
    EXPECT_TRUE(this->files().folderExists("C:\\dir"));
}

TYPED_TEST(FilesContract, AReadOnlyFileIsNotWrittenUntilItsAttributesAreCleared)
{
    this->files().write("C:\\dir\\a", "old");
    this->files().write("C:\\dir\\b", "new");
    this->tree.makeReadOnly("C:\\dir\\a");
    EXPECT_EQ(this->numberOf([&] { this->files().write("C:\\dir\\a", "x"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().append("C:\\dir\\a", "x"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().copy("C:\\dir\\b", "C:\\dir\\a"); }), kPathOrFileAccess);
    EXPECT_EQ(this->files().read("C:\\dir\\a"), "old");
    this->files().clearAttributes("C:\\DIR\\A");
    this->files().copy("C:\\dir\\b", "C:\\dir\\a");
    EXPECT_EQ(this->files().read("C:\\dir\\a"), "new");
}

TYPED_TEST(FilesContract, AReadOnlyFileCanBeDeleted)
{
    this->files().write("C:\\dir\\a", "x");
    this->tree.makeReadOnly("C:\\dir\\a");
    this->files().remove("C:\\dir\\A");
    EXPECT_FALSE(this->files().fileExists("C:\\dir\\a"));
}

TYPED_TEST(FilesContract, ACopyOfAReadOnlyFileCanBeWritten)
{
    this->files().write("C:\\dir\\template", "x");
    this->tree.makeReadOnly("C:\\dir\\template");
    this->files().copy("C:\\dir\\template", "C:\\dir\\document");
    this->files().write("C:\\dir\\document", "y");
    EXPECT_EQ(this->files().read("C:\\dir\\template"), "x");
}

TYPED_TEST(FilesContract, AppendingMakesTheFileAndAddsToItsEnd)
{
    this->files().append("C:\\dir\\log", "one\r\n");
    this->files().append("C:\\DIR\\LOG", "two\r\n");
    EXPECT_EQ(this->files().read("C:\\dir\\log"), "one\r\ntwo\r\n");
}

TYPED_TEST(FilesContract, MakingAFolderThatIsThereFails)
{
    this->files().write("C:\\dir\\a", "x");
    EXPECT_EQ(this->numberOf([&] { this->files().makeFolder("C:\\DIR"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().makeFolder("C:\\dir\\A"); }), kPathOrFileAccess);
    EXPECT_EQ(this->numberOf([&] { this->files().makeFolder("C:\\"); }), kPathOrFileAccess);
}

TYPED_TEST(FilesContract, AListingTellsFilesAndFoldersOfOneLevel)
{
    this->files().makeFolder("C:\\dir\\sub");
    this->files().write("C:\\dir\\sub\\deep", "x");
    this->files().write("C:\\dir\\.hidden", "x");
    std::vector<Files::Entry> entries = this->files().list("C:\\dir\\");
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.sName < b.sName; });
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].sName, ".hidden");
    EXPECT_FALSE(entries[0].bFolder);
    EXPECT_EQ(entries[1].sName, "sub");
    EXPECT_TRUE(entries[1].bFolder);
    EXPECT_TRUE(this->files().list("C:\\none").empty());
    EXPECT_TRUE(this->files().list("C:\\dir\\.hidden").empty());
}

TYPED_TEST(FilesContract, TheTimeOfAChangeMovesOn)
{
    this->files().write("C:\\dir\\a", "x");
    const std::int64_t first = this->files().lastModified("C:\\dir\\a");
    EXPECT_GT(first, 1'600'000'000'000'000'000);
    this->files().write("C:\\dir\\a", "y");
    EXPECT_GE(this->files().lastModified("C:\\dir\\a"), first);
}

TYPED_TEST(FilesContract, ANativePathComesBackThroughItsDrive)
{
    this->files().makeFolder("C:\\dir\\Sub");
    const std::string native = this->files().toNative("c:\\DIR\\sub\\New.txt");
    EXPECT_TRUE(native.starts_with("/"));
    EXPECT_TRUE(native.ends_with("/dir/Sub/New.txt")) << native;
    EXPECT_EQ(this->files().fromNative(native), "C:\\dir\\Sub\\New.txt");
    EXPECT_EQ(this->files().fromNative(this->files().toNative("C:\\")), "C:\\");
    EXPECT_EQ(this->files().fromNative("/"), "Z:\\");
    EXPECT_EQ(this->files().fromNative("/no such folder/x"), "Z:\\no such folder\\x");
    EXPECT_EQ(this->files().toNative("z:\\no such folder\\x"), "/no such folder/x");
}

TYPED_TEST(FilesContract, APathThatHasADriveStaysAndGetsACapital)
{
    EXPECT_EQ(this->files().fromNative("c:/dir/x"), "C:\\dir\\x");
    EXPECT_EQ(this->files().fromNative("D:\\x"), "D:\\x");
}

} // namespace
} // namespace zorvo
