#pragma once

#include <string>
#include <string_view>

namespace zorvo::help {

/// Where a link of a page, a line of the contents or a numbered topic leads.
struct BookLink {
    enum class Kind {
        page,   // in the book
        web,    // an address for the user's browser
        outside // anything else: another file, a script. It is never followed.
    };
    Kind kind = Kind::outside;
    /// The page from the root of the book ("/windows/tree.htm"), or the address.
    std::string target;
    /// The place in the page, without "#".
    std::string anchor;
};

/// Resolves a link that stands on the page `from`, which is a path from the root of the book; "/" for links
/// of the contents. `bookFile` is the name of the book's file, for links that name it themselves.
BookLink resolveLink(std::string_view link, std::string_view from, std::string_view bookFile);

} // namespace zorvo::help
