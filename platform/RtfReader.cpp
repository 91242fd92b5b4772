#include "platform/RtfReader.h"

#include "platform/CodePage.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

namespace zorvo {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kDeepest = 100'000;
constexpr std::size_t kMostFonts = 10'000;
constexpr std::size_t kPieceOfText = 32U << 10U;
constexpr std::size_t kLongestName = 64;
constexpr std::size_t kMostDigits = 12;
constexpr int kAnsi = 1252;
constexpr char32_t kNoCharacter = 0xFFFD;
constexpr int kSymbolCharset = 2;
constexpr int kNoFont = -1;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// Eight bytes are looked at in one step: a bit is set for the first of those that are looked for, and perhaps
// for some behind it.
constexpr std::uint64_t kEach = 0x0101010101010101U;
constexpr std::uint64_t kHighest = kEach * 0x80;

constexpr std::uint64_t below(std::uint64_t eight, unsigned char limit)
{
    return (eight - kEach * limit) & ~eight & kHighest;
}

/// `limit` is below 128.
constexpr std::uint64_t from(std::uint64_t eight, unsigned char limit)
{
    return (eight | (eight + kEach * (0x80U - limit))) & kHighest;
}

/// With zeroes behind the last byte.
std::uint64_t eightAt(std::string_view bytes, std::size_t at)
{
    std::uint64_t eight = 0;
    const std::size_t n = std::min(bytes.size() - at, sizeof eight);
    if (n == sizeof eight)
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
    else
        std::memcpy(&eight, bytes.data() + at, n);
    return eight;
}

std::size_t indexOfFirst(std::uint64_t bits)
{
    return static_cast<std::size_t>(std::countr_zero(bits)) / 8;
}

/// The place of the first byte that may not stand for itself: a backslash, a control character, or one from
/// the opening brace on. Most of a file is text in long runs.
std::size_t endOfRun(std::string_view bytes, std::size_t at)
{
    for (; at < bytes.size(); at += sizeof(std::uint64_t)) {
        const std::uint64_t eight = eightAt(bytes, at); // zeroes end the run
        const std::uint64_t ends = from(eight, '{') | below(eight, ' ') | below(eight ^ kEach * '\\', 1);
        if (ends != 0)
            return at + indexOfFirst(ends);
    }
    return bytes.size();
}

/// The letters that the eight bytes begin with, zeroes behind them.
std::uint64_t lettersOf(std::uint64_t eight)
{
    const std::uint64_t small = eight | kEach * 0x20;
    const std::uint64_t others = (eight & kHighest) | below(small, 'a') | from(small, '{');
    return others == 0 ? eight : eight & ((std::uint64_t(1) << indexOfFirst(others) * 8) - 1);
}
static_assert(std::endian::native == std::endian::little);

} // namespace

RtfReader::RtfReader(TakeText takeText)
    : takeText_(std::move(takeText))
{
    start();
}

bool RtfReader::isRtf(std::string_view beginningOfFile)
{
    if (beginningOfFile.starts_with("\xEF\xBB\xBF"sv))
        beginningOfFile.remove_prefix(3);
    const auto first = beginningOfFile.find_first_not_of(" \t\r\n"sv);
    return first != std::string_view::npos && beginningOfFile.substr(first).starts_with("{\\rtf"sv);
}

void RtfReader::start()
{
    documentPage_ = &CodePage::ofNumber(kAnsi);
    state_ = State();
    state_.page = documentPage_;
    outer_.clear();
    nTooDeep_ = 0;
    bStarred_ = false;
    bEnded_ = false;
    nBinaryLeft_ = 0;
    fontPages_.clear();
    nDefaultFont_ = kNoFont;
    nTableFont_ = 0;
    nToSkip_ = 0;
    highSurrogate_ = 0;
    nPartial_ = 0;
}

void RtfReader::finish()
{
    dropPartialCharacter();
    giveText();
    start();
}

std::size_t RtfReader::read(std::string_view bytes, bool bLast)
{
    bytes_ = bytes;
    bLast_ = bLast;
    at_ = 0;
    while (at_ < bytes_.size() && !bEnded_) {
        if (nBinaryLeft_ > 0)
            skipBinary();
        else if (!readToken())
            break;
        if (text_.size() > kPieceOfText)
            giveText();
    }
    const std::size_t done = bEnded_ || bLast_ ? bytes_.size() : at_;
    if (bLast_)
        finish();
    bytes_ = {};
    return done;
}

void RtfReader::skipBinary()
{
    const std::size_t n = std::min(nBinaryLeft_, bytes_.size() - at_);
    nBinaryLeft_ -= n;
    at_ += n;
}

/// False when the token goes on in the next piece.
bool RtfReader::readToken()
{
    switch (bytes_[at_]) {
    case '{':
        ++at_;
        openGroup();
        return true;
    case '}':
        ++at_;
        closeGroup();
        return true;
    case '\\':
        return readControl();
    case '\r':
    case '\n':
    case '\0':
        ++at_;
        return true;
    default:
        readRun();
        return true;
    }
}

bool RtfReader::readControl()
{
    if (at_ + 1 >= bytes_.size()) {
        if (bLast_)
            at_ = bytes_.size();
        return bLast_;
    }
    const char first = bytes_[at_ + 1];
    if (isLetter(first))
        return readControlWord();
    if (first == '\'')
        return readHexByte();
    at_ += 2;
    readControlSymbol(first);
    return true;
}

bool RtfReader::readControlWord()
{
    const std::size_t nameAt = at_ + 1;
    const std::uint64_t first = lettersOf(eightAt(bytes_, nameAt));
    std::size_t end = nameAt + sizeof first - static_cast<std::size_t>(std::countl_zero(first)) / 8;
    if (end - nameAt == sizeof first)
        while (end < bytes_.size() && end - nameAt < kLongestName && isLetter(bytes_[end]))
            ++end;
    const std::string_view name = bytes_.substr(nameAt, end - nameAt);

    const bool bNegative = end < bytes_.size() && bytes_[end] == '-';
    std::size_t digit = end + (bNegative ? 1 : 0);
    const std::size_t firstDigit = digit;
    std::int64_t number = 0;
    while (digit < bytes_.size() && digit - firstDigit < kMostDigits && isDigit(bytes_[digit]))
        number = number * 10 + (bytes_[digit++] - '0');
    const bool bHasNumber = digit > firstDigit;
    if (bHasNumber)
        end = digit;

    if (digit >= bytes_.size() && !bLast_)
        return false;
    if (end < bytes_.size() && bytes_[end] == ' ')
        ++end;
    at_ = end;
    constexpr std::int64_t kLargest = 0x7FFFFFFF;
    const int clamped = static_cast<int>(std::min(number, kLargest));
    doWord(name, first, bHasNumber, bNegative ? -clamped : clamped);
    return true;
}

void RtfReader::readControlSymbol(char symbol)
{
    constexpr char32_t kNoBreakSpace = 0xA0;
    switch (symbol) {
    case '*':
        bStarred_ = true;
        return;
    case '\\':
    case '{':
    case '}':
        takeSymbol(static_cast<unsigned char>(symbol));
        return;
    case '~':
        takeSymbol(kNoBreakSpace);
        return;
    case '_': // a hyphen at which no line ends
        takeSymbol(U'-');
        return;
    case '\t':
        takeSymbol(U'\t');
        return;
    case '\r':
    case '\n':
        addBreak();
        return;
    default: // an optional hyphen, a mark of an index or a formula
        return;
    }
}

bool RtfReader::readHexByte()
{
    constexpr std::size_t kLength = 4;
    if (bytes_.size() - at_ < kLength) {
        if (bLast_)
            at_ = bytes_.size();
        return bLast_;
    }
    const int high = hexDigit(bytes_[at_ + 2]);
    const int low = hexDigit(bytes_[at_ + 3]);
    if (high < 0 || low < 0) {
        at_ += 2;
        return true;
    }
    at_ += kLength;
    takeByte(static_cast<unsigned char>(high * 16 + low));
    return true;
}

void RtfReader::readRun()
{
    bStarred_ = false;
    const std::size_t end = isAmidCharacter() ? at_ : endOfRun(bytes_, at_);
    if (end == at_) {
        takeByte(static_cast<unsigned char>(bytes_[at_++]));
        return;
    }
    if (isVisible() && state_.page != &CodePage::ofSymbols())
        text_.append(bytes_.substr(at_, end - at_));
    else if (isVisible())
        for (std::size_t i = at_; i < end; ++i)
            add(kNoCharacter);
    at_ = end;
}

void RtfReader::openGroup()
{
    dropPartialCharacter();
    nToSkip_ = 0;
    bStarred_ = false;
    if (outer_.size() >= kDeepest) {
        if (nTooDeep_++ == 0)
            aboveTooDeep_ = std::exchange(state_.destination, Destination::skipped);
        return;
    }
    outer_.push_back(state_);
    state_.bParted = false;
}

void RtfReader::closeGroup()
{
    dropPartialCharacter();
    nToSkip_ = 0;
    bStarred_ = false;
    if (nTooDeep_ > 0) {
        if (--nTooDeep_ == 0)
            state_.destination = aboveTooDeep_;
        return;
    }
    if (state_.bParted)
        addBreak();
    if (outer_.empty()) {
        bEnded_ = true;
        return;
    }
    state_ = outer_.back();
    outer_.pop_back();
    bEnded_ = outer_.empty();
}

void RtfReader::doWord(std::string_view name, std::uint64_t first, bool bHasNumber, int number)
{
    const bool bStarred = bStarred_;
    bStarred_ = false;
    const RtfWord* word = findRtfWord(name, first);
    if (!word) {
        if (bStarred)
            state_.destination = Destination::skipped;
        return;
    }
    if (word->action == RtfAction::binary) {
        nBinaryLeft_ = bHasNumber && number > 0 ? static_cast<std::size_t>(number) : 0;
        return;
    }
    if (state_.destination == Destination::skipped)
        return;
    switch (word->action) {
    case RtfAction::skipGroup:
    case RtfAction::container:
    case RtfAction::partedText:
    case RtfAction::fontTable:
        doDestination(*word, bStarred);
        break;
    case RtfAction::character:
        takeSymbol(word->value);
        break;
    case RtfAction::paragraph:
        addBreak();
        break;
    case RtfAction::unicode:
        if (bHasNumber)
            takeUnicode(number);
        break;
    case RtfAction::fixedCodePage:
        useCodePage(static_cast<int>(word->value));
        break;
    default:
        if (state_.destination == Destination::fontTable)
            doFontTableWord(word->action, number);
        else
            doProperty(word->action, bHasNumber, number);
    }
    if (bStarred && word->action != RtfAction::container && word->action != RtfAction::partedText)
        state_.destination = Destination::skipped;
}

void RtfReader::doDestination(const RtfWord& word, bool bStarred)
{
    switch (word.action) {
    case RtfAction::container:
        if (bStarred)
            state_.destination = Destination::container;
        break;
    case RtfAction::partedText:
        state_.destination = Destination::text;
        state_.bParted = true;
        addBreak();
        break;
    case RtfAction::fontTable:
        state_.destination = Destination::fontTable;
        break;
    default:
        state_.destination = Destination::skipped;
    }
}

void RtfReader::doProperty(RtfAction action, bool bHasNumber, int number)
{
    const bool bOn = !bHasNumber || number != 0;
    switch (action) {
    case RtfAction::hidden:
        state_.bHidden = bOn;
        break;
    case RtfAction::deleted:
        state_.bDeleted = bOn;
        break;
    case RtfAction::plain:
        state_.bHidden = false;
        state_.bDeleted = false;
        state_.page = &pageOfFont(nDefaultFont_);
        break;
    case RtfAction::font:
        dropPartialCharacter();
        state_.page = &pageOfFont(number);
        break;
    case RtfAction::defaultFont:
        nDefaultFont_ = number;
        break;
    case RtfAction::codePage:
        useCodePage(number);
        break;
    case RtfAction::fallbackLength:
        state_.nFallback = std::max(number, 0);
        break;
    default: // words of the font table
        break;
    }
}

void RtfReader::doFontTableWord(RtfAction action, int number)
{
    if (action == RtfAction::font)
        nTableFont_ = number;
    else if (action == RtfAction::fontCodePage)
        noteFontPage(&CodePage::ofNumber(number));
    else if (action == RtfAction::fontCharset && number == kSymbolCharset)
        noteFontPage(&CodePage::ofSymbols());
    else if (action == RtfAction::fontCharset && CodePage::numberOfCharset(number) != 0)
        noteFontPage(&CodePage::ofNumber(CodePage::numberOfCharset(number)));
}

void RtfReader::noteFontPage(const CodePage* page)
{
    if (fontPages_.size() < kMostFonts)
        fontPages_[nTableFont_] = page;
}

const CodePage& RtfReader::pageOfFont(int font) const
{
    const auto found = fontPages_.find(font);
    return found == fontPages_.end() ? *documentPage_ : *found->second;
}

void RtfReader::useCodePage(int number)
{
    documentPage_ = &CodePage::ofNumber(number);
    state_.page = documentPage_;
}

void RtfReader::takeByte(unsigned char byte)
{
    if (nToSkip_ > 0) {
        --nToSkip_;
        return;
    }
    if (!isVisible())
        return;
    if (nPartial_ == 0) {
        dropPartialCharacter();
        nPartialLength_ = byte < 0x80 ? 1 : state_.page->lengthFrom(byte);
        if (byte < 0x80 || nPartialLength_ == 0) {
            add(byte < 0x80 && state_.page != &CodePage::ofSymbols() ? byte : kNoCharacter);
            return;
        }
    }
    partial_[nPartial_++] = byte;
    if (nPartial_ < nPartialLength_)
        return;
    std::string character;
    state_.page->append(character, partial_.data(), nPartialLength_);
    nPartial_ = 0;
    text_ += character;
}

void RtfReader::takeSymbol(char32_t character)
{
    if (nToSkip_ > 0) {
        --nToSkip_;
        return;
    }
    dropPartialCharacter();
    if (isVisible())
        add(character);
}

/// The number is signed in older files, and one half of a pair beyond 16 bits.
void RtfReader::takeUnicode(int number)
{
    constexpr int kUnits = 0x10000;
    constexpr char32_t kLastCharacter = 0x10FFFF;
    nToSkip_ = 0; // no fallback is written in Unicode
    const auto unit = static_cast<char32_t>(number < 0 ? number + kUnits : number);
    if (unit <= kLastCharacter && isVisible())
        addUnit(unit);
    nToSkip_ = state_.nFallback;
}

void RtfReader::addUnit(char32_t unit)
{
    const char32_t high = highSurrogate_;
    if (nPartial_ > 0)
        dropPartialCharacter();
    highSurrogate_ = 0;
    if (U16_IS_LEAD(unit))
        highSurrogate_ = unit;
    else if (!U16_IS_TRAIL(unit))
        add(unit);
    else if (high != 0)
        add(static_cast<char32_t>(U16_GET_SUPPLEMENTARY(high, unit)));
    else
        add(kNoCharacter);
}

/// What has begun and isn't gone on with leaves a gap.
void RtfReader::dropPartialCharacter()
{
    if (nPartial_ == 0 && highSurrogate_ == 0)
        return;
    nPartial_ = 0;
    highSurrogate_ = 0;
    add(kNoCharacter);
}

void RtfReader::add(char32_t character)
{
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    text_.append(reinterpret_cast<const char*>(bytes.data()), length);
}

void RtfReader::addBreak()
{
    dropPartialCharacter();
    if (state_.destination == Destination::text)
        text_.push_back('\n');
}

void RtfReader::giveText()
{
    if (!text_.empty())
        takeText_(text_);
    text_.clear();
}

} // namespace zorvo
