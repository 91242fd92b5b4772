#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvo::help {

struct SiteMapTopic {
    std::string title;
    /// As it is written in the map: a page of the book, perhaps with an anchor, or an address.
    std::string target;
};

/// One line of a book's contents or of its index.
struct SiteMapEntry {
    std::string name;
    /// 0 for the outermost entries. Never more than one deeper than the entry before.
    int depth = 0;
    /// A heading has none, an index word may have several.
    std::vector<SiteMapTopic> topics;
    /// In an index: another word to look under.
    std::string seeAlso;
};

/// Reads the contents (.hhc) or the index (.hhk) of a book, as UTF-8. Bears whatever it is given; at most
/// 50,000 entries, 32 deep.
std::vector<SiteMapEntry> readSiteMap(std::string_view map);

} // namespace zorvo::help
