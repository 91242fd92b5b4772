#pragma once

#include "base/XmlCursor.h"

#include <string>

/// What a catalogue's element must have: without it, RunTimeError 91.
namespace zorvo {

/// The child element's text, trimmed.
std::string requiredText(XmlCursor element, const char* child);
std::string requiredAttribute(XmlCursor element, const char* name);

} // namespace zorvo
