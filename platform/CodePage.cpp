#include "platform/CodePage.h"

#include <unicode/ucnv.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <map>

namespace zorvo {

namespace {

constexpr int kWestern = 1252;
constexpr int kUtf8 = 65001;
constexpr char32_t kNoCharacter = 0xFFFD;

struct PageName {
    int number;
    const char* name;
};

constexpr std::array kPageNames = {
    PageName{10000, "macintosh"},      PageName{10006, "x-mac-greek"},
    PageName{10007, "x-mac-cyrillic"}, PageName{10029, "x-mac-centraleurroman"},
    PageName{10081, "x-mac-turkish"},  PageName{kUtf8, "UTF-8"},
};

struct CharsetPage {
    int charset;
    int number;
};

constexpr std::array kCharsetPages = {
    CharsetPage{0, kWestern}, CharsetPage{77, 10000}, CharsetPage{128, 932},  CharsetPage{129, 949},
    CharsetPage{130, 1361},   CharsetPage{134, 936},  CharsetPage{136, 950},  CharsetPage{161, 1253},
    CharsetPage{162, 1254},   CharsetPage{163, 1258}, CharsetPage{177, 1255}, CharsetPage{178, 1256},
    CharsetPage{186, 1257},   CharsetPage{204, 1251}, CharsetPage{222, 874},  CharsetPage{238, 1250},
    CharsetPage{254, 437},    CharsetPage{255, 850},
};

UConverter* openConverter(int number)
{
    for (const PageName& page : kPageNames) {
        UErrorCode error = U_ZERO_ERROR;
        if (page.number == number)
            return ucnv_open(page.name, &error);
    }
    for (const char* prefix : {"windows-", "ibm-", "cp"}) {
        UErrorCode error = U_ZERO_ERROR;
        UConverter* converter = ucnv_open((prefix + std::to_string(number)).c_str(), &error);
        if (U_SUCCESS(error))
            return converter;
    }
    return nullptr;
}

void appendUtf8(std::string& text, char32_t character)
{
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    text.append(reinterpret_cast<const char*>(bytes.data()), length);
}

bool isBetween(unsigned char byte, unsigned char first, unsigned char last)
{
    return byte >= first && byte <= last;
}

int utf8Length(unsigned char first)
{
    if (isBetween(first, 0xC2, 0xDF))
        return 2;
    if (isBetween(first, 0xE0, 0xEF))
        return 3;
    return isBetween(first, 0xF0, 0xF4) ? 4 : 0;
}

} // namespace

void CodePage::Close::operator()(UConverter* converter) const
{
    ucnv_close(converter);
}

const CodePage& CodePage::ofNumber(int number)
{
    static std::mutex mutex;
    static std::map<int, std::unique_ptr<CodePage>> pages;
    const std::lock_guard lock(mutex);
    constexpr std::size_t kMostPages = 200; // a file may name as many as it likes
    if (pages.size() >= kMostPages && pages.find(number) == pages.end())
        number = kWestern;
    std::unique_ptr<CodePage>& page = pages[number];
    if (!page)
        page = std::make_unique<CodePage>(number);
    return *page;
}

const CodePage& CodePage::ofSymbols()
{
    static const CodePage page;
    return page;
}

int CodePage::numberOfCharset(int charset)
{
    for (const CharsetPage& page : kCharsetPages)
        if (page.charset == charset)
            return page.number;
    return 0;
}

CodePage::CodePage(int number)
    : number_(number)
    , converter_(openConverter(number))
{
    if (!converter_) {
        number_ = kWestern;
        converter_.reset(openConverter(kWestern));
    }
    if (number_ == kUtf8)
        kind_ = Kind::utf8;
    else if (converter_ && ucnv_getMaxCharSize(converter_.get()) == 1)
        readTable();
    else if (converter_)
        kind_ = Kind::doubled;
}

CodePage::~CodePage() = default;

void CodePage::readTable()
{
    kind_ = Kind::single;
    for (std::size_t i = 0; i < table_.size(); ++i) {
        const char byte = static_cast<char>(0x80 + i);
        std::array<UChar, 4> units{};
        UErrorCode error = U_ZERO_ERROR;
        ucnv_toUChars(converter_.get(), units.data(), static_cast<std::int32_t>(units.size()), &byte, 1,
                      &error);
        table_[i] = U_SUCCESS(error) ? units[0] : static_cast<char16_t>(kNoCharacter);
    }
}

int CodePage::lengthFrom(unsigned char first) const
{
    constexpr int kShiftJis = 932;
    switch (kind_) {
    case Kind::single:
        return 1;
    case Kind::utf8:
        return utf8Length(first);
    case Kind::doubled:
        if (number_ == kShiftJis && isBetween(first, 0xA0, 0xDF))
            return 1;
        return isBetween(first, 0x81, 0xFE) ? 2 : 0;
    case Kind::none:
        break;
    }
    return 0;
}

void CodePage::append(std::string& text, const unsigned char* bytes, int length) const
{
    if (kind_ == Kind::single) {
        appendUtf8(text, table_[*bytes & 0x7FU]);
        return;
    }
    std::array<UChar, 8> units{};
    std::int32_t nUnits = 0;
    UErrorCode error = U_ZERO_ERROR;
    if (converter_) {
        const std::lock_guard lock(mutex_);
        nUnits = ucnv_toUChars(converter_.get(), units.data(), static_cast<std::int32_t>(units.size()),
                               reinterpret_cast<const char*>(bytes), length, &error);
    }
    if (nUnits == 0 || U_FAILURE(error)) {
        appendUtf8(text, kNoCharacter);
        return;
    }
    for (std::int32_t at = 0; at < nUnits;) {
        UChar32 character = 0;
        U16_NEXT(units, at, nUnits, character);
        appendUtf8(text, U_IS_SURROGATE(character) ? kNoCharacter : static_cast<char32_t>(character));
    }
}

} // namespace zorvo
