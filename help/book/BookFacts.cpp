#include "help/book/BookFacts.h"

#include "help/book/littleEndian.h"

#include <algorithm>
#include <array>

namespace zorvo::help {

namespace {

enum SystemCode : unsigned {
    kContentsFile = 0,
    kIndexFile = 1,
    kDefaultTopic = 2,
    kTitle = 3,
    kLanguage = 4,
    kDefaultWindow = 5
};

// Places in one window's settings.
constexpr std::size_t kWindowName = 0x08;
constexpr std::size_t kWindowTitle = 0x14;
constexpr std::size_t kWindowContents = 0x60;
constexpr std::size_t kWindowIndex = 0x64;
constexpr std::size_t kWindowTopic = 0x68;
constexpr std::size_t kLeastWindowSize = kWindowTopic + 4;

constexpr std::size_t kMostText = 1024;
constexpr std::size_t kMostTopics = 65536;

/// The text that begins there, up to a zero or the end.
std::string textAt(std::string_view bytes, std::size_t at)
{
    if (at >= bytes.size())
        return {};
    bytes = bytes.substr(at, kMostText);
    return std::string(bytes.substr(0, bytes.find('\0')));
}

/// Gives the name of the window that the book opens in.
std::string readSystem(std::string_view record, BookFacts& facts)
{
    std::string window;
    std::size_t at = 4; // behind the version
    while (const auto size = u16At(record, at + 2)) {
        const unsigned code = *u16At(record, at);
        at += 4;
        if (*size > record.size() - at)
            break;
        const std::string_view data = record.substr(at, *size);
        at += *size;
        switch (code) {
        case kContentsFile:
            facts.contentsFile = textAt(data, 0);
            break;
        case kIndexFile:
            facts.indexFile = textAt(data, 0);
            break;
        case kDefaultTopic:
            facts.defaultTopic = textAt(data, 0);
            break;
        case kTitle:
            facts.title = textAt(data, 0);
            break;
        case kLanguage:
            facts.language = u32At(data, 0).value_or(0);
            break;
        case kDefaultWindow:
            window = textAt(data, 0);
            break;
        default:
            break;
        }
    }
    return window;
}

void readWindow(std::string_view settings, std::string_view strings, BookFacts& facts)
{
    const auto take = [&](std::size_t place, std::string& fact) {
        const std::uint32_t at = u32At(settings, place).value_or(0);
        std::string text = at != 0 ? textAt(strings, at) : std::string();
        if (!text.empty())
            fact = std::move(text);
    };
    take(kWindowTitle, facts.title);
    take(kWindowContents, facts.contentsFile);
    take(kWindowIndex, facts.indexFile);
    take(kWindowTopic, facts.defaultTopic);
}

void readWindows(std::string_view record, std::string_view strings, const std::string& window,
                 BookFacts& facts)
{
    const std::uint32_t count = u32At(record, 0).value_or(0);
    const std::uint32_t size = u32At(record, 4).value_or(0);
    if (size < kLeastWindowSize)
        return;
    for (std::size_t i = 0; i < count && 8 + (i + 1) * size <= record.size(); ++i) {
        const std::string_view settings = record.substr(8 + i * size, size);
        const std::string name = textAt(strings, u32At(settings, kWindowName).value_or(0));
        if (window.empty() || name == window) {
            readWindow(settings, strings, facts);
            return;
        }
    }
}

void readNumbers(std::string_view record, std::string_view strings, BookFacts& facts)
{
    // The record begins with its own length, which is no better than the bytes that are there.
    for (std::size_t at = 4; facts.topics.size() < kMostTopics; at += 8) {
        const auto number = u32At(record, at);
        const auto place = u32At(record, at + 4);
        if (!number || !place)
            return;
        std::string page = textAt(strings, *place);
        if (!page.empty())
            facts.topics.emplace(*number, std::move(page));
    }
}

struct LanguageRange {
    std::uint32_t primary;
    std::string_view characterSet;
};

// By primary language; where scripts share one, the sublanguage decides below.
constexpr std::array kCharacterSets{
    LanguageRange{0x01, "windows-1256"}, LanguageRange{0x02, "windows-1251"},
    LanguageRange{0x05, "windows-1250"}, LanguageRange{0x08, "windows-1253"},
    LanguageRange{0x0d, "windows-1255"}, LanguageRange{0x0e, "windows-1250"},
    LanguageRange{0x11, "Shift_JIS"},    LanguageRange{0x12, "EUC-KR"},
    LanguageRange{0x15, "windows-1250"}, LanguageRange{0x18, "windows-1250"},
    LanguageRange{0x19, "windows-1251"}, LanguageRange{0x1b, "windows-1250"},
    LanguageRange{0x1e, "windows-874"},  LanguageRange{0x1f, "windows-1254"},
    LanguageRange{0x22, "windows-1251"}, LanguageRange{0x24, "windows-1250"},
    LanguageRange{0x25, "windows-1257"}, LanguageRange{0x26, "windows-1257"},
    LanguageRange{0x27, "windows-1257"}, LanguageRange{0x29, "windows-1256"},
    LanguageRange{0x2a, "windows-1258"},
};

constexpr std::uint32_t kChinese = 0x04;

} // namespace

BookFacts readFacts(const BookRecords& records)
{
    BookFacts facts;
    const std::string window = readSystem(records.system, facts);
    readWindows(records.windows, records.strings, window, facts);
    readNumbers(records.numbers, records.strings, facts);
    return facts;
}

std::string_view characterSetOf(std::uint32_t language)
{
    const std::uint32_t primary = language & 0x3ffU;
    if (primary == kChinese) {
        const std::uint32_t sub = language >> 10U & 0x3fU;
        return sub == 2 || sub == 4 ? "GBK" : "Big5";
    }
    const auto* found =
        std::find_if(kCharacterSets.begin(), kCharacterSets.end(),
                     [primary](const LanguageRange& range) { return range.primary == primary; });
    return found != kCharacterSets.end() ? found->characterSet : "windows-1252";
}

} // namespace zorvo::help
