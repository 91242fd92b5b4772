#include "tree/requiredText.h"

#include "base/RunTimeError.h"

namespace zorvo {

std::string requiredText(XmlCursor element, const char* child)
{
    const XmlCursor found = element.child(child);
    if (!found)
        throw RunTimeError(kObjectNotSet);
    return found.trimmedText();
}

std::string requiredAttribute(XmlCursor element, const char* name)
{
    auto sValue = element.attribute(name);
    if (!sValue)
        throw RunTimeError(kObjectNotSet);
    return *std::move(sValue);
}

} // namespace zorvo
