#include "help/book/pageCost.h"

#include "help/book/Markup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace zorvo::help {

namespace {

/// A step is about what a cell of a table takes.
constexpr double kMostSteps = 60000;
constexpr double kCharactersInAStep = 100;
/// Each item of a list is put in behind all others: so many of them are a step.
constexpr double kItemsInAStep = 500;

constexpr double kLongestLength = 20000;
/// Together, in pixels. The layout counts up to 33 million.
constexpr double kFarthest = 20e6;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordCharacter(char c)
{
    return isDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z') || c == '_' || c == '#';
}

struct Lengths {
    double longest = 0;
    double sum = 0;
};

/// The numbers in a value or a style; colours and names with digits are none.
Lengths lengthsIn(std::string_view text)
{
    Lengths found;
    for (std::size_t at = 0; at < text.size();) {
        if (!isWordCharacter(text[at])) {
            ++at;
            continue;
        }
        double length = 0;
        if (isDigit(text[at])) {
            const auto [end, failure] = std::from_chars(text.data() + at, text.data() + text.size(), length);
            if (failure != std::errc())
                length = 2 * kFarthest;
        }
        found.longest = std::max(found.longest, length);
        found.sum += length;
        while (at < text.size() && isWordCharacter(text[at]))
            ++at;
    }
    return found;
}

std::string withoutComments(std::string_view style)
{
    std::string plain;
    while (true) {
        const std::size_t begin = std::min(style.find("/*"), style.size());
        plain.append(style.substr(0, begin));
        const std::size_t end = style.find("*/", std::min(begin + 2, style.size()));
        if (end == std::string_view::npos)
            return plain;
        style.remove_prefix(end + 2);
    }
}

/// Whether the layout takes a property's value for a length. One that is written with escapes may be any.
bool namesLength(std::string_view property)
{
    std::string name(property);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
    constexpr std::array<std::string_view, 7> kLengths{"margin", "padding", "border", "indent",
                                                       "font",   "line",    "\\"};
    return name.find("radius") == std::string::npos &&
           std::any_of(kLengths.begin(), kLengths.end(),
                       [&name](std::string_view part) { return name.find(part) != std::string::npos; });
}

/// The lengths of a style's declarations.
Lengths lengthsOfStyle(std::string_view style)
{
    const std::string plain = withoutComments(style);
    std::string_view rest = plain;
    Lengths found;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(";{}"), rest.size());
        const std::string_view declaration = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        const std::size_t colon = declaration.find(':');
        if (colon == std::string_view::npos || !namesLength(declaration.substr(0, colon)))
            continue;
        const Lengths lengths = lengthsIn(declaration.substr(colon + 1));
        found.longest = std::max(found.longest, lengths.longest);
        found.sum += lengths.sum;
    }
    return found;
}

double numberOf(std::string_view attributes, std::string_view name, double otherwise)
{
    const double number = lengthsIn(attributeValue(attributes, name).value_or("")).longest;
    return number > 0 ? number : otherwise;
}

/// A table that is open: how many cells it has so far. Each row has as many as the widest one.
class Table {
public:
    void beginRow()
    {
        ++rows_;
        inRow_ = 0;
        while (!hanging_.empty() && hanging_.begin()->first <= rows_) {
            hangingIn_ -= hanging_.begin()->second;
            hanging_.erase(hanging_.begin());
        }
    }

    void addCell(std::string_view attributes)
    {
        const double columns = numberOf(attributes, "colspan", 1);
        const double rows = numberOf(attributes, "rowspan", 1);
        rows_ = std::max(rows_, 1.0);
        widest_ = std::max(widest_, (inRow_ += columns) + hangingIn_);
        if (rows > 1)
            comingDown_[rows_ + rows] += columns;
    }

    /// What hangs down from a row takes room in those below it.
    void endRow()
    {
        for (const auto& [until, columns] : comingDown_) {
            hanging_[until] += columns;
            hangingIn_ += columns;
        }
        comingDown_.clear();
    }

    double cells() const { return rows_ * widest_; }
    double sides() const { return rows_ + widest_; }
    /// Around each cell.
    double padding = 0;

private:
    double rows_ = 0;
    double inRow_ = 0;
    double widest_ = 0;
    double hangingIn_ = 0;
    std::map<double, double> hanging_;
    std::map<double, double> comingDown_;
};

/// Goes through a page and adds up what its layout takes.
class Cost {
public:
    void take(const MarkupPiece& piece)
    {
        if (bStyle_)
            for (const std::string_view style : {piece.text, piece.attributes})
                longest_ = std::max(longest_, lengthsOfStyle(style).longest);
        if (piece.kind == MarkupPiece::Kind::text)
            steps_ += static_cast<double>(piece.text.size()) / kCharactersInAStep * timesOver();
        else if (piece.kind == MarkupPiece::Kind::opening)
            open(piece);
        else
            close(piece.text);
    }

    bool isBearable() const
    {
        return steps_ <= kMostSteps && longest_ <= kLongestLength && sum_ <= kFarthest;
    }

    void end()
    {
        while (!tables_.empty())
            closeTable();
    }

private:
    static bool isList(std::string_view tag) { return sameWord(tag, "ul") || sameWord(tag, "ol"); }

    /// The layout goes twice over what stands in a cell: for its width, and to place it.
    double timesOver() const
    {
        constexpr std::size_t kDeepest = 60;
        const auto depth = static_cast<int>(std::clamp<std::size_t>(tables_.size(), 1, kDeepest));
        return std::ldexp(1, depth - 1);
    }

    void open(const MarkupPiece& piece)
    {
        addLengths(piece.attributes);
        if (sameWord(piece.text, "style"))
            bStyle_ = true;
        else if (isList(piece.text)) {
            items_.push_back(0);
        } else if (sameWord(piece.text, "li")) {
            steps_ += ++items_.back() / kItemsInAStep * timesOver();
        } else if (sameWord(piece.text, "table")) {
            tables_.emplace_back();
            steps_ += timesOver();
            for (const char* name : {"cellpadding", "cellspacing", "border"})
                tables_.back().padding += numberOf(piece.attributes, name, 0);
        } else if (!tables_.empty() && sameWord(piece.text, "tr")) {
            tables_.back().endRow();
            tables_.back().beginRow();
        } else if (!tables_.empty() && (sameWord(piece.text, "td") || sameWord(piece.text, "th"))) {
            tables_.back().addCell(piece.attributes);
        }
    }

    void close(std::string_view tag)
    {
        if (sameWord(tag, "style"))
            bStyle_ = false;
        else if (isList(tag) && items_.size() > 1)
            items_.pop_back();
        else if (sameWord(tag, "table") && !tables_.empty())
            closeTable();
    }

    void closeTable()
    {
        const Table& table = tables_.back();
        steps_ += table.cells() * timesOver();
        sum_ += 2 * table.padding * table.sides();
        tables_.pop_back();
    }

    void addLengths(std::string_view attributes)
    {
        constexpr std::array<std::string_view, 8> kNames{"width",       "height", "border", "cellpadding",
                                                         "cellspacing", "hspace", "vspace", "size"};
        if (attributes.find('=') == std::string_view::npos)
            return;
        for (const std::string_view name : kNames)
            add(lengthsIn(attributeValue(attributes, name).value_or("")));
        add(lengthsOfStyle(attributeValue(attributes, "style").value_or("")));
    }

    void add(const Lengths& lengths)
    {
        longest_ = std::max(longest_, lengths.longest);
        sum_ += lengths.sum;
    }

    double steps_ = 0;
    double longest_ = 0;
    double sum_ = 0;
    bool bStyle_ = false;
    std::vector<Table> tables_;
    /// How many items each list that is open has; the first one has those outside of any.
    std::vector<double> items_{0};
};

} // namespace

bool canBeLaidOut(std::string_view page)
{
    Cost cost;
    Markup markup(page);
    while (cost.isBearable()) {
        const auto piece = markup.next();
        if (!piece) {
            cost.end();
            return cost.isBearable();
        }
        cost.take(*piece);
    }
    return false;
}

bool canBeStyledBy(std::string_view sheet)
{
    return lengthsOfStyle(sheet).longest <= kLongestLength;
}

} // namespace zorvo::help
