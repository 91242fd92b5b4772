#pragma once

#include "platform/Launcher.h"
#include "platform/LibraryLoader.h"
#include "platform/Machine.h"
#include "platform/SpecialFolders.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The small ports, each with the answers that a test gives them and a record of what was asked.
namespace zorvo {

class FakeSpecialFolders : public SpecialFolders {
public:
    std::string program() override { return sProgram; }
    std::string documents() override { return sDocuments; }
    /// Throws 75 while `sTemporary` is empty.
    std::string temporary() override;
    std::string special(int id) override;
    std::string current() override { return sCurrent; }

    std::string sProgram = "C:\\Zorvo";
    std::string sDocuments = "C:\\Users\\Test\\Documents";
    std::string sCurrent = "C:\\Windows\\System32";
    std::string sTemporary = "C:\\Users\\Test\\Temp\\";
    std::map<int, std::string> specials = {
        {kDocuments, "C:\\Users\\Test\\Documents"},
        {kNetworkNeighbourhood, "C:\\Users\\Test\\NetHood"},
        {kInternetCache, "C:\\Users\\Test\\Internet Cache"},
    };
};

class RecordingLauncher : public Launcher {
public:
    struct Opened {
        std::string sTarget;
        std::string sParameters;
        std::string sDirectory;
        Show show = Show::normal;
        std::uintptr_t ownerWindow = 0;
    };

    int open(const std::string& target, const std::string& parameters, const std::string& directory,
             Show show, std::uintptr_t ownerWindow = 0) override;
    void start(const std::string& commandLine) override;

    std::vector<Opened> opened;
    std::vector<std::string> started;

    int nOpenResult = 42;
    /// While it isn't 0, `open` throws it.
    int nFailOpen = 0;
    /// While it isn't 0, `start` throws it.
    int nFailStart = 0;
};

class FakeLibraryLoader : public LibraryLoader {
public:
    /// Exported functions by exact name. A path that was never given can't be loaded; paths match without
    /// regard to case.
    using Symbols = std::map<std::string, void*>;
    void addLibrary(const std::string& path, Symbols symbols);

    std::unique_ptr<LoadedLibrary> load(const std::string& path) override;

    std::vector<std::string> loaded; // every path asked for, in order
    int nUnloads = 0;

private:
    std::map<std::string, Symbols> libraries_;
};

class FakeMachine : public Machine {
public:
    LocalTime now() override { return time; }
    /// "3/5/2024" and "14:07:09" for the time below.
    std::string shortDate(const LocalTime& when) override;
    std::string timeOfDay(const LocalTime& when) override;
    /// "Tuesday, Mar 5 2024" for the time below; a test that sets another time sets this too.
    std::string dateInWords(const LocalTime& /*when*/) override { return sDateInWords; }
    bool isRemoteSession() override { return bRemoteSession; }
    /// Returns at once.
    void sleep(int milliseconds) override { sleeps.push_back(milliseconds); }
    double systemVersion() override { return nSystemVersion; }

    LocalTime time{.year = 2024, .month = 3, .day = 5, .hour = 14, .minute = 7, .second = 9};
    std::string sDateInWords = "Tuesday, Mar 5 2024";
    bool bRemoteSession = false;
    double nSystemVersion = 5.1;
    std::vector<int> sleeps;
};

} // namespace zorvo
