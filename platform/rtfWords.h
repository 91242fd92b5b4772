#pragma once

#include <cstdint>
#include <string_view>

/// The control words of rich text that bear on its text.
namespace zorvo {

enum class RtfAction : std::uint8_t {
    character,  // stands for `value`
    paragraph,  // ends a paragraph, a cell ...
    skipGroup,  // what follows in the group is no text
    container,  // the group holds text in groups of its own
    partedText, // the text of the group stands apart from that around it
    fontTable,
    hidden,
    deleted,
    plain,
    font,
    defaultFont,
    fontCharset,
    fontCodePage,
    codePage,      // the number follows
    fixedCodePage, // `value` is the number
    fallbackLength,
    unicode,
    binary,
};

struct RtfWord {
    std::string_view name;
    RtfAction action;
    std::uint32_t value = 0;
};

/// The hash of a name is made letter by letter.
constexpr std::uint64_t kRtfHashStart = 0xCBF29CE484222325U;
constexpr std::uint64_t addToRtfHash(std::uint64_t hash, char letter)
{
    return (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3U;
}

/// Null for a word that makes no difference to the text.
const RtfWord* findRtfWord(std::string_view name, std::uint64_t hash);

} // namespace zorvo
