#include "tree/SelectedDocument.h"

#include "base/paths.h"
#include "tree/requiredText.h"

namespace zorvo {

void appendSelectedDocument(std::string& sSelection, const SelectedDocument& document)
{
    sSelection.append("<Document><Title><![CDATA[")
        .append(document.sTitle)
        .append("]]></Title><FileName><![CDATA[")
        .append(document.sFileName)
        .append("]]></FileName><Type><![CDATA[")
        .append(document.sType)
        .append("]]></Type><Year><![CDATA[")
        .append(document.sYear)
        .append("]]></Year></Document>");
}

SelectedDocument selectedDocument(XmlCursor element, const std::string& sTemplatePath,
                                  const std::string& sType, const std::string& sYear)
{
    SelectedDocument document{.sTitle = requiredText(element, "Name"),
                              .sFileName = withBackslash(sTemplatePath),
                              .sType = sType,
                              .sYear = sYear};
    document.sFileName += requiredText(element, "File");
    return document;
}

} // namespace zorvo
