#include "help/book/BookLink.h"

#include "help/book/Markup.h"

#include <algorithm>
#include <vector>

namespace zorvo::help {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char low = static_cast<char>(c | 0x20);
    return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

std::string withoutPercents(std::string_view text)
{
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool bRoom = text[at] == '%' && at + 2 < text.size();
        const int high = bRoom ? hexDigit(text[at + 1]) : -1;
        const int low = bRoom ? hexDigit(text[at + 2]) : -1;
        if (high >= 0 && low >= 0 && high + low > 0) {
            plain.push_back(static_cast<char>(high * 16 + low));
            at += 2;
        } else {
            plain.push_back(text[at]);
        }
    }
    return plain;
}

/// Length of the scheme that the link begins with, without its colon; 0 without one.
std::size_t schemeLength(std::string_view link)
{
    const std::size_t colon = link.find_first_of(":/\\?#");
    const bool bScheme =
        colon != kNone && colon > 1 && link[colon] == ':' && !link.substr(colon).starts_with("::");
    return bScheme ? colon : 0;
}

/// From the root of the book; ".." can't lead out of it.
std::string fromRoot(std::string_view folder, std::string_view path)
{
    std::vector<std::string_view> names;
    const auto walk = [&names](std::string_view part) {
        while (!part.empty()) {
            const std::size_t slash = std::min(part.find('/'), part.size());
            const std::string_view name = part.substr(0, slash);
            part.remove_prefix(std::min(slash + 1, part.size()));
            if (name == "..") {
                if (!names.empty())
                    names.pop_back();
            } else if (!name.empty() && name != ".") {
                names.push_back(name);
            }
        }
    };
    if (!path.starts_with('/'))
        walk(folder);
    walk(path);
    std::string whole;
    for (const std::string_view name : names)
        (whole += '/') += name;
    return whole.empty() ? "/" : whole;
}

std::string_view fileName(std::string_view path)
{
    return path.substr(path.find_last_of("/\\:") + 1);
}

} // namespace

BookLink resolveLink(std::string_view link, std::string_view from, std::string_view bookFile)
{
    const std::size_t scheme = schemeLength(link);
    const std::string_view name = link.substr(0, scheme);
    if (sameWord(name, "http") || sameWord(name, "https") || sameWord(name, "mailto"))
        return {BookLink::Kind::web, std::string(link), {}};

    std::string_view inBook = link;
    if (sameWord(name, "mk") || sameWord(name, "ms-its") || sameWord(name, "its")) {
        const std::size_t parts = link.find("::");
        if (parts == kNone || !sameWord(fileName(link.substr(0, parts)), bookFile))
            return {};
        inBook = link.substr(parts + 2);
        from = "/";
    } else if (scheme != 0 && !sameWord(name, "book")) {
        return {};
    } else if (scheme != 0) {
        inBook = link.substr(scheme + 1);
        from = "/";
    } else if (const std::size_t parts = link.find("::"); parts != kNone) {
        // "file.chm::/page.htm"
        if (!sameWord(fileName(link.substr(0, parts)), bookFile))
            return {};
        inBook = link.substr(parts + 2);
        from = "/";
    }

    const std::size_t hash = std::min(inBook.find('#'), inBook.size());
    BookLink found;
    found.kind = BookLink::Kind::page;
    found.anchor = withoutPercents(inBook.substr(std::min(hash + 1, inBook.size())));
    std::string_view path = inBook.substr(0, hash);
    path = path.substr(0, path.find('?'));
    if (path.empty()) {
        found.target = std::string(from);
        return found;
    }
    std::string plain = withoutPercents(path);
    std::replace(plain.begin(), plain.end(), '\\', '/');
    found.target = fromRoot(from.substr(0, from.rfind('/') + 1), plain);
    return found;
}

} // namespace zorvo::help
