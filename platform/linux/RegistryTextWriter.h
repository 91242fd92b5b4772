#pragma once

#include "platform/linux/RegistryChange.h"

#include <string>

namespace zorvo {

/// Builds a text of the registry editor's format (RegistryText.h) in its 5.00 form, UTF-8 with single line
/// feeds.
class RegistryTextWriter {
public:
    RegistryTextWriter();

    void key(const std::string& sFullKey);
    void value(const RegistryValue& value);

    const std::string& text() const { return text_; }
    /// The form that other systems expect in a file: UTF-16 little endian with a byte order mark, CR LF.
    std::string utf16() const;

private:
    void hex(const std::string& prefix, const std::string& data);

    std::string text_;
};

} // namespace zorvo
