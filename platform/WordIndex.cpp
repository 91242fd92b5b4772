#include "platform/WordIndex.h"

#include "platform/Keyword.h"
#include "platform/byteNumbers.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zorvo {

namespace {

/// More than that is no text that anybody wrote.
constexpr std::size_t kMostWordsOfText = 100'000;
constexpr std::size_t kMostLettersOfText = std::size_t(2) << 20U;
constexpr std::size_t kFirstSlots = std::size_t(1) << 13U;

constexpr std::size_t kShortWord = sizeof(std::uint64_t);

std::uint64_t mixed(std::uint64_t hash, std::uint64_t part)
{
    hash = (hash ^ part) * 0x9E3779B97F4A7C15U;
    return hash ^ hash >> 32U;
}

template <typename Number>
std::uint64_t numberAt(const char* bytes)
{
    Number number = 0;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

/// The letters themselves, so that words with the same key are the same. No word holds a zero byte.
std::uint64_t keyOfShort(std::string_view word)
{
    const std::size_t n = word.size();
    const char* bytes = word.data();
    if (n >= sizeof(std::uint32_t)) // the two may overlap
        return numberAt<std::uint32_t>(bytes) | numberAt<std::uint32_t>(bytes + n - sizeof(std::uint32_t))
                                                    << 8U * (n - sizeof(std::uint32_t));
    return numberAt<std::uint8_t>(bytes) | numberAt<std::uint8_t>(bytes + n / 2) << 8U * (n / 2) |
           numberAt<std::uint8_t>(bytes + n - 1) << 8U * (n - 1);
}

std::uint64_t keyOfLong(std::string_view word)
{
    std::uint64_t key = word.size();
    for (; word.size() > kShortWord; word.remove_prefix(kShortWord))
        key = mixed(key, numberAt<std::uint64_t>(word.data()));
    return mixed(key, keyOfShort(word));
}

std::size_t placeOf(std::uint64_t key, std::size_t nSlots)
{
    return mixed(0, key) & (nSlots - 1);
}

/// Adds the texts that hold a word which the pattern matches.
bool addTexts(std::string_view bytes, const WordPattern& pattern, WordIndex::Texts& texts)
{
    ByteCursor cursor(bytes);
    const auto nTexts = static_cast<std::size_t>(cursor.number());
    if (nTexts > texts.size())
        return false;
    while (!cursor.atEnd()) {
        const std::string_view word = cursor.text();
        const auto nHolders = cursor.number();
        const std::string_view holders = cursor.bytes(nHolders);
        if (!pattern.matches(word))
            continue;
        for (const char text : holders)
            texts.set(static_cast<unsigned char>(text));
    }
    return !cursor.hasFailed();
}

} // namespace

WordIndexBuilder::WordIndexBuilder()
    : shortSlots_(kFirstSlots)
    , longSlots_(kFirstSlots)
{
}

WordIndexBuilder::Slot& WordIndexBuilder::slotOfShort(std::uint64_t key)
{
    std::size_t place = placeOf(key, shortSlots_.size());
    while (shortSlots_[place].lastText != 0 && shortSlots_[place].key != key)
        place = (place + 1) & (shortSlots_.size() - 1);
    return shortSlots_[place];
}

WordIndexBuilder::Slot& WordIndexBuilder::slotOfLong(std::uint64_t key, std::string_view word)
{
    const auto isWord = [&](const Slot& slot) {
        const Entry& entry = entries_[slot.id];
        return slot.key == key && std::string_view(letters_).substr(entry.at, entry.length) == word;
    };
    std::size_t place = placeOf(key, longSlots_.size());
    while (longSlots_[place].lastText != 0 && !isWord(longSlots_[place]))
        place = (place + 1) & (longSlots_.size() - 1);
    return longSlots_[place];
}

void WordIndexBuilder::growSlots(Slots& slots)
{
    Slots larger(slots.size() * 2);
    for (const Slot& slot : slots) {
        if (slot.lastText == 0)
            continue;
        std::size_t place = placeOf(slot.key, larger.size());
        while (larger[place].lastText != 0)
            place = (place + 1) & (larger.size() - 1);
        larger[place] = slot;
    }
    slots.swap(larger);
}

void WordIndexBuilder::addWord(std::string_view word)
{
    if (bTooRich_ || word.empty())
        return;
    const bool bShort = word.size() <= kShortWord;
    const std::uint64_t key = bShort ? keyOfShort(word) : keyOfLong(word);
    Slot& slot = bShort ? slotOfShort(key) : slotOfLong(key, word);
    if (slot.lastText == nStamp_)
        return;
    const bool bNew = slot.lastText == 0;
    if (bNew) {
        slot.key = key;
        slot.id = static_cast<std::uint32_t>(entries_.size());
        entries_.push_back({letters_.size(), word.size()});
        letters_.append(word);
        nLettersOfText_ += word.size();
    }
    slot.lastText = nStamp_;
    ids_.push_back(slot.id);
    bTooRich_ = ids_.size() - beginOfText() > kMostWordsOfText || nLettersOfText_ > kMostLettersOfText;
    if (bNew && ++(bShort ? nShort_ : nLong_) * 2 > (bShort ? shortSlots_ : longSlots_).size())
        growSlots(bShort ? shortSlots_ : longSlots_);
}

void WordIndexBuilder::discardText()
{
    ids_.resize(beginOfText());
    ++nStamp_;
    nLettersOfText_ = 0;
    bTooRich_ = false;
}

bool WordIndexBuilder::endText()
{
    const bool bKept = !bTooRich_;
    if (!bKept)
        discardText();
    textEnds_.push_back(ids_.size());
    ++nStamp_;
    nLettersOfText_ = 0;
    return bKept;
}

std::string WordIndexBuilder::take()
{
    // The texts of each word, one word after the other.
    std::vector<std::size_t> begins(entries_.size() + 1, 0);
    for (const std::uint32_t id : ids_)
        ++begins[id + 1];
    for (std::size_t i = 1; i < begins.size(); ++i)
        begins[i] += begins[i - 1];
    std::string holders(ids_.size(), '\0');
    std::vector<std::size_t> ends(begins.begin(), begins.end() - 1);
    std::size_t at = 0;
    for (std::size_t text = 0; text < textEnds_.size(); ++text)
        for (; at < textEnds_[text]; ++at)
            holders[ends[ids_[at]]++] = static_cast<char>(text);

    std::string bytes;
    bytes.reserve(letters_.size() + holders.size() + entries_.size() * 3 + 8);
    appendNumber(bytes, textEnds_.size());
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (begins[i] == begins[i + 1])
            continue; // of a text that was too rich
        appendText(bytes, std::string_view(letters_).substr(entries_[i].at, entries_[i].length));
        appendText(bytes, std::string_view(holders).substr(begins[i], begins[i + 1] - begins[i]));
    }
    clear();
    return bytes;
}

void WordIndexBuilder::clear()
{
    letters_.clear();
    entries_.clear();
    shortSlots_.assign(kFirstSlots, Slot());
    longSlots_.assign(kFirstSlots, Slot());
    nShort_ = 0;
    nLong_ = 0;
    nStamp_ = 1;
    ids_.clear();
    textEnds_.clear();
    nLettersOfText_ = 0;
    bTooRich_ = false;
}

std::optional<WordIndex::Texts> WordIndex::find(const Keyword& keyword) const
{
    ByteCursor cursor(bytes_);
    const auto nTexts = cursor.number();
    if (cursor.hasFailed() || nTexts > WordIndexBuilder::kMostTexts)
        return std::nullopt;
    Texts found;
    for (std::size_t text = 0; text < nTexts && !keyword.isBeyondWords(); ++text)
        found.set(text);
    for (const WordPattern& pattern : keyword.words()) {
        Texts texts;
        if (!addTexts(bytes_, pattern, texts))
            return std::nullopt;
        found &= texts;
        if (found.none())
            break;
    }
    return found;
}

} // namespace zorvo
