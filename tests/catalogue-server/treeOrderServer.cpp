#include <cstdint>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kDocument =
    "<ZorvoTree Version=\"77\"><ProductTreeGroup TreeTitle=\"Served\" TreeTitleShort=\"S\" "
    "IconLarge=\"l.ico\" "
    "IconSmall=\"s.ico\"><Acronymn>A</Acronymn></ProductTreeGroup></ZorvoTree>";

} // namespace

extern "C" {

std::int32_t GetXmlLength()
{
    return static_cast<std::int32_t>(kDocument.size());
}

std::int32_t GetXml(char* buffer)
{
    std::memcpy(buffer, kDocument.data(), kDocument.size());
    return 1;
}
}
