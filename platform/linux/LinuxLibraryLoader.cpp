#include "platform/linux/LinuxLibraryLoader.h"

#include <dlfcn.h>

namespace zorvo {

namespace {

class LinuxLibrary : public LoadedLibrary {
public:
    explicit LinuxLibrary(void* handle)
        : handle_(handle)
    {
    }
    ~LinuxLibrary() override { dlclose(handle_); }
    LinuxLibrary(const LinuxLibrary&) = delete;
    LinuxLibrary& operator=(const LinuxLibrary&) = delete;

    void* symbol(const std::string& name) override { return dlsym(handle_, name.c_str()); }

private:
    void* handle_;
};

} // namespace

LinuxLibraryLoader::LinuxLibraryLoader(DosPaths paths)
    : paths_(std::move(paths))
{
}

std::unique_ptr<LoadedLibrary> LinuxLibraryLoader::load(const std::string& path)
{
    const auto native = paths_.resolve(path); // always with a slash, so that no other folder is searched
    void* handle = native ? dlopen(native->c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
    return handle != nullptr ? std::make_unique<LinuxLibrary>(handle) : nullptr;
}

} // namespace zorvo
