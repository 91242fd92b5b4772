#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zorvo::help {

/// The number at that place of a file's bytes; nothing where the bytes end before it does.
inline std::optional<std::uint32_t> u32At(std::string_view bytes, std::size_t at)
{
    if (at > bytes.size() || bytes.size() - at < 4)
        return {};
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

inline std::optional<std::uint16_t> u16At(std::string_view bytes, std::size_t at)
{
    if (at > bytes.size() || bytes.size() - at < 2)
        return {};
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<std::uint16_t>(low | high << 8);
}

inline std::optional<std::uint64_t> u64At(std::string_view bytes, std::size_t at)
{
    const auto low = u32At(bytes, at);
    const auto high = low ? u32At(bytes, at + 4) : low;
    if (!high)
        return {};
    return std::uint64_t{*high} << 32U | *low;
}

} // namespace zorvo::help
