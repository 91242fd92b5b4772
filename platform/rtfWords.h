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

/// Null for a word that makes no difference to the text. `first` are the first eight letters of the name, or
/// all of fewer with zeroes behind them, the first one lowest.
const RtfWord* findRtfWord(std::string_view name, std::uint64_t first);

} // namespace zorvo
