#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The words of a text, in upper case, as the search of files compares them.
namespace zorvo {

/// What a character does to the word that it stands in.
enum class WordRole : std::uint8_t {
    parts, // ends it
    belongs,
    ignored // an optional hyphen or the like: the word goes on without it
};

WordRole wordRole(char32_t character);

/// The bytes of a text in upper case as far as they are ASCII, and what each is, so that the bounds of words
/// are found eight bytes at a time.
class WordBounds {
public:
    void prepare(std::string_view text);

    std::string_view upper() const { return {upper_.data(), nLength_}; }
    /// The first byte from `at` on that doesn't part words.
    std::size_t endOfMarks(std::size_t at) const { return firstOf(at, kNone, kWord | kBeyondAscii); }
    /// The first byte from `at` on that isn't an ASCII letter or digit.
    std::size_t endOfWord(std::size_t at) const { return firstOf(at, kWord, kWord); }
    bool isBeyondAscii(std::size_t at) const { return kinds_[at] == kBeyondAscii; }

private:
    static constexpr std::uint8_t kNone = 0;
    static constexpr std::uint8_t kWord = 0x80;
    static constexpr std::uint8_t kBeyondAscii = 0x40;

    /// The first byte from `at` on whose bits of `wanted` differ from `usual`, at most the end.
    std::size_t firstOf(std::size_t at, std::uint8_t usual, std::uint8_t wanted) const
    {
        constexpr std::uint64_t kEach = 0x0101010101010101U;
        for (; at < nLength_; at += sizeof(std::uint64_t)) {
            std::uint64_t kinds = 0;
            std::memcpy(&kinds, kinds_.data() + at, sizeof kinds);
            const std::uint64_t others = (kinds & kEach * wanted) ^ kEach * usual;
            if (others != 0)
                return std::min(at + static_cast<std::size_t>(std::countr_zero(others)) / 8, nLength_);
        }
        return nLength_;
    }
    static_assert(std::endian::native == std::endian::little);

    std::vector<char> upper_;
    std::vector<std::uint8_t> kinds_; // with room behind for a look at eight
    std::size_t nLength_ = 0;
};

/// The character that starts at `at`, which moves past it; U+FFFD for what isn't UTF-8.
char32_t characterAt(std::string_view text, std::size_t& at);

/// Adds the upper-case form of a character.
void appendUpper(std::string& word, char32_t character);

/// A longer word keeps its beginning alone.
constexpr std::size_t kLongestWord = std::size_t(128) << 10U;

/// Cuts a text that comes in pieces into its words. A word may go on in the next piece, a character may not.
///
///     WordCutter cutter([](std::string_view word) { ... });
///     cutter.take("Current as");
///     cutter.take("sets");
///     cutter.end();                         // CURRENT, ASSETS
template <typename OnWord>
class WordCutter {
public:
    explicit WordCutter(OnWord onWord)
        : onWord_(std::move(onWord))
    {
    }

    void take(std::string_view piece)
    {
        bounds_.prepare(piece);
        for (std::size_t at = 0; at < piece.size();) {
            const std::size_t begin = word_.empty() ? bounds_.endOfMarks(at) : at;
            at = bounds_.endOfWord(begin);
            const std::string_view found = bounds_.upper().substr(begin, at - begin);
            const bool bEnds = at < piece.size() && !bounds_.isBeyondAscii(at);
            if (bEnds && word_.empty()) {
                onWord_(found);
                continue;
            }
            word_.append(found.substr(0, kLongestWord - std::min(kLongestWord, word_.size())));
            if (bEnds)
                end();
            else if (at < piece.size())
                takeBeyondAscii(characterAt(piece, at));
        }
    }

    /// The text, or a part of it, ends here.
    void end()
    {
        if (!word_.empty())
            onWord_(std::string_view(word_));
        word_.clear();
    }

private:
    void takeBeyondAscii(char32_t character)
    {
        const WordRole role = wordRole(character);
        if (role == WordRole::parts)
            end();
        else if (role == WordRole::belongs && word_.size() < kLongestWord)
            appendUpper(word_, character);
    }

    OnWord onWord_;
    WordBounds bounds_;
    std::string word_; // what can't be given straight from the piece
};

} // namespace zorvo
