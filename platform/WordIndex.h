#pragma once

#include "platform/searchWords.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvo {

class Keyword;

/// The words of some texts, and which text holds which word, as bytes that can be kept. This makes them;
/// WordIndex reads them.
///
///     WordIndexBuilder builder;
///     builder.addWord("CURRENT");
///     builder.addWord("ASSETS");
///     builder.endText();
///     const std::string bytes = builder.take();
class WordIndexBuilder {
public:
    static constexpr std::size_t kMostTexts = 256;

    WordIndexBuilder();

    /// Adds a word, in upper case and not empty, to the text that is being added. No more than kMostTexts may
    /// be.
    void addWord(std::string_view word) { addWord(CutWord(word)); }
    void addWord(const CutWord& word)
    {
        if (!word.isShort()) {
            addLong(word.text());
            return;
        }
        waiting_[nWaiting_++] = word.letters();
        if (nWaiting_ == waiting_.size())
            addWaiting();
    }
    /// Forgets the words of the text that is being added.
    void discardText();
    /// The next text begins. False for a text with more words than are kept: it stands in the index without
    /// any.
    bool endText();

    std::size_t texts() const { return textEnds_.size(); }
    /// Bytes, roughly, that it would take.
    std::size_t size() const { return letters_.size() + nIds_; }

    /// The bytes; this is then empty.
    std::string take();

private:
    /// Where a word stands in `letters_`; its number is its place among these.
    struct Entry {
        std::size_t at = 0;
        std::size_t length = 0;
    };

    /// A place of a hash table: most words come again and again, and are found with a look at one of these.
    struct Slot {
        WordLetters key; // of a long word a hash
        std::uint32_t id = 0;
        std::uint32_t lastText = 0; // the stamp of the last text that holds it; 0 while the slot is free
    };

    void addWaiting();
    void addLong(std::string_view word);
    template <typename IsWord>
    Slot& slotOf(const WordLetters& key, IsWord isWord);
    void makeRoomForIds(std::size_t n);
    void addNew(Slot& slot, const WordLetters& key, std::string_view word);
    void keepBounds();
    void growSlots();
    std::size_t beginOfText() const { return textEnds_.empty() ? 0 : textEnds_.back(); }
    void clear();

    std::array<WordLetters, 128> waiting_{}; // short words, which go in many at a time
    std::size_t nWaiting_ = 0;
    std::string letters_;
    std::vector<Entry> entries_;
    std::vector<Slot> slots_;
    std::vector<std::uint32_t> ids_; // words of the texts, each once in a text; room behind them
    std::size_t nIds_ = 0;
    std::vector<std::size_t> textEnds_; // in `ids_`
    std::uint32_t nStamp_ = 1;          // of the text that is being added
    std::size_t nLettersOfText_ = 0;
    bool bTooRich_ = false;
};

/// The bytes that a WordIndexBuilder has made, perhaps damaged since.
class WordIndex {
public:
    using Texts = std::bitset<WordIndexBuilder::kMostTexts>;

    explicit WordIndex(std::string_view bytes)
        : bytes_(bytes)
    {
    }

    /// The texts, by their order from 0, that hold all the words. Nothing when the bytes are damaged.
    std::optional<Texts> find(const Keyword& keyword) const;

private:
    std::string_view bytes_;
};

} // namespace zorvo
