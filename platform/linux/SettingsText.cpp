#include "platform/linux/SettingsText.h"

#include "base/text.h"

#include <algorithm>
#include <map>

namespace zorvo {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string written(std::string_view text, std::string_view special)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto code = static_cast<unsigned char>(text[at]);
        const bool bEdgeBlank = text[at] == ' ' && (at == 0 || at + 1 == text.size());
        const bool bEscaped = code < 0x20 || code == 0x7F || text[at] == '%' || bEdgeBlank ||
                              special.find(text[at]) != std::string_view::npos;
        if (bEscaped)
            result.append({'%', kHexDigits[code / 16], kHexDigits[code % 16]});
        else
            result.push_back(text[at]);
    }
    return result;
}

int digit(char character)
{
    const std::size_t value = kHexDigits.find(character);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

/// A percent sign that no two digits follow was put in by hand and means itself.
std::string readBack(std::string_view text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool bEscape =
            text[at] == '%' && at + 2 < text.size() && digit(text[at + 1]) >= 0 && digit(text[at + 2]) >= 0;
        if (bEscape) {
            result.push_back(static_cast<char>(digit(text[at + 1]) * 16 + digit(text[at + 2])));
            at += 2;
        } else {
            result.push_back(text[at]);
        }
    }
    return result;
}

std::string settingLine(const std::string& key, const std::string& value)
{
    return written(key, "=[;#") + '=' + written(value, "");
}

} // namespace

SettingsText::SettingsText(std::string_view bytes)
    : sections_(1)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    while (!bytes.empty()) {
        // A last line without its end counts: somebody has written it by hand.
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const std::string trimmed = trimBlanks(line);
        if (trimmed.starts_with('[') && trimmed.ends_with(']'))
            sections_.push_back({readBack(std::string_view(trimmed).substr(1, trimmed.size() - 2)), {}});
        else
            sections_.back().lines.push_back(readLine(line));
    }
}

SettingsText::Line SettingsText::readLine(std::string_view text)
{
    Line line{std::string(text), std::nullopt, {}};
    const std::size_t equals = text.find('=');
    const std::size_t first = text.find_first_not_of(' ');
    const bool bSetting = equals != std::string_view::npos && text[first] != ';' && text[first] != '#';
    if (bSetting) {
        line.key = readBack(trimBlanks(text.substr(0, equals)));
        line.sValue = readBack(trimBlanks(text.substr(equals + 1)));
    }
    return line;
}

std::optional<std::string> SettingsText::get(std::string_view section, std::string_view key) const
{
    for (const Section& part : sections_) {
        if (!equalNoCase(part.sName, section))
            continue;
        for (const Line& line : part.lines)
            if (line.key && equalNoCase(*line.key, key))
                return line.sValue;
    }
    return std::nullopt;
}

void SettingsText::set(const std::string& section, const std::string& key, const std::string& value)
{
    Section* home = nullptr;
    for (Section& part : sections_) {
        if (!equalNoCase(part.sName, section))
            continue;
        home = &part;
        for (Line& line : part.lines) {
            if (line.key && equalNoCase(*line.key, key)) {
                line = {settingLine(*line.key, value), line.key, value};
                return;
            }
        }
    }
    if (home == nullptr)
        home = &sections_.emplace_back(Section{section, {}});
    // Empty lines at the section's end stay its end.
    auto place = home->lines.end();
    while (place != home->lines.begin() && trimBlanks(std::prev(place)->sText).empty())
        --place;
    home->lines.insert(place, {settingLine(key, value), key, value});
}

std::vector<std::pair<std::string, std::string>> SettingsText::list(std::string_view section) const
{
    std::map<std::string, std::pair<std::string, std::string>> rows;
    for (const Section& part : sections_)
        if (equalNoCase(part.sName, section))
            for (const Line& line : part.lines)
                if (line.key)
                    rows.try_emplace(upperCase(*line.key), *line.key, line.sValue);
    std::vector<std::pair<std::string, std::string>> result;
    result.reserve(rows.size());
    for (auto& [folded, row] : rows)
        result.push_back(std::move(row));
    return result;
}

std::string SettingsText::bytes() const
{
    std::string text;
    for (const Section& part : sections_) {
        if (&part != &sections_.front())
            text.append("[").append(written(part.sName, "]")).append("]\n");
        for (const Line& line : part.lines)
            text.append(line.sText).append("\n");
    }
    return text;
}

} // namespace zorvo
