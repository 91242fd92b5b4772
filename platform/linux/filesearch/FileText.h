#pragma once

#include "platform/RtfReader.h"

#include <functional>
#include <string>
#include <string_view>

namespace zorvo {

/// What the bytes of a plain text are.
enum class PlainSet { utf8, western, utf16Little, utf16Big };

/// Takes the text out of files, whatever their names say they are: rich text, or plain text in UTF-8, UTF-16
/// or windows-1252.
class FileText {
public:
    enum class Kind {
        text,
        officeFormat, // only the office suite reads it
        noText        // bytes that are no text
    };

    /// Is given the text in pieces, as UTF-8.
    using TakeText = std::function<void(std::string_view)>;
    /// True ends the reading early.
    using IsEnough = std::function<bool()>;

    explicit FileText(TakeText takeText);

    /// Reads an open file from its beginning. Throws RunTimeError 75 when it can't be read.
    Kind read(int descriptor, const IsEnough& isEnough);

private:
    /// Fills the buffer behind what is kept; gives the bytes held. Fewer than the buffer takes: the file has
    /// ended.
    std::size_t fill(int descriptor, std::size_t nKept);
    std::size_t keepFrom(std::size_t nUsed);
    void readRtf(int descriptor, std::size_t nFirst, const IsEnough& isEnough);
    void readPlain(int descriptor, PlainSet set, std::size_t nFirst, const IsEnough& isEnough);

    TakeText takeText_;
    RtfReader rtf_;
    std::string buffer_;
};

} // namespace zorvo
