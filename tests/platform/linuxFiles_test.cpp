#include "platform/linux/LinuxFiles.h"

#include "base/RunTimeError.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/childProcess.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

class LinuxFilesTest : public testing::Test {
protected:
    LinuxFilesTest() { chmod(folder.path().c_str(), 0755); }

    template <typename Work>
    static int numberOf(Work work)
    {
        try {
            work();
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    }

    static mode_t modeOf(const std::string& native)
    {
        struct stat status {};
        return stat(native.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    static std::size_t filesIn(const std::string& native)
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(native), {}));
    }

    /// The backslash form of a native path through drive Z.
    std::string z(const std::string& name) const { return files.fromNative(folder / name); }

    TemporaryFolder folder;
    std::string userData = folder / "data";
    mutable LinuxFiles files{DosPaths(userData)};
};

TEST_F(LinuxFilesTest, DriveCIsMadeAtItsFirstUse)
{
    EXPECT_FALSE(fs::exists(userData));
    files.write("C:\\new.txt", "x");
    EXPECT_EQ(fileBytes(userData + "/drive_c/new.txt"), "x");
    EXPECT_EQ(fs::read_symlink(userData + "/dosdevices/c:"), userData + "/drive_c");
}

TEST_F(LinuxFilesTest, ADriveIsTheFolderThatItsLinkNames)
{
    fs::create_directories(userData + "/dosdevices");
    fs::create_directories(folder / "disk/d");
    fs::create_directory_symlink(folder / "disk/d", userData + "/dosdevices/d:");
    fs::create_directory_symlink("../../disk", userData + "/dosdevices/e:");
    files.write("d:\\x", "x");
    EXPECT_EQ(fileBytes(folder / "disk/d/x"), "x");
    EXPECT_EQ(files.read("E:\\d\\x"), "x");
    EXPECT_EQ(files.toNative("E:\\d\\x"), folder / "disk/d/x");
    EXPECT_FALSE(files.folderExists("F:\\"));
    EXPECT_EQ(numberOf([&] { files.write("F:\\x", "x"); }), kPathNotFound);
}

TEST_F(LinuxFilesTest, ANativePathTakesTheLongestDriveThatHoldsIt)
{
    fs::create_directories(userData + "/dosdevices");
    fs::create_directories(folder / "disk/d");
    fs::create_directory_symlink(folder / "disk", userData + "/dosdevices/e:");
    fs::create_directory_symlink(folder / "disk/d/", userData + "/dosdevices/d:");
    fs::create_directory_symlink("/", userData + "/dosdevices/y:");
    EXPECT_EQ(files.fromNative(folder / "disk/d/x/y"), "D:\\x\\y");
    EXPECT_EQ(files.fromNative(folder / "disk/d"), "D:\\");
    EXPECT_EQ(files.fromNative(folder / "disk/dd"), "E:\\dd");
    fs::create_directory_symlink(folder / "disk/d/x", userData + "/dosdevices/f:");
    EXPECT_EQ(files.fromNative(folder / "disk/d/x/y"), "F:\\y");
    EXPECT_EQ(files.fromNative("//usr//share/../lib/"), "Z:\\usr\\lib");
}

TEST_F(LinuxFilesTest, ALinkedDriveHoldsPathsInEitherSpelling)
{
    fs::create_directories(userData + "/dosdevices");
    fs::create_directories(folder / "real/in");
    fs::create_directory_symlink(folder / "real", folder / "link");
    fs::create_directory_symlink(folder / "link/in", userData + "/dosdevices/d:");
    EXPECT_EQ(files.fromNative(folder / "link/in/x"), "D:\\x");
    EXPECT_EQ(files.fromNative(folder / "real/in/x"), "D:\\x");
}

TEST_F(LinuxFilesTest, TheExactNameComesFirst)
{
    putFile(folder / "A.txt", "capital");
    putFile(folder / "a.txt", "small");
    EXPECT_EQ(files.read(z("a.txt")), "small");
    EXPECT_EQ(files.read(z("A.txt")), "capital");
    EXPECT_EQ(files.read(z("A.TXT")), "capital"); // the first by code
    for (const char* name : {"abcd", "abcD", "abCd", "aBcd", "Abcd", "ABcd"})
        putFile(folder / name, name);
    EXPECT_EQ(files.read(z("ABCD")), "ABcd");
}

TEST_F(LinuxFilesTest, AHomeThatCannotBeWrittenHasNoDriveC)
{
    ChildProcess child(
        [&] {
            LinuxFiles own{DosPaths("/proc/zorvo")};
            return !own.folderExists("C:\\") && own.folderExists("Z:\\") ? 0 : 1;
        },
        ChildProcess::User::ordinary);
    EXPECT_EQ(child.result(), 0);
}

TEST_F(LinuxFilesTest, LinksInALoopAreNoFile)
{
    fs::create_directory(folder / "loop");
    fs::create_symlink("b", folder / "loop/a");
    fs::create_symlink("a", folder / "loop/b");
    EXPECT_FALSE(files.fileExists(z("loop/a")));
    EXPECT_FALSE(files.folderExists(z("loop/a")));
    EXPECT_EQ(numberOf([&] { files.read(z("loop/a")); }), kPathOrFileAccess);
    EXPECT_EQ(numberOf([&] { files.write(z("loop/a"), "x"); }), kPathOrFileAccess);
    EXPECT_EQ(files.list(z("loop")).size(), 2U);
}

TEST_F(LinuxFilesTest, ALinkIsFollowedAndStays)
{
    putFile(folder / "real/file", "old");
    fs::create_symlink("real/file", folder / "link");
    EXPECT_TRUE(files.fileExists(z("link")));
    files.write(z("link"), "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(fileBytes(folder / "real/file"), "new");
    files.remove(z("link"));
    EXPECT_TRUE(fs::exists(folder / "real/file"));
}

TEST_F(LinuxFilesTest, NamesThatAreNoTextDoNoHarm)
{
    putFile(folder / "odd/\xFF\xE9", "x");
    putFile(folder / "odd/back\\slash", "y");
    putFile(folder / "odd/Plain", "z");
    EXPECT_EQ(files.read(z("odd") + "\\plain"), "z");
    EXPECT_EQ(files.read(z("odd") + "\\\xFF\xE9"), "x");
    std::vector<std::string> names;
    for (const Files::Entry& entry : files.list(z("odd")))
        names.push_back(entry.sName);
    EXPECT_EQ(names.size(), 2U); // a name with a backslash can't be said
}

TEST_F(LinuxFilesTest, APipeIsNoFileAndNeverWaitedFor)
{
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0666), 0);
    EXPECT_FALSE(files.fileExists(z("pipe")));
    EXPECT_EQ(numberOf([&] { files.read(z("pipe")); }), kPathOrFileAccess);
    EXPECT_EQ(numberOf([&] { files.append(z("pipe"), "x"); }), kPathOrFileAccess);
    EXPECT_EQ(numberOf([&] { files.write(z("pipe"), "x"); }), kPathOrFileAccess);
}

TEST_F(LinuxFilesTest, AReplacedFileKeepsItsModeAndANewOneFollowsTheMask)
{
    putFile(folder / "kept", "x");
    chmod((folder / "kept").c_str(), 0640);
    const mode_t before = umask(027);
    files.write(z("kept"), "y");
    files.write(z("new"), "y");
    umask(before);
    EXPECT_EQ(modeOf(folder / "kept"), 0640U);
    EXPECT_EQ(modeOf(folder / "new"), 0640U);
}

TEST_F(LinuxFilesTest, ACopyKeepsTheTimeAndGivesTheOwnerTheRightToWrite)
{
    putFile(folder / "template", "x");
    chmod((folder / "template").c_str(), 0444);
    const timespec times[2] = {{1000000000, 0}, {1000000000, 5}};
    utimensat(AT_FDCWD, (folder / "template").c_str(), times, 0);
    files.copy(z("template"), z("copy"));
    EXPECT_EQ(modeOf(folder / "copy"), 0644U);
    EXPECT_EQ(files.lastModified(z("copy")), 1'000'000'000'000'000'005);
    EXPECT_EQ(modeOf(folder / "template"), 0444U);
}

TEST_F(LinuxFilesTest, AFullDiskLeavesTheOldFileAndNoRest)
{
    putFile(folder / "full/file", "old");
    putFile(folder / "full/log", "line 1\n");
    putFile(folder / "source", std::string(100000, 's'));
    ChildProcess child([&] {
        // A limit on the size of files stands in for the end of the disk: a write stops half-way.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        if (numberOf([&] { files.write(z("full/file"), std::string(100000, 'x')); }) != kDiskFull)
            return 1;
        if (numberOf([&] { files.copy(z("source"), z("full/file")); }) != kDiskFull)
            return 2;
        return numberOf([&] { files.append(z("full/log"), std::string(100000, 'x')); }) == kDiskFull ? 0 : 3;
    });
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(fileBytes(folder / "full/file"), "old");
    EXPECT_EQ(fileBytes(folder / "full/log"), "line 1\n");
    EXPECT_EQ(filesIn(folder / "full"), 2U);
}

TEST_F(LinuxFilesTest, WithoutPermissionNothingChanges)
{
    putFile(folder / "closed/file", "old");
    putFile(folder / "closed/secret", "x");
    putFile(folder / "open/foreign", "old");
    chmod((folder / "closed/secret").c_str(), 0600);
    chmod((folder / "closed").c_str(), 0555);
    chmod((folder / "open").c_str(), 0777);
    ChildProcess child(
        [&] {
            if (numberOf([&] { files.write(z("closed/new"), "x"); }) != kPermissionDenied)
                return 1;
            if (numberOf([&] { files.write(z("closed/file"), "x"); }) != kPermissionDenied)
                return 2;
            if (numberOf([&] { files.remove(z("closed/file")); }) != kPermissionDenied)
                return 3;
            if (numberOf([&] { files.read(z("closed/secret")); }) != kPermissionDenied)
                return 4;
            if (numberOf([&] { files.makeFolder(z("closed/dir")); }) != kPermissionDenied)
                return 5;
            if (numberOf([&] { files.append(z("closed/new"), "x"); }) != kPermissionDenied)
                return 6;
            // The folder would let another's file be replaced, but the file is not to be written.
            return numberOf([&] { files.write(z("open/foreign"), "x"); }) == kPermissionDenied ? 0 : 7;
        },
        ChildProcess::User::ordinary);
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(fileBytes(folder / "closed/file"), "old");
    EXPECT_EQ(fileBytes(folder / "open/foreign"), "old");
    EXPECT_EQ(filesIn(folder / "closed"), 2U);
}

TEST_F(LinuxFilesTest, TwoProcessesAppendAThousandLinesEachAndAllStayWhole)
{
    constexpr int kLines = 1000;
    putFile(folder / "log", "");
    const auto appendAll = [&](char letter) {
        for (int row = 0; row < kLines; ++row)
            files.append(z("log"), std::string(50 + row % 100, letter) + "\n");
        return 0;
    };
    ChildProcess first([&] { return appendAll('a'); });
    ChildProcess second([&] { return appendAll('b'); });
    EXPECT_EQ(first.result(), 0);
    EXPECT_EQ(second.result(), 0);
    const std::string bytes = fileBytes(folder / "log");
    std::size_t lengths[2] = {};
    std::size_t lines = 0;
    for (std::size_t at = 0, end = 0; (end = bytes.find('\n', at)) != std::string::npos;
         at = end + 1, ++lines) {
        const std::string line = bytes.substr(at, end - at);
        ASSERT_EQ(line.find_first_not_of(line[0]), std::string::npos) << "a torn line";
        lengths[line[0] - 'a'] += line.size();
    }
    EXPECT_EQ(lines, 2U * kLines);
    EXPECT_EQ(lengths[0], lengths[1]);
}

TEST_F(LinuxFilesTest, AWriterNeverShowsHalfAFile)
{
    putFile(folder / "file", std::string(200000, 'a'));
    ChildProcess writer([&] {
        for (int row = 0; row < 100; ++row)
            files.write(z("file"), std::string(200000, row % 2 == 0 ? 'b' : 'a'));
        return 0;
    });
    for (int row = 0; row < 300; ++row) {
        const std::string bytes = files.read(z("file"));
        ASSERT_EQ(bytes.size(), 200000U);
        ASSERT_EQ(bytes.find_first_not_of(bytes[0]), std::string::npos);
    }
    EXPECT_EQ(writer.result(), 0);
}

TEST_F(LinuxFilesTest, ANameThatIsTooLongIsAPathThatIsNotThere)
{
    const std::string name(300, 'n');
    EXPECT_FALSE(files.fileExists(z(name)));
    EXPECT_EQ(numberOf([&] { files.write(z(name), "x"); }), kPathNotFound);
    EXPECT_EQ(numberOf([&] { files.read(z(name)); }), kPathNotFound);
}

} // namespace
} // namespace zorvo
