#include "tree/OwnLibraries.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/xmlFiles.h"

namespace zorvo {

std::shared_ptr<const LibraryDocument> OwnLibraries::load(const std::string& sPath)
{
    if (!document_ || sPath != sPath_) {
        stamp_ = stampOf(sPath);
        document_ = std::make_shared<LibraryDocument>(loadXmlFile(sPath));
        sPath_ = sPath;
    }
    return document_;
}

void OwnLibraries::dropIfChanged()
{
    if (document_ && stampOf(sPath_) != stamp_)
        document_.reset();
}

/// All 0 for a file that isn't there.
OwnLibraries::Stamp OwnLibraries::stampOf(const std::string& sPath)
{
    try {
        Files& files = *platform().files;
        return {files.lastModified(sPath), files.size(sPath)};
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace zorvo
