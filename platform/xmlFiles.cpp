#include "platform/xmlFiles.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace zorvo {

XmlDocument loadXmlFile(const std::string& sPath)
{
    XmlDocument document;
    try {
        document.loadBytes(platform().files->read(sPath));
    } catch (const RunTimeError&) { // an unreadable file loads as nothing
    }
    return document;
}

} // namespace zorvo
