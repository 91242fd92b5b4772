#include "platform/linux/RegistryText.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/characterSets.h"
#include "platform/registryNames.h"

#include <algorithm>
#include <optional>

namespace zorvo {

namespace {

constexpr std::string_view kHeader4 = "REGEDIT4";
constexpr std::string_view kBlanks = " \t";

[[noreturn]] void damaged(std::size_t line, const std::string& what)
{
    throw RunTimeError(kInvalidCall, "line " + std::to_string(line) + ": " + what);
}

std::string_view withoutBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isNothingOrComment(std::string_view text)
{
    text = withoutBlanks(text);
    return text.empty() || text.front() == ';';
}

std::string decodedUtf16(std::string_view bytes, ByteOrder order)
{
    if (auto text = utf8FromUtf16(bytes, order))
        return *text;
    const std::string_view line(order == ByteOrder::littleEndian ? "\n\0" : "\0\n", 2);
    std::size_t lines = 1;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        lines += bytes.substr(at, 2) == line ? 1 : 0;
    damaged(lines, "the UTF-16 text is broken");
}

/// The text of the file in UTF-8, by its byte order mark or by where the header's zero bytes lie.
std::string decoded(std::string_view bytes)
{
    constexpr std::string_view kFirstLittle("W\0", 2);
    constexpr std::string_view kFirstBig("\0W", 2);
    if (bytes.starts_with("\xFF\xFE"))
        return decodedUtf16(bytes.substr(2), ByteOrder::littleEndian);
    if (bytes.starts_with("\xFE\xFF"))
        return decodedUtf16(bytes.substr(2), ByteOrder::bigEndian);
    if (bytes.starts_with(kFirstLittle))
        return decodedUtf16(bytes, ByteOrder::littleEndian);
    if (bytes.starts_with(kFirstBig))
        return decodedUtf16(bytes, ByteOrder::bigEndian);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    if (bytes.starts_with(kHeader4))
        return utf8FromAnsi(bytes);
    if (!isUtf8(bytes)) {
        std::size_t good = 0;
        for (std::size_t end = bytes.find('\n'); isUtf8(bytes.substr(0, end));
             end = bytes.find('\n', end + 1))
            ++good;
        damaged(good + 1, "the text is not UTF-8");
    }
    return std::string(bytes);
}

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

/// A number of 1 to `most` hexadecimal digits that fills the text.
std::optional<std::uint32_t> hexNumber(std::string_view text, std::size_t most)
{
    if (text.empty() || text.size() > most)
        return std::nullopt;
    std::uint32_t number = 0;
    for (const char digit : text) {
        if (hexDigit(digit) < 0)
            return std::nullopt;
        number = number * 16 + static_cast<std::uint32_t>(hexDigit(digit));
    }
    return number;
}

class Parser {
public:
    explicit Parser(std::string_view text)
        : text_(text)
    {
    }

    std::vector<RegistryChange> parse()
    {
        readHeader();
        while (nextLine()) {
            if (isNothingOrComment(line_))
                continue;
            if (line_.front() == '[')
                readKey();
            else if (line_.front() == '"' || line_.front() == '@')
                readValue();
            else
                damaged(lineNumber_, "neither a key nor a value");
        }
        return std::move(changes_);
    }

private:
    /// The next line without the blanks around it; false at the end.
    bool nextLine()
    {
        if (at_ >= text_.size())
            return false;
        const std::size_t end = std::min(text_.find('\n', at_), text_.size());
        std::string_view line = text_.substr(at_, end - at_);
        at_ = end + 1;
        ++lineNumber_;
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.find('\0') != std::string_view::npos)
            damaged(lineNumber_, "a zero character");
        line_ = withoutBlanks(line);
        return true;
    }

    void readHeader()
    {
        const bool bAny = nextLine();
        bAnsi_ = line_ == kHeader4;
        if (!bAny || (!bAnsi_ && line_ != kRegistryTextHeader))
            damaged(1, "this is no registry file: its header is missing");
    }

    void readKey()
    {
        const std::size_t close = line_.rfind(']');
        if (close == std::string_view::npos)
            damaged(lineNumber_, "the key is not closed");
        if (!isNothingOrComment(line_.substr(close + 1)))
            damaged(lineNumber_, "text behind the key");
        std::string_view key = line_.substr(1, close - 1);
        const bool bDeleted = key.starts_with('-');
        if (bDeleted)
            key.remove_prefix(1);
        const auto place = registryPlace(key);
        if (!place)
            damaged(lineNumber_, "this is no key");
        if (bDeleted && place->sPath.empty())
            damaged(lineNumber_, "a whole hive can't be deleted");
        changes_.push_back({bDeleted ? RegistryChange::Kind::deleteKey : RegistryChange::Kind::makeKey,
                            place->hive,
                            place->sPath,
                            {}});
        bInKey_ = !bDeleted;
        key_ = *place;
    }

    void readValue()
    {
        if (!bInKey_)
            damaged(lineNumber_, "a value without a key");
        std::string name;
        if (line_.front() == '@')
            line_.remove_prefix(1);
        else
            name = quotedText();
        if (!isRegistryName(name))
            damaged(lineNumber_, "the name is too long or holds a line break");
        line_ = withoutBlanks(line_);
        if (!line_.starts_with('='))
            damaged(lineNumber_, "no \"=\" behind the name");
        line_ = withoutBlanks(line_.substr(1));
        RegistryChange change{RegistryChange::Kind::setValue, key_.hive, key_.sPath, {name, {}, {}}};
        readData(change);
        changes_.push_back(std::move(change));
    }

    void readData(RegistryChange& change)
    {
        if (line_.starts_with('-')) {
            change.kind = RegistryChange::Kind::deleteValue;
            line_.remove_prefix(1);
            expectEnd();
        } else if (line_.starts_with('"')) {
            change.value.type = RegistryType::string;
            change.value.sData = quotedText() + '\0';
            expectEnd();
        } else if (take("dword:")) {
            change.value.type = RegistryType::dword;
            readDword(change.value.sData);
        } else if (take("hex:")) {
            change.value.type = RegistryType::binary;
            change.value.sData = readHex();
        } else if (take("hex(")) {
            readTypedHex(change.value);
        } else {
            damaged(lineNumber_, "this is no value");
        }
        if (change.value.sData.size() > kLargestRegistryValue)
            damaged(lineNumber_, "the value is too large");
    }

    bool take(std::string_view word)
    {
        if (!line_.starts_with(word))
            return false;
        line_.remove_prefix(word.size());
        return true;
    }

    void expectEnd() const
    {
        if (!isNothingOrComment(line_))
            damaged(lineNumber_, "text behind the value");
    }

    /// The text between the quote that the line begins with and the next one.
    std::string quotedText()
    {
        std::string text;
        for (std::size_t at = 1; at < line_.size(); ++at) {
            if (line_[at] == '"') {
                line_.remove_prefix(at + 1);
                return text;
            }
            if (line_[at] == '\\') {
                ++at;
                if (at == line_.size() || (line_[at] != '\\' && line_[at] != '"'))
                    damaged(lineNumber_, "a backslash in a text stands for itself only as two");
            }
            text.push_back(line_[at]);
        }
        damaged(lineNumber_, "the text is not closed");
    }

    void readDword(std::string& data)
    {
        const auto number = hexNumber(withoutBlanks(line_.substr(0, line_.find(';'))), 8);
        if (!number)
            damaged(lineNumber_, "this is no number of up to eight hexadecimal digits");
        for (unsigned byte = 0; byte < 4; ++byte)
            data.push_back(static_cast<char>(*number >> (8 * byte) & 0xFFU));
    }

    void readTypedHex(RegistryValue& value)
    {
        const std::size_t close = line_.find("):");
        const auto type = hexNumber(line_.substr(0, close), 8);
        if (close == std::string_view::npos || !type)
            damaged(lineNumber_, "this is no type");
        line_.remove_prefix(close + 2);
        value.type = static_cast<RegistryType>(*type);
        value.sData = readHex();
        if (!isTextType(value.type))
            return;
        if (bAnsi_) {
            value.sData = utf8FromAnsi(value.sData);
            return;
        }
        const auto text = storedTextFromUtf16(value.sData);
        if (!text)
            damaged(lineNumber_, "a text of an odd number of bytes");
        value.sData = *text;
    }

    /// Bytes parted by commas; a backslash at the end of a line goes on in the next one, over comments.
    std::string readHex()
    {
        std::string data;
        bool bMore = readHexLine(data);
        while (bMore) {
            if (!nextLine())
                damaged(lineNumber_, "the value breaks off");
            if (line_.starts_with(';'))
                continue;
            if (line_.empty())
                damaged(lineNumber_, "the value breaks off");
            bMore = readHexLine(data);
            if (data.size() > 2 * kLargestRegistryValue) // as UTF-16 a text takes twice its room
                damaged(lineNumber_, "the value is too large");
        }
        return data;
    }

    /// True when the value goes on in the next line.
    bool readHexLine(std::string& data)
    {
        std::string_view rest = withoutBlanks(line_.substr(0, line_.find(';')));
        const bool bMore = rest.ends_with('\\');
        if (bMore)
            rest = withoutBlanks(rest.substr(0, rest.size() - 1));
        while (!rest.empty()) {
            const std::size_t comma = rest.find(',');
            const auto byte = hexNumber(withoutBlanks(rest.substr(0, comma)), 2);
            if (!byte)
                damaged(lineNumber_, "this is no list of hexadecimal bytes");
            data.push_back(static_cast<char>(*byte));
            const bool bLast = comma == std::string_view::npos;
            rest = bLast ? std::string_view() : withoutBlanks(rest.substr(comma + 1));
            // A comma leads on to another byte, and a line goes on only behind one.
            if ((!bLast && rest.empty() && !bMore) || (bLast && bMore))
                damaged(lineNumber_, "the list of bytes breaks off");
        }
        return bMore;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t lineNumber_ = 0;
    std::string_view line_;
    bool bAnsi_ = false;
    bool bInKey_ = false;
    RegistryPlace key_;
    std::vector<RegistryChange> changes_;
};

} // namespace

std::vector<RegistryChange> parseRegistryText(std::string_view bytes)
{
    const std::string text = decoded(bytes);
    return Parser(text).parse();
}

} // namespace zorvo
