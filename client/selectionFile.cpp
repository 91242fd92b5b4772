#include "client/selectionFile.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "client/fileText.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace zorvo {

namespace {

XmlDocument parsed(const std::string& sBytes)
{
    XmlDocument selection;
    const std::string sText = withoutBlankEnds(withoutByteOrderMark(sBytes));
    if (sText.size() >= 2 && sText.front() == '"' && sText.back() == '"')
        selection.loadXML(replaceAll(sText.substr(1, sText.size() - 2), "|", "\""));
    else
        selection.loadBytes(sText);
    return selection;
}

std::string textOf(const XmlNode& document, const char* child)
{
    const XmlNode found = document.childElement(child);
    return found ? found.text() : std::string();
}

} // namespace

std::vector<SelectedDocument> readSelectionFile(const std::string& sPath)
{
    const XmlDocument selection = parsed(platform().files->read(sPath));
    std::vector<SelectedDocument> documents;
    for (const XmlNode& node : selection.selectNodes("Documents/Document")) {
        documents.push_back({.sTitle = textOf(node, "Title"),
                             .sFileName = textOf(node, "FileName"),
                             .sType = textOf(node, "Type"),
                             .sYear = textOf(node, "Year")});
    }
    if (documents.empty())
        throw RunTimeError(kTypeMismatch, "The file holds no selected documents");
    return documents;
}

} // namespace zorvo
