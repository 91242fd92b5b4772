#include "client/callArguments.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/text.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QString>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace zorvo {

namespace {

std::optional<bool> booleanOf(const std::string& sText)
{
    if (equalNoCase(sText, "true") || sText == "1" || sText == "-1")
        return true;
    if (equalNoCase(sText, "false") || sText == "0")
        return false;
    return {};
}

std::optional<double> hexadecimal(const std::string& sText)
{
    if (sText.size() < 3 || !equalNoCase(sText.substr(0, 2), "0x"))
        return {};
    std::uint64_t nNumber = 0;
    const auto [end, failure] = std::from_chars(sText.data() + 2, sText.data() + sText.size(), nNumber, 16);
    if (failure != std::errc() || end != sText.data() + sText.size())
        return {};
    return static_cast<double>(nNumber);
}

std::optional<double> numberOf(const std::string& sText)
{
    if (const auto number = hexadecimal(sText))
        return number;
    if (!isNumeric(sText))
        return {};
    try {
        return toDouble(sText);
    } catch (const RunTimeError&) { // past all ranges
        return {};
    }
}

bool fits(double number, const std::string& sType)
{
    struct Range {
        const char* type;
        double lowest;
        double highest;
    };
    static constexpr Range kRanges[] = {
        {"y", 0, 255},
        {"n", -32768, 32767},
        {"q", 0, 65535},
        {"i", -2147483648.0, 2147483647.0},
        {"u", 0, 4294967295.0},
        {"x", -9007199254740992.0, 9007199254740992.0},
        {"t", 0, 9007199254740992.0},
    };
    for (const Range& range : kRanges)
        if (sType == range.type)
            return number == std::trunc(number) && number >= range.lowest && number <= range.highest;
    return sType == "d";
}

std::optional<Value> numberFromText(const std::string& sType, const std::string& sText)
{
    const auto number = numberOf(sText);
    if (!number || !fits(*number, sType))
        return {};
    return *number;
}

std::optional<std::vector<std::string>> jsonTexts(const std::string& sText)
{
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(sText));
    if (!document.isArray())
        return {};
    std::vector<std::string> texts;
    const QJsonArray entries = document.array();
    for (const QJsonValue entry : entries) {
        if (!entry.isString())
            return {};
        texts.push_back(entry.toString().toStdString());
    }
    return texts;
}

std::vector<std::string> textsFromText(const std::string& sText)
{
    if (sText.size() < 2 || sText.front() != '[' || sText.back() != ']')
        return {sText};
    if (auto texts = jsonTexts(sText))
        return *texts;
    std::vector<std::string> texts;
    const std::string sInside = sText.substr(1, sText.size() - 2);
    for (std::size_t at = 0; at <= sInside.size();) {
        const std::size_t end = std::min(sInside.find(',', at), sInside.size());
        texts.push_back(sInside.substr(at, end - at));
        at = end + 1;
    }
    return texts;
}

Value variantFromText(const std::string& sText)
{
    if (sText.empty())
        return {};
    if (equalNoCase(sText, "true") || equalNoCase(sText, "false"))
        return equalNoCase(sText, "true");
    const auto number = numberOf(sText);
    if (!number)
        return sText;
    if (fits(*number, "n"))
        return static_cast<std::int16_t>(*number);
    if (fits(*number, "i"))
        return static_cast<std::int32_t>(*number);
    if (fits(*number, "u"))
        return static_cast<std::uint32_t>(*number);
    return *number;
}

} // namespace

std::optional<Value> argumentFromText(const std::string& sType, const std::string& sText)
{
    if (sType == "s" || sType == "o")
        return sText;
    if (sType == "v")
        return variantFromText(sText);
    if (sType == "as")
        return textsFromText(sText);
    if (sType == "b") {
        const auto b = booleanOf(sText);
        return b ? std::optional<Value>(*b) : std::nullopt;
    }
    return numberFromText(sType, sText);
}

void printResult(const Value& value, std::ostream& out)
{
    if (const auto* b = std::get_if<bool>(&value))
        out << (*b ? "True" : "False") << '\n';
    else if (const auto* text = std::get_if<std::string>(&value))
        out << *text << '\n';
    else if (const auto* small = std::get_if<std::int16_t>(&value))
        out << *small << '\n';
    else if (const auto* number = std::get_if<std::int32_t>(&value))
        out << *number << '\n';
    else if (const auto* unsignedNumber = std::get_if<std::uint32_t>(&value))
        out << *unsignedNumber << '\n';
    else if (const auto* fraction = std::get_if<double>(&value))
        out << QString::number(*fraction, 'g', QLocale::FloatingPointShortest).toStdString() << '\n';
    else if (const auto* texts = std::get_if<std::vector<std::string>>(&value))
        for (const std::string& entry : *texts)
            out << entry << '\n';
}

} // namespace zorvo
