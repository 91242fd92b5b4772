#include "help/book/siteMap.h"

#include "help/book/Markup.h"

#include <algorithm>

namespace zorvo::help {

namespace {

constexpr std::size_t kMostEntries = 50000;
constexpr std::size_t kMostTopics = 500;
constexpr std::size_t kLongestText = 1024;
constexpr int kDeepest = 32;

/// The parameters of one entry, in the order in which they stand.
class EntryBuilder {
public:
    explicit EntryBuilder(int depth) { entry_.depth = depth; }

    void add(std::string_view name, std::string value)
    {
        if (value.size() > kLongestText)
            value.resize(kLongestText);
        if (sameWord(name, "Name"))
            addName(std::move(value));
        else if (sameWord(name, "Local") || (sameWord(name, "URL") && !bLocal_))
            addTarget(std::move(value), sameWord(name, "Local"));
        else if (sameWord(name, "See Also"))
            entry_.seeAlso = std::move(value);
    }

    bool isEntry() const { return !entry_.name.empty(); }
    SiteMapEntry take() { return std::move(entry_); }

private:
    /// The first name is the entry's; each further one is the title of the page that follows.
    void addName(std::string name)
    {
        if (entry_.name.empty())
            entry_.name = name;
        title_ = std::move(name);
        bLocal_ = false;
    }

    void addTarget(std::string target, bool bLocal)
    {
        if (entry_.topics.size() >= kMostTopics || target.empty())
            return;
        bLocal_ = bLocal;
        entry_.topics.push_back({title_.empty() ? entry_.name : title_, std::move(target)});
    }

    SiteMapEntry entry_;
    std::string title_;
    bool bLocal_ = false;
};

} // namespace

std::vector<SiteMapEntry> readSiteMap(std::string_view map)
{
    std::vector<SiteMapEntry> entries;
    int lists = 0;
    bool bInEntry = false;
    EntryBuilder builder(0);
    const auto finish = [&] {
        if (bInEntry && builder.isEntry())
            entries.push_back(builder.take());
        bInEntry = false;
    };

    Markup markup(map);
    while (entries.size() < kMostEntries) {
        const auto piece = markup.next();
        if (!piece)
            break;
        const bool bOpening = piece->kind == MarkupPiece::Kind::opening;
        if (piece->kind == MarkupPiece::Kind::text)
            continue;
        if (sameWord(piece->text, "ul")) {
            finish();
            lists = std::clamp(lists + (bOpening ? 1 : -1), 0, kDeepest);
        } else if (sameWord(piece->text, "object")) {
            finish();
            if (!bOpening ||
                !sameWord(attributeValue(piece->attributes, "type").value_or(""), "text/sitemap"))
                continue;
            const int deepest = entries.empty() ? 0 : entries.back().depth + 1;
            builder = EntryBuilder(std::clamp(lists - 1, 0, deepest));
            bInEntry = true;
        } else if (bInEntry && bOpening && sameWord(piece->text, "param")) {
            builder.add(attributeValue(piece->attributes, "name").value_or(""),
                        attributeValue(piece->attributes, "value").value_or(""));
        }
    }
    finish();
    return entries;
}

} // namespace zorvo::help
