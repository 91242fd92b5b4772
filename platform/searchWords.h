#pragma once

#include <algorithm>
#include <array>
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

static_assert(std::endian::native == std::endian::little, "the first byte is the lowest of a number");

/// The letters of a word as two numbers, zeroes behind the last: words of up to kMost bytes are the same when
/// these are, which takes no loop.
struct WordLetters {
    static constexpr std::size_t kMost = 2 * sizeof(std::uint64_t);

    std::uint64_t low = 0;
    std::uint64_t high = 0;

    static WordLetters of(std::string_view word)
    {
        std::array<char, kMost> letters{};
        word.copy(letters.data(), kMost);
        return std::bit_cast<WordLetters>(letters);
    }

    /// Of a word in a buffer of which kMost bytes may be read, however short it is.
    static WordLetters inBuffer(const char* word, std::size_t length)
    {
        static constexpr std::array<std::uint64_t, 4> kMasks = {~0ULL, ~0ULL, 0, 0};
        const char* masks = reinterpret_cast<const char*>(kMasks.data()) + kMost - std::min(length, kMost);
        WordLetters mask;
        WordLetters letters;
        std::memcpy(&mask, masks, kMost);
        std::memcpy(&letters, word, kMost);
        return {letters.low & mask.low, letters.high & mask.high};
    }

    std::size_t length() const
    {
        const int nZeroes = high != 0 ? std::countl_zero(high) : 64 + std::countl_zero(low);
        return kMost - static_cast<std::size_t>(nZeroes) / 8;
    }

    /// In one comparison: which half tells two words apart can't be foreseen.
    bool operator==(const WordLetters& other) const { return ((low ^ other.low) | (high ^ other.high)) == 0; }
};

/// A word in upper case, as a text is cut into them.
class CutWord {
public:
    explicit CutWord(std::string_view word)
        : text_(word)
        , letters_(WordLetters::of(word))
    {
    }
    CutWord(std::string_view word, const WordLetters& letters)
        : text_(word)
        , letters_(letters)
    {
    }

    operator std::string_view() const { return text_; }
    std::string_view text() const { return text_; }
    /// `letters` are all of it.
    bool isShort() const { return text_.size() <= WordLetters::kMost; }
    const WordLetters& letters() const { return letters_; }

private:
    std::string_view text_;
    WordLetters letters_;
};

/// The bytes of a text in upper case as far as they are ASCII, and where its runs lie: bytes that don't part
/// words, those beyond ASCII, which may, among them. Runs are found 64 bytes at a time: with a look at each
/// byte they would cost most of the time that a search of many files takes.
class WordRuns {
public:
    void prepare(std::string_view text);

    bool startsInRun() const { return (bits_.front().inRun & 1U) != 0; }

    /// Calls `onRun(begin, end, bAscii)` for each run.
    template <typename OnRun>
    void forEach(OnRun onRun) const
    {
        std::size_t begin = 0;
        std::uint64_t open = 0; // 1 where a run goes on from one block to the next
        bool bOpenIsAscii = true;
        for (std::size_t block = 0; block < bits_.size(); ++block) {
            const auto [inRun, beyondAscii] = bits_[block];
            const std::size_t at = block * kBlock;
            std::uint64_t edges = inRun ^ (inRun << 1U | open);
            const auto nextEdge = [&edges] { // kBlock when there is none
                const auto edge = static_cast<std::size_t>(std::countr_zero(edges));
                edges &= edges - 1;
                return edge;
            };
            const auto isAscii = [bits = beyondAscii](std::size_t from, std::size_t to) {
                return bits == 0 || from == to || bits << (kBlock - to) >> (kBlock - to + from) == 0;
            };
            if (open != 0) {
                const std::size_t end = nextEdge();
                bOpenIsAscii = bOpenIsAscii && isAscii(0, end);
                if (end != kBlock)
                    onRun(begin, at + end, bOpenIsAscii);
            }
            while (edges != 0) {
                const std::size_t from = nextEdge();
                const std::size_t to = nextEdge();
                begin = at + from;
                if (to != kBlock)
                    onRun(begin, at + to, isAscii(from, to));
                else
                    bOpenIsAscii = isAscii(from, to);
            }
            open = inRun >> (kBlock - 1);
        }
    }

    /// The first byte from `at` on that is beyond ASCII, at most `end`.
    std::size_t endOfAscii(std::size_t at, std::size_t end) const
    {
        while (at < end && static_cast<unsigned char>(upper_[at]) < 0x80)
            ++at;
        return at;
    }

    CutWord word(std::size_t begin, std::size_t end) const
    {
        const std::string_view text(upper_.data() + begin, end - begin);
        return {text, WordLetters::inBuffer(text.data(), text.size())};
    }

private:
    static constexpr std::size_t kBlock = 64;

    /// One for each byte of a block.
    struct Bits {
        std::uint64_t inRun = 0;
        std::uint64_t beyondAscii = 0;
    };

    std::vector<char> upper_; // zeroes behind, so that every run has an end
    std::vector<Bits> bits_;  // for each block
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
        if (piece.empty())
            return;
        runs_.prepare(piece);
        if (!runs_.startsInRun())
            end();
        runs_.forEach([&](std::size_t begin, std::size_t end, bool bAscii) {
            if (bAscii && word_.empty() && end < piece.size())
                onWord_(runs_.word(begin, std::min(end, begin + kLongestWord)));
            else
                takeRun(piece, begin, end);
        });
    }

    /// The text, or a part of it, ends here.
    void end()
    {
        if (!word_.empty())
            onWord_(CutWord(word_));
        word_.clear();
    }

private:
    /// A run that goes on a word, goes on in the next piece, or has bytes beyond ASCII.
    void takeRun(std::string_view piece, std::size_t begin, std::size_t end)
    {
        for (std::size_t at = begin; at < end;) {
            const std::size_t ascii = runs_.endOfAscii(at, end);
            const std::size_t room = kLongestWord - std::min(kLongestWord, word_.size());
            word_.append(runs_.word(at, ascii).text().substr(0, room));
            at = ascii;
            if (at < end)
                takeBeyondAscii(characterAt(piece, at));
        }
        if (end < piece.size())
            this->end();
    }

    void takeBeyondAscii(char32_t character)
    {
        const WordRole role = wordRole(character);
        if (role == WordRole::parts)
            end();
        else if (role == WordRole::belongs && word_.size() < kLongestWord)
            appendUpper(word_, character);
    }

    OnWord onWord_;
    WordRuns runs_;
    std::string word_; // what can't be given straight from the piece
};

} // namespace zorvo
