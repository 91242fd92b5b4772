#include "help/book/siteMap.h"

#include "tests/help/TestBook.h"

#include <gmock/gmock.h>

namespace zorvo::help {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

std::string object(const std::string& name, const std::string& local)
{
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name +
           "\"><param name=\"Local\" value=\"" + local + "\"></OBJECT>";
}

/// Name, depth and targets of all entries.
std::string outline(const std::string& map)
{
    std::string all;
    for (const SiteMapEntry& entry : readSiteMap(map)) {
        all += std::string(static_cast<std::size_t>(entry.depth), '.') + entry.name;
        for (const SiteMapTopic& topic : entry.topics)
            all += " [" + topic.title + ">" + topic.target + "]";
        all += "\n";
    }
    return all;
}

TEST(SiteMap, EntriesStandAsDeepAsTheirLists)
{
    EXPECT_EQ(outline("<OBJECT type=\"text/site properties\"><param name=\"Name\" value=\"x\"></OBJECT><UL>" +
                      object("A", "a.htm") + "<UL>" + object("B", "b.htm") + "</UL>" + object("C", "c.htm") +
                      "</UL>"),
              "A [A>a.htm]\n.B [B>b.htm]\nC [C>c.htm]\n");
}

TEST(SiteMap, AHeadingHasNoPage)
{
    EXPECT_EQ(outline("<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"Head\">"
                      "<param name=\"ImageNumber\" value=\"1\"></OBJECT><UL>" +
                      object("A", "a.htm") + "</UL></UL>"),
              "Head\n.A [A>a.htm]\n");
}

TEST(SiteMap, AnIndexWordMayHaveSeveralPages)
{
    EXPECT_EQ(
        outline("<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"word\">"
                "<param name=\"Name\" value=\"First\"><param name=\"Local\" value=\"1.htm\">"
                "<param name=\"Name\" value=\"Second\"><param name=\"Local\" value=\"2.htm\"></OBJECT>"),
        "word [First>1.htm] [Second>2.htm]\n");
}

TEST(SiteMap, AnAddressOnTheWebStandsInForAMissingPageAlone)
{
    EXPECT_EQ(
        outline("<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"W\">"
                "<param name=\"URL\" value=\"http://x\"></OBJECT>"
                "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"P\">"
                "<param name=\"Local\" value=\"p.htm\"><param name=\"URL\" value=\"http://x\"></OBJECT>"),
        "W [W>http://x]\nP [P>p.htm]\n");
}

TEST(SiteMap, SeeAlsoNamesAnotherWord)
{
    const auto entries = readSiteMap("<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"a\">"
                                     "<param name=\"See Also\" value=\"b\"></OBJECT>");
    ASSERT_THAT(entries, SizeIs(1));
    EXPECT_EQ(entries[0].seeAlso, "b");
}

TEST(SiteMap, UnclosedListsAndObjectsAreBorne)
{
    EXPECT_EQ(outline("<UL><UL><UL>" + object("A", "a") +
                      "<LI><OBJECT type=\"text/sitemap\">"
                      "<param name=\"Name\" value=\"B\">"),
              "A [A>a]\n.B\n");
    EXPECT_EQ(outline("</UL></UL></UL>" + object("A", "a")), "A [A>a]\n");
}

TEST(SiteMap, AnEntryWithoutANameIsNone)
{
    EXPECT_EQ(outline("<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Local\" value=\"a\"></OBJECT>"),
              "");
    EXPECT_EQ(outline("<UL><param name=\"Name\" value=\"outside\"></UL>"), "");
    EXPECT_THAT(readSiteMap(""), IsEmpty());
    EXPECT_THAT(readSiteMap(std::string("\0\xff<", 3)), IsEmpty());
}

TEST(SiteMap, DepthAndNumberAndTextsAreBounded)
{
    std::string map;
    for (int i = 0; i < 100; ++i)
        map += "<UL>" + object("x", "y");
    EXPECT_EQ(readSiteMap(map).back().depth, 31);

    std::string many = "<UL>";
    for (int i = 0; i < 60000; ++i)
        many += object("x", "y");
    EXPECT_THAT(readSiteMap(many), SizeIs(50000));

    const auto entries = readSiteMap("<UL>" + object(std::string(100000, 'n'), std::string(100000, 't')));
    EXPECT_THAT(entries[0].name, SizeIs(1024));
    EXPECT_THAT(entries[0].topics[0].target, SizeIs(1024));
}

} // namespace
} // namespace zorvo::help
