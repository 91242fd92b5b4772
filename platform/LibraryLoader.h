#pragma once

#include <memory>
#include <string>

namespace zorvo {

/// A loaded library; unloaded when it is destroyed.
class LoadedLibrary {
public:
    virtual ~LoadedLibrary() = default;
    /// Address of an exported function, or null.
    virtual void* symbol(const std::string& name) = 0;
};

class LibraryLoader {
public:
    virtual ~LibraryLoader() = default;
    /// Loads the library file at a backslash path. Null when it can't be loaded.
    virtual std::unique_ptr<LoadedLibrary> load(const std::string& path) = 0;
};

} // namespace zorvo
