#pragma once

#include <rtl/ustring.hxx>
#include <string>

namespace zorvo {

/// UTF-8 to and from the office's own text.
rtl::OUString unoText(const std::string& text);
std::string plainText(const rtl::OUString& text);

/// Native path to and from a file address. An address that is no file's gives the empty path.
rtl::OUString fileAddress(const std::string& path);
std::string pathOfAddress(const rtl::OUString& address);

} // namespace zorvo
