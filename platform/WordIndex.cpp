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
constexpr std::size_t kFirstSlots = std::size_t(1) << 14U;
/// Of slots for each word: with many free ones the first look is nearly always the last.
constexpr std::size_t kRoom = 3;

std::uint64_t mixed(std::uint64_t hash, std::uint64_t part)
{
    hash = (hash ^ part) * 0x9E3779B97F4A7C15U;
    return hash ^ hash >> 32U;
}

std::uint64_t hashOf(std::string_view word)
{
    std::uint64_t hash = word.size();
    for (; !word.empty(); word.remove_prefix(std::min(word.size(), sizeof hash))) {
        std::uint64_t part = 0;
        std::memcpy(&part, word.data(), std::min(word.size(), sizeof part));
        hash = mixed(hash, part);
    }
    return hash;
}

/// The number of slots is a power of two.
std::size_t placeOf(const WordLetters& key, std::size_t nSlots)
{
    return mixed(key.high * 0xC2B2AE3D27D4EB4FU, key.low) & (nSlots - 1);
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
    : slots_(kFirstSlots)
{
}

/// `isWord` is asked about the number of a word that has the key.
template <typename IsWord>
WordIndexBuilder::Slot& WordIndexBuilder::slotOf(const WordLetters& key, IsWord isWord)
{
    Slot* const slots = slots_.data();
    const std::size_t nSlots = slots_.size();
    std::size_t place = placeOf(key, nSlots);
    while (slots[place].lastText != 0 && !(slots[place].key == key && isWord(slots[place].id)))
        place = (place + 1) & (nSlots - 1);
    return slots[place];
}

void WordIndexBuilder::growSlots()
{
    std::vector<Slot> larger(slots_.size() * 2);
    for (const Slot& slot : slots_) {
        if (slot.lastText == 0)
            continue;
        std::size_t place = placeOf(slot.key, larger.size());
        while (larger[place].lastText != 0)
            place = (place + 1) & (larger.size() - 1);
        larger[place] = slot;
    }
    slots_.swap(larger);
}

/// Every word of every text comes through this loop: it has nothing in it that the processor couldn't
/// foresee.
void WordIndexBuilder::addWaiting()
{
    makeRoomForIds(nWaiting_);
    std::uint32_t* const ids = ids_.data();
    std::size_t nIds = nIds_;
    const std::uint32_t nStamp = nStamp_;
    const std::size_t nWaiting = bTooRich_ ? 0 : nWaiting_;
    for (std::size_t i = 0; i < nWaiting; ++i) {
        const WordLetters word = waiting_[i];
        Slot& slot = slotOf(word, [](std::uint32_t) { return true; });
        if (slot.lastText == 0)
            addNew(slot, word, {reinterpret_cast<const char*>(&waiting_[i]), word.length()});
        ids[nIds] = slot.id;
        nIds += slot.lastText != nStamp ? 1 : 0; // stays where it is when the text has the word already
        slot.lastText = nStamp;
    }
    nIds_ = nIds;
    nWaiting_ = 0;
    keepBounds();
}

void WordIndexBuilder::addLong(std::string_view word)
{
    addWaiting();
    if (bTooRich_)
        return;
    makeRoomForIds(1);
    constexpr std::uint64_t kLong = ~std::uint64_t(0); // no letters: UTF-8 has no such byte
    const WordLetters key{hashOf(word), kLong};
    const auto isWord = [&](std::uint32_t id) {
        const Entry& entry = entries_[id];
        return std::string_view(letters_).substr(entry.at, entry.length) == word;
    };
    Slot& slot = slotOf(key, isWord);
    if (slot.lastText == 0)
        addNew(slot, key, word);
    if (slot.lastText != nStamp_)
        ids_[nIds_++] = slot.id;
    slot.lastText = nStamp_;
    keepBounds();
}

void WordIndexBuilder::makeRoomForIds(std::size_t n)
{
    if (ids_.size() - nIds_ < n)
        ids_.resize(ids_.size() + std::max(ids_.size(), n));
}

void WordIndexBuilder::addNew(Slot& slot, const WordLetters& key, std::string_view word)
{
    slot.key = key;
    slot.id = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back({letters_.size(), word.size()});
    letters_.append(word);
    nLettersOfText_ += word.size();
}

void WordIndexBuilder::keepBounds()
{
    bTooRich_ = bTooRich_ || nIds_ - beginOfText() > kMostWordsOfText || nLettersOfText_ > kMostLettersOfText;
    if (entries_.size() * kRoom > slots_.size())
        growSlots();
}

void WordIndexBuilder::discardText()
{
    nWaiting_ = 0;
    nIds_ = beginOfText();
    ++nStamp_;
    nLettersOfText_ = 0;
    bTooRich_ = false;
}

bool WordIndexBuilder::endText()
{
    addWaiting();
    const bool bKept = !bTooRich_;
    if (!bKept)
        discardText();
    textEnds_.push_back(nIds_);
    ++nStamp_;
    nLettersOfText_ = 0;
    return bKept;
}

std::string WordIndexBuilder::take()
{
    // The texts of each word, one word after the other.
    std::vector<std::size_t> begins(entries_.size() + 1, 0);
    for (std::size_t i = 0; i < nIds_; ++i)
        ++begins[ids_[i] + 1];
    for (std::size_t i = 1; i < begins.size(); ++i)
        begins[i] += begins[i - 1];
    std::string holders(nIds_, '\0');
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
    slots_.assign(kFirstSlots, Slot());
    nWaiting_ = 0;
    nIds_ = 0;
    nStamp_ = 1;
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
