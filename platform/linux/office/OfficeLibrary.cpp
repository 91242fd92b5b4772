#include "platform/linux/office/OfficeLibrary.h"

#include "base/RunTimeError.h"

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>
#include <mutex>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
/// The office's libraries keep some of their memory to the end by design.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libuno_\n";
}
#endif

namespace zorvo {

namespace {

namespace fs = std::filesystem;

constexpr const char* kLibrary = "libzorvo-office.so";

[[noreturn]] void throwNotLoaded()
{
    const char* reason = dlerror();
    throw RunTimeError(kCannotCreateObject, std::string("The connection to LibreOffice can't be loaded: ") +
                                                (reason != nullptr ? reason : kLibrary));
}

std::string libraryFile()
{
    std::error_code ignored;
    const fs::path programs = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    const std::vector<fs::path> folders = {programs / "../lib", programs / ".." / ZORVO_INSTALLED_LIB_FOLDER,
                                           programs / "../lib/zorvobrendle", ZORVO_BUILD_LIB_DIR};
    for (const fs::path& folder : folders)
        if (fs::exists(folder / kLibrary, ignored))
            return (folder / kLibrary).string();
    return kLibrary;
}

/// The office's libraries come from the office that will run, wherever it lies: with these in place the
/// loader looks for no others.
void loadOfficeLibraries(const std::string& programFolder)
{
    for (const char* name :
         {"libuno_sal.so.3", "libuno_salhelpergcc3.so.3", "libuno_cppu.so.3", "libuno_cppuhelpergcc3.so.3"})
        if (dlopen((programFolder + '/' + name).c_str(), RTLD_NOW | RTLD_GLOBAL) == nullptr)
            throwNotLoaded();
}

const OfficeConnector* load(const std::string& programFolder)
{
    loadOfficeLibraries(programFolder);
    void* const library = dlopen(libraryFile().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throwNotLoaded();
    void* const entry = dlsym(library, "zorvoOfficeConnector");
    if (entry == nullptr)
        throwNotLoaded();
    return reinterpret_cast<const OfficeConnector* (*)()>(entry)();
}

struct Loaded {
    std::mutex mutex;
    const OfficeConnector* connector = nullptr;
};

Loaded& loaded()
{
    static auto* const instance = new Loaded; // needed until the very end of the process
    return *instance;
}

} // namespace

const OfficeConnector& officeConnector(const std::string& programFolder)
{
    const std::lock_guard lock(loaded().mutex);
    if (loaded().connector == nullptr)
        loaded().connector = load(programFolder);
    return *loaded().connector;
}

void shutDownOfficeLibrary()
{
    const std::lock_guard lock(loaded().mutex);
    if (loaded().connector != nullptr)
        loaded().connector->shutDown();
}

} // namespace zorvo
