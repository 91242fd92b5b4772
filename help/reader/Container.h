#pragma once

#include "help/reader/protocol.h"

#include <memory>
#include <string>

struct chmFile;

namespace zorvo::help {

/// Whether there is such a file and its headers hold what the library takes for granted: done, missing or
/// damaged. `file` is a native path.
ReaderState checkContainer(const std::string& file);

/// The files in a compiled help file.
class Container {
public:
    /// Null when the library can't open it. To be called for what checkContainer has found good.
    static std::unique_ptr<Container> open(const std::string& file);
    ~Container();
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    /// The file of that path, which begins with "/"; its case doesn't matter.
    ReaderState read(const std::string& path, std::string& bytes);
    /// The paths of all files that aren't the container's own, each followed by a line feed; at most 50,000.
    ReaderState list(std::string& paths);

private:
    explicit Container(chmFile* file)
        : file_(file)
    {
    }

    chmFile* file_;
};

} // namespace zorvo::help
