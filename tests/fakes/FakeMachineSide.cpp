#include "tests/fakes/FakeMachineSide.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <cstdio>

namespace zorvo {

std::string FakeSpecialFolders::temporary()
{
    if (sTemporary.empty())
        throw RunTimeError(kPathOrFileAccess);
    return sTemporary;
}

std::string FakeSpecialFolders::special(int id)
{
    const auto found = specials.find(id);
    return found == specials.end() ? std::string() : found->second;
}

int RecordingLauncher::open(const std::string& target, const std::string& parameters,
                            const std::string& directory, Show show, std::uintptr_t ownerWindow)
{
    if (nFailOpen != 0)
        throw RunTimeError(nFailOpen);
    opened.push_back({target, parameters, directory, show, ownerWindow});
    return nOpenResult;
}

void RecordingLauncher::start(const std::string& commandLine)
{
    if (nFailStart != 0)
        throw RunTimeError(nFailStart);
    started.push_back(commandLine);
}

namespace {

class FakeLibrary : public LoadedLibrary {
public:
    FakeLibrary(FakeLibraryLoader::Symbols symbols, int& nUnloads)
        : symbols_(std::move(symbols))
        , nUnloads_(nUnloads)
    {
    }
    ~FakeLibrary() override { ++nUnloads_; }
    FakeLibrary(const FakeLibrary&) = delete;
    FakeLibrary& operator=(const FakeLibrary&) = delete;

    void* symbol(const std::string& name) override
    {
        const auto found = symbols_.find(name);
        return found == symbols_.end() ? nullptr : found->second;
    }

private:
    FakeLibraryLoader::Symbols symbols_;
    int& nUnloads_;
};

} // namespace

void FakeLibraryLoader::addLibrary(const std::string& path, Symbols symbols)
{
    libraries_[upperCase(path)] = std::move(symbols);
}

std::unique_ptr<LoadedLibrary> FakeLibraryLoader::load(const std::string& path)
{
    loaded.push_back(path);
    const auto found = libraries_.find(upperCase(path));
    if (found == libraries_.end())
        return nullptr;
    return std::make_unique<FakeLibrary>(found->second, nUnloads);
}

std::string FakeMachine::shortDate(const LocalTime& when)
{
    char text[48];
    std::snprintf(text, sizeof text, "%d/%d/%d", when.month, when.day, when.year);
    return text;
}

std::string FakeMachine::timeOfDay(const LocalTime& when)
{
    char text[48];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", when.hour, when.minute, when.second);
    return text;
}

} // namespace zorvo
