#include "platform/linux/office/uno/unoText.h"

#include "platform/linux/office/fileAddress.h"

namespace zorvo {

rtl::OUString unoText(const std::string& text)
{
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

std::string plainText(const rtl::OUString& text)
{
    const rtl::OString bytes = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

rtl::OUString fileAddress(const std::string& path)
{
    return unoText(fileAddressOf(path));
}

std::string pathOfAddress(const rtl::OUString& address)
{
    const std::string text = plainText(address);
    const std::string scheme = "file://";
    if (!text.starts_with(scheme))
        return {};
    std::string path;
    for (std::size_t at = scheme.size(); at < text.size(); ++at) {
        const bool escaped = text[at] == '%' && at + 2 < text.size() &&
                             std::isxdigit(static_cast<unsigned char>(text[at + 1])) != 0 &&
                             std::isxdigit(static_cast<unsigned char>(text[at + 2])) != 0;
        if (!escaped) {
            path += text[at];
            continue;
        }
        path += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
        at += 2;
    }
    return path;
}

} // namespace zorvo
