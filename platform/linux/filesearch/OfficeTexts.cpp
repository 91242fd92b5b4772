#include "platform/linux/filesearch/OfficeTexts.h"

#include "base/RunTimeError.h"
#include "platform/linux/nativeFiles.h"
#include "platform/linux/office/OfficeInstallation.h"
#include "platform/linux/office/PrivateProfile.h"
#include "platform/linux/office/childProcess.h"
#include "platform/linux/office/fileAddress.h"
#include "platform/linux/office/officeEnvironment.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <thread>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kPause{20};
constexpr rlim_t kMostMemory = rlim_t(4) << 30U;
constexpr rlim_t kLargestFile = rlim_t(1) << 30U;
/// Files for one process, so that it doesn't grow old.
constexpr std::size_t kFilesOfRun = 200;
constexpr int kStartAgain = 81;
constexpr int kNotRunnable = 127;

/// The office takes the texts of some files out, one after the other.
class ConverterProcess {
public:
    ConverterProcess(const OfficeInstallation& office, const PrivateProfile& profile,
                     std::vector<std::string> arguments)
    {
        std::vector<std::string> all = {office.sProgramFolder + "/soffice.bin",
                                        "--headless",
                                        "--invisible",
                                        "--norestore",
                                        "--nologo",
                                        "--nodefault",
                                        "-env:UserInstallation=" + fileAddressOf(profile.folder())};
        all.insert(all.end(), arguments.begin(), arguments.end());
        process_ = startChild(std::move(all), officeEnvironment(profile), ChildLife::withStarter);
        limit(RLIMIT_AS, kMostMemory);
        limit(RLIMIT_FSIZE, kLargestFile);
    }
    ~ConverterProcess() { kill(); }
    ConverterProcess(const ConverterProcess&) = delete;
    ConverterProcess& operator=(const ConverterProcess&) = delete;

    /// The exit code once it has ended.
    std::optional<int> exitCode()
    {
        int status = 0;
        if (!exitCode_ && waitpid(process_, &status, WNOHANG) == process_)
            exitCode_ = exitCodeOf(status);
        return exitCode_;
    }

    void kill()
    {
        if (exitCode())
            return;
        ::kill(process_, SIGKILL);
        int status = 0;
        while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
        exitCode_ = exitCodeOf(status);
    }

private:
    void limit(__rlimit_resource resource, rlim_t most) const
    {
        const rlimit limits{most, most};
        prlimit(process_, resource, &limits, nullptr);
    }

    pid_t process_ = 0;
    std::optional<int> exitCode_;
};

/// The files wait under numbers as names: nothing in their own names, nor another file's of the same name,
/// can be in the way, and the office puts nothing beside them.
class Conversion {
public:
    Conversion(const std::vector<std::string>& files, const TakeOfficeText& take,
               const std::function<bool()>& isCancelled, std::chrono::milliseconds patience)
        : files_(files)
        , take_(take)
        , isCancelled_(isCancelled)
        , patience_(patience)
        , office_(findOffice(OfficeDocumentKind::text))
        , profile_(office_)
        , sIn_(profile_.folder() + "/in")
        , sOut_(profile_.folder() + "/out")
    {
        makeFolders(sIn_, 0700);
        makeFolders(sOut_, 0700);
    }

    void run()
    {
        while (nDone_ < files_.size() && !isCancelled_())
            runOnce();
    }

private:
    void runOnce()
    {
        const std::size_t nEnd = std::min(nDone_ + kFilesOfRun, files_.size());
        std::vector<std::string> arguments = {"--convert-to", "rtf:Rich Text Format", "--outdir", sOut_};
        for (std::size_t i = nDone_; i < nEnd; ++i)
            arguments.push_back(linkTo(i));
        ConverterProcess process(office_, profile_, std::move(arguments));
        auto deadline = std::chrono::steady_clock::now() + patience_;
        while (!process.exitCode() && !isCancelled_() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(kPause);
            if (takeFinished(nEnd))
                deadline = std::chrono::steady_clock::now() + patience_;
        }
        if (isCancelled_())
            return;
        process.kill();
        takeRest(nEnd, *process.exitCode());
    }

    /// One past the last file whose text is there, perhaps half written.
    std::size_t endOfTexts(std::size_t nEnd) const
    {
        std::error_code ignored;
        while (nEnd > nDone_ && !fs::exists(textFile(nEnd - 1), ignored))
            --nEnd;
        return nEnd;
    }

    /// What stands in front of a text that is there is finished, with or without a text.
    bool takeFinished(std::size_t nEnd)
    {
        const std::size_t nLast = endOfTexts(nEnd);
        if (nLast <= nDone_ + 1)
            return false;
        takeUpTo(nLast - 1);
        return true;
    }

    void takeRest(std::size_t nEnd, int nExitCode)
    {
        if (nExitCode == kNotRunnable)
            throw RunTimeError(kCannotCreateObject, "LibreOffice can't be started.");
        if (nExitCode == 0) {
            takeUpTo(nEnd);
            return;
        }
        if (nExitCode == kStartAgain && ++nStarts_ < kMostStarts)
            return;
        takeFinished(nEnd);
        if (nDone_ < endOfTexts(nEnd) && isWholeRichText(textFile(nDone_)))
            takeUpTo(nDone_ + 1);
        // It has ended, or was ended, over the next one.
        if (nDone_ < nEnd)
            takeUpTo(nDone_ + 1, false);
        if (++nFailures_ > kMostFailures)
            throw RunTimeError(kCannotCreateObject, "LibreOffice fails over and over.");
    }

    static bool isWholeRichText(const std::string& sFile)
    {
        std::ifstream file(sFile, std::ios::binary | std::ios::ate);
        const std::streamoff nSize = file.tellg();
        constexpr std::streamoff kTail = 16;
        file.seekg(nSize > kTail ? nSize - kTail : 0);
        const std::string sTail{std::istreambuf_iterator<char>(file), {}};
        const auto nLast = sTail.find_last_not_of(std::string_view("\r\n\0", 3));
        return nLast != std::string::npos && sTail[nLast] == '}';
    }

    void takeUpTo(std::size_t nEnd, bool bComplete = true)
    {
        for (; nDone_ < nEnd && !isCancelled_(); ++nDone_) {
            const std::string sText = textFile(nDone_);
            std::error_code ignored;
            if (bComplete && fs::exists(sText, ignored))
                take_(nDone_, sText);
            else
                take_(nDone_, std::nullopt);
            fs::remove(sText, ignored);
        }
    }

    std::string linkTo(std::size_t i) const
    {
        std::string sLink = sIn_ + '/' + std::to_string(i) + fs::path(files_[i]).extension().string();
        std::error_code ignored;
        fs::remove(sLink, ignored);
        fs::remove(textFile(i), ignored); // half of it, perhaps
        fs::create_symlink(files_[i], sLink, ignored);
        return sLink;
    }

    std::string textFile(std::size_t i) const { return sOut_ + '/' + std::to_string(i) + ".rtf"; }

    static constexpr int kMostStarts = 3;
    static constexpr int kMostFailures = 20;

    const std::vector<std::string>& files_;
    const TakeOfficeText& take_;
    const std::function<bool()>& isCancelled_;
    std::chrono::milliseconds patience_;
    OfficeInstallation office_;
    PrivateProfile profile_;
    std::string sIn_;
    std::string sOut_;
    std::size_t nDone_ = 0;
    int nStarts_ = 0;
    int nFailures_ = 0;
};

} // namespace

void takeOfficeTexts(const std::vector<std::string>& files, const TakeOfficeText& take,
                     const std::function<bool()>& isCancelled, std::chrono::milliseconds patience)
{
    Conversion(files, take, isCancelled, patience).run();
}

} // namespace zorvo
