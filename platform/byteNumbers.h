#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers and texts as few bytes, for what is kept on a disk.
namespace zorvo {

inline void appendNumber(std::string& bytes, std::uint64_t number)
{
    for (; number >= 0x80; number >>= 7U)
        bytes.push_back(static_cast<char>(number | 0x80U));
    bytes.push_back(static_cast<char>(number));
}

inline void appendText(std::string& bytes, std::string_view text)
{
    appendNumber(bytes, text.size());
    bytes.append(text);
}

/// Reads what was appended. Past the end, and from then on, everything is 0 and empty.
class ByteCursor {
public:
    explicit ByteCursor(std::string_view bytes)
        : at_(bytes.data())
        , end_(bytes.data() + bytes.size())
    {
    }

    std::uint64_t number()
    {
        std::uint64_t result = 0;
        for (unsigned shift = 0; at_ != end_ && shift < 64; shift += 7) {
            const auto byte = static_cast<unsigned char>(*at_++);
            result |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            if (byte < 0x80)
                return result;
        }
        bFailed_ = true;
        at_ = end_;
        return 0;
    }

    std::string_view bytes(std::uint64_t count)
    {
        if (count > static_cast<std::uint64_t>(end_ - at_)) {
            bFailed_ = true;
            at_ = end_;
            return {};
        }
        const std::string_view result(at_, static_cast<std::size_t>(count));
        at_ += count;
        return result;
    }

    std::string_view text() { return bytes(number()); }

    bool atEnd() const { return at_ == end_; }
    bool hasFailed() const { return bFailed_; }

private:
    const char* at_;
    const char* end_;
    bool bFailed_ = false;
};

} // namespace zorvo
