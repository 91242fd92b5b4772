#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

struct UConverter;

namespace zorvo {

/// A character set of formatted files: what its bytes from 0x80 on mean. Below they are ASCII.
class CodePage {
public:
    /// The page of that number: 1250, 932, 10000 for the Macintosh, 65001 for UTF-8 ... One that nobody knows
    /// is 1252. It lives for ever; any thread may use it.
    static const CodePage& ofNumber(int number);
    /// The page of fonts whose bytes are pictures; no byte is a character.
    static const CodePage& ofSymbols();
    /// The number for a font's character set, 0 when that leaves it to the file.
    static int numberOfCharset(int charset);

    explicit CodePage(int number);
    ~CodePage();
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;

    /// Bytes of a character that begins with this one: 1 to 4, 0 for a byte that begins none.
    int lengthFrom(unsigned char first) const;

    /// Adds the character of so many bytes, as `lengthFrom` has told; U+FFFD when it is none.
    void append(std::string& text, const unsigned char* bytes, int length) const;

private:
    enum class Kind { single, doubled, utf8, none };

    CodePage() = default;
    void readTable();

    Kind kind_ = Kind::none;
    int number_ = 0;
    std::array<char16_t, 128> table_{}; // of a single-byte page
    mutable std::mutex mutex_;          // a converter serves one thread at a time
    struct Close {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Close> converter_;
};

} // namespace zorvo
