#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zorvo::help {

/// One piece of a page: running text as it is written, or a tag. The views last as long as the page.
struct MarkupPiece {
    enum class Kind { text, opening, closing };
    Kind kind = Kind::text;
    /// The text, or the tag's name in its own spelling.
    std::string_view text;
    /// What stands between the name of an opening tag and its end.
    std::string_view attributes;
};

/// Walks over a page piece by piece. Comments and declarations are passed over. No page is malformed: a tag
/// without an end ends with the page.
class Markup {
public:
    explicit Markup(std::string_view page)
        : rest_(page)
    {
    }

    /// Nothing at the end.
    std::optional<MarkupPiece> next();

private:
    std::string_view rest_;
};

/// The value of an attribute, with its entities resolved; nothing when the tag doesn't have it.
std::optional<std::string> attributeValue(std::string_view attributes, std::string_view name);

/// Case-blind for the letters of ASCII.
bool sameWord(std::string_view one, std::string_view other);

/// UTF-8 text with its entities resolved; what isn't a known entity stays as it is.
std::string withoutEntities(std::string_view text);

/// The words of a page as a reader sees them, blanks run together: what a search looks through.
std::string plainText(std::string_view page);

/// What stands in the page's title element, blanks run together; empty without one.
std::string pageTitle(std::string_view page);

/// How deep the page's elements are nested at most.
std::size_t nesting(std::string_view page);

} // namespace zorvo::help
