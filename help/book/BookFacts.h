#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zorvo::help {

/// The bytes of a book's own records, each empty when the book has none.
struct BookRecords {
    std::string system;  // #SYSTEM
    std::string windows; // #WINDOWS
    std::string strings; // #STRINGS
    std::string numbers; // #IVB
};

/// What a book says about itself. Texts are in the book's character set, file names as they are written.
struct BookFacts {
    std::string title;
    std::string defaultTopic;
    std::string contentsFile;
    std::string indexFile;
    /// The page of each numbered topic.
    std::map<std::uint32_t, std::string> topics;
    /// Windows language identifier, 0 when the book doesn't say.
    std::uint32_t language = 0;
};

/// Reads what can be read: a number or place that leads out of its record counts as not being there. The
/// book's window settings win over its system record, as in the viewer that the format was made for.
BookFacts readFacts(const BookRecords& records);

/// Name of the character set that texts of that language are in, "windows-1252" for one that isn't known.
std::string_view characterSetOf(std::uint32_t language);

} // namespace zorvo::help
