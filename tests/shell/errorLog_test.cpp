#include "shell/errorLog.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "platform/linux/LinuxFiles.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zorvo {
namespace {

constexpr const char* kLogFile = "C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err";

class ErrorLog : public testing::Test {
protected:
    ErrorLog()
    {
        sessionState() = SessionState();
        gnErrNumber = 0;
        gsErrDescription.clear();
    }

    const FakePlatform fakes;
};

TEST_F(ErrorLog, ALineIsCompanyDateTimeAndText)
{
    WriteErrorLine("TemplateTree.ZorvoQuickTour Error 5 - Invalid procedure call");
    EXPECT_EQ(fakes.files->content(kLogFile),
              "Zorvo 3/5/2024 14:07:09 TemplateTree.ZorvoQuickTour Error 5 - Invalid procedure call\r\n");
}

TEST_F(ErrorLog, ALineNamesTheRunningCompany)
{
    StoreCompanyID("OTR");
    WriteErrorLine("Text about Zorvo");
    EXPECT_EQ(fakes.files->content(kLogFile), "OTR 3/5/2024 14:07:09 Text about Zorvo\r\n")
        << "the log keeps the house word";
}

TEST_F(ErrorLog, AnEmptyTextStillHasItsStamp)
{
    WriteErrorLine("");
    EXPECT_EQ(fakes.files->content(kLogFile), "Zorvo 3/5/2024 14:07:09 \r\n");
}

TEST_F(ErrorLog, LinesAreAddedAndNeverTrimmed)
{
    fakes.files->addFile(kLogFile, "old line\r\n");
    WriteErrorLine("a");
    WriteErrorLine("b");
    EXPECT_EQ(fakes.files->content(kLogFile),
              "old line\r\nZorvo 3/5/2024 14:07:09 a\r\nZorvo 3/5/2024 14:07:09 b\r\n");
}

TEST_F(ErrorLog, AMissingFolderIsMadeByTheFirstLine)
{
    ASSERT_FALSE(fakes.files->folderExists("C:\\Users\\Test\\Documents\\Halvern House"));
    WriteErrorLine("a");
    EXPECT_TRUE(fakes.files->folderExists("C:\\Users\\Test\\Documents\\Halvern House\\Brendle"));
    EXPECT_TRUE(fakes.files->fileExists(kLogFile));
}

TEST_F(ErrorLog, ALineIsOneAppendToThePathWithTheDoubledSeparator)
{
    WriteErrorLine("a");
    std::vector<std::string> appends;
    for (const FakeFiles::Call& call : fakes.files->calls) {
        if (call.operation == FakeFiles::Operation::append)
            appends.push_back(call.sPath);
    }
    EXPECT_EQ(appends,
              std::vector<std::string>{"C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\\\Brendle.err"});
}

TEST_F(ErrorLog, ThePendingFailureSurvives)
{
    gnErrNumber = 9;
    fakes.files->failOn(FakeFiles::Operation::append, "", kDiskFull);
    WriteErrorLine("a");
    EXPECT_EQ(gnErrNumber, 9);
}

class UnwritableLog : public ErrorLog, public testing::WithParamInterface<int> {};

TEST_P(UnwritableLog, IsIgnored)
{
    fakes.files->failOn(FakeFiles::Operation::append, "", GetParam());
    EXPECT_NO_THROW(WriteErrorLine("a"));
    EXPECT_EQ(fakes.files->content(kLogFile), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Failures, UnwritableLog,
                         testing::Values(kDiskFull, kPermissionDenied, kPathOrFileAccess, kPathNotFound));

TEST_F(ErrorLog, AFolderThatCannotBeMadeIsIgnored)
{
    fakes.files->failOn(FakeFiles::Operation::makeFolder, "", kPermissionDenied);
    EXPECT_NO_THROW(WriteErrorLine("a"));
    EXPECT_EQ(fakes.files->content(kLogFile), std::nullopt);
}

TEST_F(ErrorLog, WithoutADocumentsFolderNothingIsWritten)
{
    fakes.folders->sDocuments.clear();
    WriteErrorLine("a");
    EXPECT_TRUE(fakes.files->calls.empty());
}

/// The log on a real disk, in a folder that goes with the test.
class ErrorLogOnDisk : public ErrorLog {
protected:
    ErrorLogOnDisk()
    {
        std::string sTemplate = (std::filesystem::temp_directory_path() / "error-log-XXXXXX").string();
        root_ = mkdtemp(sTemplate.data());
        platform().files = std::make_shared<LinuxFiles>(DosPaths(root_.string()));
        fakes.folders->sDocuments = platform().files->fromNative(root_.string());
    }
    ~ErrorLogOnDisk() override { std::filesystem::remove_all(root_); }

    std::filesystem::path logPath() const { return root_ / "Halvern House" / "Brendle" / "Brendle.err"; }

    std::string logText() const
    {
        std::ifstream file(logPath(), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    std::filesystem::path root_;
};

TEST_F(ErrorLogOnDisk, TextStaysInTheLocalesCharacterSet)
{
    WriteErrorLine("Prüfung – fin");
    EXPECT_EQ(logText(), "Zorvo 3/5/2024 14:07:09 Prüfung – fin\r\n");
}

TEST_F(ErrorLogOnDisk, TwoProcessesOfAThousandLinesGiveTwoThousandWholeLines)
{
    constexpr int kLines = 1000;
    const std::string sText(200, 'x');
    std::vector<pid_t> writers;
    for (const char* sWho : {"first", "second"}) {
        const pid_t pid = fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            for (int i = 0; i < kLines; ++i)
                WriteErrorLine(std::string(sWho) + " " + std::to_string(i) + " " + sText);
            _exit(0);
        }
        writers.push_back(pid);
    }
    for (const pid_t pid : writers) {
        int nStatus = -1;
        ASSERT_EQ(waitpid(pid, &nStatus, 0), pid);
        EXPECT_EQ(nStatus, 0);
    }

    std::vector<std::string> lines;
    std::istringstream log(logText());
    for (std::string sLine; std::getline(log, sLine);)
        lines.push_back(sLine);
    std::vector<std::string> expected;
    for (const char* sWho : {"first", "second"}) {
        for (int i = 0; i < kLines; ++i)
            expected.push_back(std::string("Zorvo 3/5/2024 14:07:09 ") + sWho + " " + std::to_string(i) +
                               " " + sText + "\r");
    }
    std::sort(lines.begin(), lines.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(lines.size(), expected.size());
    EXPECT_TRUE(lines == expected);
}

TEST_F(ErrorLogOnDisk, ALogThatIsAFolderIsIgnored)
{
    std::filesystem::create_directories(logPath());
    EXPECT_NO_THROW(WriteErrorLine("a"));
    EXPECT_TRUE(std::filesystem::is_directory(logPath()));
}

TEST_F(ErrorLogOnDisk, AReadOnlyLogStaysAsItIs)
{
    WriteErrorLine("a");
    const std::string sBefore = logText();
    std::filesystem::permissions(logPath(), std::filesystem::perms::owner_read);
    EXPECT_NO_THROW(WriteErrorLine("b"));
    EXPECT_EQ(logText(), sBefore);
}

/// Lets no file grow past a size, as a full disk does.
class FullDisk {
public:
    explicit FullDisk(rlim_t nBytes)
        : signalBefore_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {nBytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signalBefore_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*signalBefore_)(int);
};

TEST_F(ErrorLogOnDisk, AFullDiskTakesNoHalfALine)
{
    WriteErrorLine("a");
    const std::string sBefore = logText();
    {
        const FullDisk full(sBefore.size() + 10);
        EXPECT_NO_THROW(WriteErrorLine("a line that does not fit"));
    }
    EXPECT_EQ(logText(), sBefore);
}

} // namespace
} // namespace zorvo
