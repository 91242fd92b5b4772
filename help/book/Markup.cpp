#include "help/book/Markup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace zorvo::help {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool isLetter(char c)
{
    return lower(c) >= 'a' && lower(c) <= 'z';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// End of the tag that the text begins with, one past its ">"; those in a quoted value don't count. Only at
/// its beginning a quote makes a value a quoted one.
std::size_t endOfTag(std::string_view text)
{
    std::size_t at = 1;
    while (at < text.size() && text[at] != '>') {
        if (text[at++] != '=')
            continue;
        while (at < text.size() && isBlank(text[at]))
            ++at;
        if (at < text.size() && (text[at] == '"' || text[at] == '\'')) {
            at = std::min(text.find(text[at], at + 1), text.size());
        } else {
            while (at < text.size() && !isBlank(text[at]) && text[at] != '>')
                ++at;
        }
    }
    return std::min(at + 1, text.size());
}

void appendUtf8(std::string& text, std::uint32_t code)
{
    const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xc0U | code >> 6U);
        put(0x80U | (code & 0x3fU));
    } else if (code < 0x10000) {
        put(0xe0U | code >> 12U);
        put(0x80U | (code >> 6U & 0x3fU));
        put(0x80U | (code & 0x3fU));
    } else {
        put(0xf0U | code >> 18U);
        put(0x80U | (code >> 12U & 0x3fU));
        put(0x80U | (code >> 6U & 0x3fU));
        put(0x80U | (code & 0x3fU));
    }
}

struct Entity {
    std::string_view name;
    std::uint32_t code;
};

constexpr std::array kEntities{
    Entity{"amp", '&'},      Entity{"lt", '<'},       Entity{"gt", '>'},        Entity{"quot", '"'},
    Entity{"apos", '\''},    Entity{"ndash", 0x2013}, Entity{"mdash", 0x2014},  Entity{"lsquo", 0x2018},
    Entity{"rsquo", 0x2019}, Entity{"sbquo", 0x201a}, Entity{"ldquo", 0x201c},  Entity{"rdquo", 0x201d},
    Entity{"bdquo", 0x201e}, Entity{"bull", 0x2022},  Entity{"hellip", 0x2026}, Entity{"euro", 0x20ac},
    Entity{"trade", 0x2122}, Entity{"larr", 0x2190},  Entity{"rarr", 0x2192},
};

// From U+00A0 on, in order.
constexpr std::array<std::string_view, 96> kLatin1Entities{
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

bool isCharacter(std::uint32_t code)
{
    return code != 0 && code <= 0x10ffff && (code < 0xd800 || code > 0xdfff);
}

/// The character of an entity written without "&" and ";".
std::optional<std::uint32_t> entityCode(std::string_view name)
{
    if (name.starts_with('#')) {
        name.remove_prefix(1);
        const bool bHex = name.starts_with('x') || name.starts_with('X');
        if (bHex)
            name.remove_prefix(1);
        std::uint32_t code = 0;
        const auto [end, failure] =
            std::from_chars(name.data(), name.data() + name.size(), code, bHex ? 16 : 10);
        if (failure != std::errc() || end != name.data() + name.size() || !isCharacter(code))
            return {};
        return code;
    }
    for (const Entity& entity : kEntities)
        if (entity.name == name)
            return entity.code;
    const auto* const found = std::find(kLatin1Entities.begin(), kLatin1Entities.end(), name);
    if (found == kLatin1Entities.end())
        return {};
    return 0xa0U + static_cast<std::uint32_t>(found - kLatin1Entities.begin());
}

constexpr std::size_t kLongestEntity = 10;

/// Elements that end a word where they begin or end, as a line end does.
bool partsWords(std::string_view tag)
{
    constexpr std::array<std::string_view, 12> kInline{"b",    "i",  "u",    "em",  "strong", "a",
                                                       "span", "tt", "code", "sub", "sup",    "font"};
    return std::none_of(kInline.begin(), kInline.end(),
                        [tag](std::string_view name) { return sameWord(name, tag); });
}

/// Adds text with each run of blanks made one.
void appendRun(std::string& all, std::string_view text)
{
    for (const char c : text) {
        if (!isBlank(c))
            all.push_back(c);
        else if (!all.empty() && all.back() != ' ')
            all.push_back(' ');
    }
}

} // namespace

bool sameWord(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

std::optional<MarkupPiece> Markup::next()
{
    while (!rest_.empty()) {
        const std::size_t tag = rest_.find('<');
        if (tag != 0) {
            const std::string_view text = rest_.substr(0, tag);
            rest_.remove_prefix(text.size());
            return MarkupPiece{MarkupPiece::Kind::text, text, {}};
        }
        if (rest_.starts_with("<!--")) {
            const std::size_t end = rest_.find("-->", 4);
            rest_.remove_prefix(end == kNone ? rest_.size() : end + 3);
            continue;
        }
        const bool bClosing = rest_.size() > 1 && rest_[1] == '/';
        const std::size_t name = bClosing ? 2 : 1;
        if (rest_.size() > name && !isLetter(rest_[name])) {
            if (bClosing || rest_[1] == '!' || rest_[1] == '?') {
                // No quotes here: it ends at the first ">".
                rest_.remove_prefix(std::min(rest_.find('>'), rest_.size() - 1) + 1);
                continue;
            }
            // A lone "<" is text.
            const std::size_t more = rest_.find('<', 1);
            const std::string_view text = rest_.substr(0, more);
            rest_.remove_prefix(text.size());
            return MarkupPiece{MarkupPiece::Kind::text, text, {}};
        }
        const std::size_t end = endOfTag(rest_);
        std::string_view inside = rest_.substr(name, end - name);
        rest_.remove_prefix(end);
        if (inside.ends_with('>'))
            inside.remove_suffix(1);
        std::size_t length = 0;
        while (length < inside.size() && !isBlank(inside[length]) && inside[length] != '/')
            ++length;
        if (length == 0)
            continue;
        return MarkupPiece{bClosing ? MarkupPiece::Kind::closing : MarkupPiece::Kind::opening,
                           inside.substr(0, length), inside.substr(length)};
    }
    return {};
}

std::optional<std::string> attributeValue(std::string_view attributes, std::string_view name)
{
    while (!attributes.empty()) {
        attributes = trimmed(attributes);
        std::size_t length = 0;
        while (length < attributes.size() && !isBlank(attributes[length]) && attributes[length] != '=')
            ++length;
        const std::string_view found = attributes.substr(0, length);
        attributes = trimmed(attributes.substr(length));
        std::string_view value;
        if (attributes.starts_with('=')) {
            attributes = trimmed(attributes.substr(1));
            const char quote = attributes.empty() ? '\0' : attributes.front();
            if (quote == '"' || quote == '\'') {
                attributes.remove_prefix(1);
                const std::size_t close = std::min(attributes.find(quote), attributes.size());
                value = attributes.substr(0, close);
                attributes.remove_prefix(std::min(close + 1, attributes.size()));
            } else {
                std::size_t end = 0;
                while (end < attributes.size() && !isBlank(attributes[end]))
                    ++end;
                value = attributes.substr(0, end);
                attributes.remove_prefix(end);
            }
        }
        if (sameWord(found, name))
            return withoutEntities(value);
    }
    return {};
}

std::string withoutEntities(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const std::size_t mark = std::min(text.find('&'), text.size());
        plain.append(text.substr(0, mark));
        text.remove_prefix(mark);
        if (text.empty())
            break;
        const std::size_t end = text.substr(0, kLongestEntity + 2).find(';');
        const auto code = end == kNone ? std::nullopt : entityCode(text.substr(1, end - 1));
        if (code) {
            appendUtf8(plain, *code);
            text.remove_prefix(end + 1);
        } else {
            plain.push_back('&');
            text.remove_prefix(1);
        }
    }
    return plain;
}

std::string plainText(std::string_view page)
{
    std::string text;
    std::string_view silent; // the element whose text isn't seen
    Markup markup(page);
    while (const auto piece = markup.next()) {
        if (piece->kind == MarkupPiece::Kind::text) {
            if (silent.empty())
                appendRun(text, withoutEntities(piece->text));
            continue;
        }
        if (piece->kind == MarkupPiece::Kind::closing && sameWord(piece->text, silent))
            silent = {};
        else if (piece->kind == MarkupPiece::Kind::opening && silent.empty() &&
                 (sameWord(piece->text, "script") || sameWord(piece->text, "style") ||
                  sameWord(piece->text, "title")))
            silent = piece->text;
        if (partsWords(piece->text))
            appendRun(text, " ");
    }
    return std::string(trimmed(text));
}

std::string pageTitle(std::string_view page)
{
    std::string title;
    bool bInside = false;
    Markup markup(page);
    while (const auto piece = markup.next()) {
        if (piece->kind == MarkupPiece::Kind::text) {
            if (bInside)
                appendRun(title, withoutEntities(piece->text));
        } else if (sameWord(piece->text, "title")) {
            if (piece->kind == MarkupPiece::Kind::closing)
                break;
            bInside = true;
        } else if (sameWord(piece->text, "body")) {
            break;
        }
    }
    return std::string(trimmed(title));
}

std::size_t nesting(std::string_view page)
{
    // Elements that hold nothing, or whose end is often left out: they don't deepen a page.
    constexpr std::array<std::string_view, 19> kFlat{"br",    "hr", "img",  "meta", "link",  "input", "base",
                                                     "param", "p",  "area", "col",  "frame", "li",    "dt",
                                                     "dd",    "tr", "td",   "th",   "option"};
    std::size_t depth = 0;
    std::size_t deepest = 0;
    Markup markup(page);
    while (const auto piece = markup.next()) {
        if (piece->kind == MarkupPiece::Kind::text ||
            std::any_of(kFlat.begin(), kFlat.end(),
                        [&](std::string_view name) { return sameWord(name, piece->text); }))
            continue;
        if (piece->kind == MarkupPiece::Kind::opening)
            deepest = std::max(deepest, ++depth);
        else if (depth > 0)
            --depth;
    }
    return deepest;
}

} // namespace zorvo::help
