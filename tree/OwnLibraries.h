#pragma once

#include "tree/LibraryDocument.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zorvo {

/// Products' own catalogues while one piece of work looks up many nodes. The nodes of a product lie together,
/// so that the last catalogue is all that is worth keeping.
class OwnLibraries {
public:
    std::shared_ptr<const LibraryDocument> load(const std::string& sPath);
    /// For work that goes on for long: drops a catalogue whose file is no longer the one that was read.
    void dropIfChanged();

private:
    struct Stamp {
        std::int64_t nModified = 0;
        std::uint64_t nSize = 0;
        bool operator==(const Stamp&) const = default;
    };
    static Stamp stampOf(const std::string& sPath);

    std::string sPath_;
    Stamp stamp_;
    std::shared_ptr<const LibraryDocument> document_;
};

} // namespace zorvo
