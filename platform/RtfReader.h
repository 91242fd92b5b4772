#pragma once

#include "platform/rtfWords.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zorvo {

class CodePage;

/// Takes the text of a rich text file out: what a reader sees in its body, tables, notes and text boxes
/// included; no hidden or deleted text, no instructions of fields, no page headers, no tables of fonts and
/// styles. Paragraphs, cells and the like end in a line feed.
///
/// A malformed file gives what can be read of it. Memory stays bounded however deep its groups are nested:
/// text in groups below the 100,000th is left out.
class RtfReader {
public:
    /// Is given the text piece by piece, as UTF-8; no character is parted.
    using TakeText = std::function<void(std::string_view)>;

    explicit RtfReader(TakeText takeText);

    static bool isRtf(std::string_view beginningOfFile);

    /// Reads the next bytes of a file, and gives how many it has done with: the others, at most
    /// kLongestToken, must come again at the beginning of the next piece. With `bLast` it has done with all,
    /// and is ready for another file.
    std::size_t read(std::string_view bytes, bool bLast);

    static constexpr std::size_t kLongestToken = 100;

private:
    /// What the text of a group is to a reader of the document.
    enum class Destination : unsigned char {
        text,
        skipped,
        container, // holds groups with text, among others
        fontTable
    };

    /// What a closing brace gives back.
    struct State {
        const CodePage* page = nullptr;
        int nFallback = 1; // characters to skip behind a Unicode one
        Destination destination = Destination::text;
        bool bHidden = false;
        bool bDeleted = false;
        bool bParted = false; // from the text around the group
    };

    void start();
    void finish();
    void skipBinary();
    bool readToken();
    bool readControl();
    bool readControlWord();
    void readControlSymbol(char symbol);
    bool readHexByte();
    void readRun();

    void openGroup();
    void closeGroup();
    void doWord(std::string_view name, std::uint64_t first, bool bHasNumber, int number);
    void doDestination(const RtfWord& word, bool bStarred);
    void doProperty(RtfAction action, bool bHasNumber, int number);
    void doFontTableWord(RtfAction action, int number);
    void noteFontPage(const CodePage* page);
    void useCodePage(int number);
    const CodePage& pageOfFont(int font) const;

    bool isVisible() const
    {
        return state_.destination == Destination::text && !state_.bHidden && !state_.bDeleted;
    }
    /// Bytes can't just be copied.
    bool isAmidCharacter() const { return nToSkip_ > 0 || nPartial_ > 0 || highSurrogate_ != 0; }
    void takeByte(unsigned char byte);
    void takeSymbol(char32_t character);
    void takeUnicode(int number);
    void addUnit(char32_t unit);
    void dropPartialCharacter();
    void add(char32_t character);
    void addBreak();
    void giveText();

    TakeText takeText_;
    std::string text_;

    std::string_view bytes_;
    std::size_t at_ = 0;
    bool bLast_ = false;

    State state_;
    std::vector<State> outer_;
    std::size_t nTooDeep_ = 0; // groups open below the deepest that is kept
    Destination aboveTooDeep_ = Destination::text;
    bool bStarred_ = false; // the next word names a destination that need not be known
    bool bEnded_ = false;
    std::size_t nBinaryLeft_ = 0;

    const CodePage* documentPage_ = nullptr;
    std::unordered_map<int, const CodePage*> fontPages_;
    int nDefaultFont_ = -1;
    int nTableFont_ = 0;

    int nToSkip_ = 0;
    char32_t highSurrogate_ = 0;
    std::array<unsigned char, 4> partial_{};
    int nPartial_ = 0;
    int nPartialLength_ = 0;
};

} // namespace zorvo
