#pragma once

#include "platform/LibraryLoader.h"
#include "platform/linux/DosPaths.h"

namespace zorvo {

/// The port on the system's loader. A library is the file that the path names, whatever its extension.
class LinuxLibraryLoader : public LibraryLoader {
public:
    explicit LinuxLibraryLoader(DosPaths paths);

    std::unique_ptr<LoadedLibrary> load(const std::string& path) override;

private:
    DosPaths paths_;
};

} // namespace zorvo
