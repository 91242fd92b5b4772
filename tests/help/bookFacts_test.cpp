#include "help/book/BookFacts.h"

#include "tests/help/TestBook.h"

#include <gmock/gmock.h>

namespace zorvo::help {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

std::string entry(unsigned code, const std::string& data)
{
    return u16(code) + u16(static_cast<std::uint32_t>(data.size())) + data;
}

/// A window's settings with these places in #STRINGS.
std::string window(std::uint32_t name, std::uint32_t title, std::uint32_t contents, std::uint32_t index,
                   std::uint32_t topic, std::size_t size = 0xc4)
{
    std::string settings(size, '\0');
    const auto put = [&settings](std::size_t place, std::uint32_t value) {
        if (place + 4 <= settings.size())
            settings.replace(place, 4, u32(value));
    };
    put(0x00, static_cast<std::uint32_t>(size));
    put(0x08, name);
    put(0x14, title);
    put(0x60, contents);
    put(0x64, index);
    put(0x68, topic);
    return settings;
}

const std::string kStrings("\0main\0Title\0a.hhc\0a.hhk\0a.htm\0other\0", 37);

TEST(BookFacts, TheSystemRecordTellsFilesTitleAndLanguage)
{
    BookRecords records;
    records.system = u32(3) + entry(0, std::string("c.hhc\0", 6)) + entry(1, std::string("i.hhk\0", 6)) +
                     entry(2, std::string("s.htm\0", 6)) + entry(3, std::string("A title\0", 8)) +
                     entry(99, "unknown") + entry(4, u32(0x407) + std::string(32, '\0'));
    const BookFacts facts = readFacts(records);
    EXPECT_EQ(facts.contentsFile, "c.hhc");
    EXPECT_EQ(facts.indexFile, "i.hhk");
    EXPECT_EQ(facts.defaultTopic, "s.htm");
    EXPECT_EQ(facts.title, "A title");
    EXPECT_EQ(facts.language, 0x407U);
    EXPECT_THAT(facts.topics, IsEmpty());
}

TEST(BookFacts, TheWindowOfTheBookWinsOverTheSystemRecord)
{
    BookRecords records;
    records.strings = kStrings;
    records.system = u32(3) + entry(3, std::string("Old\0", 4)) + entry(5, std::string("main\0", 5));
    records.windows = u32(2) + u32(0xc4) + window(30, 30, 30, 30, 30) + window(1, 6, 12, 18, 24);
    const BookFacts facts = readFacts(records);
    EXPECT_EQ(facts.title, "Title");
    EXPECT_EQ(facts.contentsFile, "a.hhc");
    EXPECT_EQ(facts.indexFile, "a.hhk");
    EXPECT_EQ(facts.defaultTopic, "a.htm");
}

TEST(BookFacts, WithoutANamedWindowTheFirstOneCounts)
{
    BookRecords records;
    records.strings = kStrings;
    records.windows = u32(1) + u32(0xbc) + window(1, 6, 12, 18, 24, 0xbc);
    EXPECT_EQ(readFacts(records).title, "Title");
}

TEST(BookFacts, AWindowWithoutATextLeavesTheSystemRecords)
{
    BookRecords records;
    records.strings = kStrings;
    records.system = u32(3) + entry(3, std::string("Kept\0", 5));
    records.windows = u32(1) + u32(0xc4) + window(1, 0, 0, 0, 0);
    EXPECT_EQ(readFacts(records).title, "Kept");
}

TEST(BookFacts, NumberedTopicsAreTakenFromTheirRecord)
{
    BookRecords records;
    records.strings = kStrings;
    records.numbers = u32(16) + u32(1) + u32(24) + u32(70000) + u32(30);
    EXPECT_THAT(readFacts(records).topics, ElementsAre(Pair(1U, "a.htm"), Pair(70000U, "other")));
}

TEST(BookFacts, ALengthThatIsWrongDoesntMatter)
{
    BookRecords records;
    records.strings = kStrings;
    records.numbers = u32(0xffffffff) + u32(1) + u32(24) + std::string("\1\2\3", 3);
    EXPECT_THAT(readFacts(records).topics, ElementsAre(Pair(1U, "a.htm")));
}

TEST(BookFacts, PlacesOutsideTheTextsAreNoTopics)
{
    BookRecords records;
    records.strings = kStrings;
    records.numbers = u32(24) + u32(1) + u32(0xffffffff) + u32(2) + u32(37) + u32(3) + u32(24);
    EXPECT_THAT(readFacts(records).topics, ElementsAre(Pair(3U, "a.htm")));
}

TEST(BookFacts, ATextWithoutItsZeroEndsWithItsRecord)
{
    BookRecords records;
    records.strings = std::string("\0abc", 4);
    records.numbers = u32(8) + u32(1) + u32(1);
    EXPECT_THAT(readFacts(records).topics, ElementsAre(Pair(1U, "abc")));
}

TEST(BookFacts, AnEndlessTextIsCutOff)
{
    BookRecords records;
    records.strings = std::string(100000, 'a');
    records.numbers = u32(8) + u32(1) + u32(1);
    EXPECT_THAT(readFacts(records).topics.at(1), SizeIs(1024));
}

TEST(BookFacts, ATruncatedSystemRecordGivesWhatComesBefore)
{
    BookRecords records;
    records.system = u32(3) + entry(3, std::string("Whole\0", 6)) + u16(2) + u16(500) + "cut";
    EXPECT_EQ(readFacts(records).title, "Whole");
    EXPECT_EQ(readFacts(records).defaultTopic, "");
    for (std::size_t size = 0; size < records.system.size(); ++size) {
        BookRecords cut;
        cut.system = records.system.substr(0, size);
        readFacts(cut);
    }
}

TEST(BookFacts, WindowsOfAnAbsurdSizeOrCountAreNoWindows)
{
    BookRecords records;
    records.strings = kStrings;
    for (const std::uint32_t size : {0U, 4U, 0x6bU, 0x7fffffffU, 0xffffffffU}) {
        records.windows = u32(0xffffffff) + u32(size) + window(1, 6, 12, 18, 24);
        EXPECT_EQ(readFacts(records).title, "") << size;
    }
    records.windows = u32(0xffffffff) + u32(0xc4) + window(30, 30, 12, 18, 24);
    EXPECT_EQ(readFacts(records).title, "other") << "the one that is there counts";
}

TEST(BookFacts, CharacterSetsFollowTheLanguage)
{
    EXPECT_EQ(characterSetOf(0x409), "windows-1252");
    EXPECT_EQ(characterSetOf(0x407), "windows-1252");
    EXPECT_EQ(characterSetOf(0x419), "windows-1251");
    EXPECT_EQ(characterSetOf(0x415), "windows-1250");
    EXPECT_EQ(characterSetOf(0x411), "Shift_JIS");
    EXPECT_EQ(characterSetOf(0x804), "GBK");
    EXPECT_EQ(characterSetOf(0x404), "Big5");
    EXPECT_EQ(characterSetOf(0), "windows-1252");
}

} // namespace
} // namespace zorvo::help
