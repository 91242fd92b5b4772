#include "help/reader/Container.h"

#include "help/reader/containerChecks.h"
#include "help/reader/serveBook.h"
#include "tests/help/TestBook.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/testFolders.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zorvo::help {
namespace {

using testing::HasSubstr;

const std::string kCompressed = (sourceFolder() / "tests/help/files/compressed.chm").string();

class ContainerTest : public testing::Test {
protected:
    ReaderState checkBytes(const std::string& bytes)
    {
        writeFile(file_, bytes);
        return checkContainer(file_);
    }
    static std::string with(std::string bytes, std::size_t place, const std::string& replaced)
    {
        return bytes.replace(place, replaced.size(), replaced);
    }
    static std::string read(Container& book, const std::string& path)
    {
        std::string bytes;
        const ReaderState state = book.read(path, bytes);
        return static_cast<char>(state) + bytes;
    }

    TemporaryFolder folder_{TemporaryFolder::Place::memory};
    std::string file_ = folder_ / "book.chm";
    TestBook book_ = TestBook().page("/a.htm", "A", "body").add("/empty", "").contents({{"A", "a.htm"}});
};

constexpr std::size_t kDirectoryAt = 0x78;

TEST_F(ContainerTest, ASoundBookPassesTheChecks)
{
    EXPECT_EQ(checkBytes(book_.bytes()), ReaderState::done);
    EXPECT_EQ(checkContainer(kCompressed), ReaderState::done);
    EXPECT_EQ(checkContainer(sampleBook()), ReaderState::done);
}

TEST_F(ContainerTest, AFileThatIsntThereIsMissing)
{
    EXPECT_EQ(checkContainer(folder_ / "none.chm"), ReaderState::missing);
}

TEST_F(ContainerTest, AnythingElseThanAContainerIsDamaged)
{
    EXPECT_EQ(checkBytes(""), ReaderState::damaged);
    EXPECT_EQ(checkBytes("ITSF"), ReaderState::damaged);
    EXPECT_EQ(checkBytes("<html>" + std::string(5000, 'x')), ReaderState::damaged);
    EXPECT_EQ(checkBytes(std::string(5000, '\0')), ReaderState::damaged);
}

TEST_F(ContainerTest, EveryTruncationOfTheHeadersIsDamaged)
{
    const std::string bytes = book_.bytes();
    for (std::size_t size = 0; size < 0x78 + 0x54 + 4096; size += 61)
        EXPECT_EQ(checkBytes(bytes.substr(0, size)), ReaderState::damaged) << size;
}

TEST_F(ContainerTest, NumbersThatLeadOutOfTheFileAreDamage)
{
    const std::string bytes = book_.bytes();
    const std::pair<std::size_t, std::string> damages[] = {
        {0x04, u32(4)},                            // a version that isn't known
        {0x48, u32(0xffffffff) + u32(0xffffffff)}, // directory far outside
        {0x50, u32(0xffffffff) + u32(0xffffffff)}, // and endless
        {0x50, u32(0x10)},                         // or shorter than its header
        {0x58, u32(0xffffffff) + u32(0x7fffffff)}, // content outside
        {kDirectoryAt, "XXXX"},                    // no directory
        {kDirectoryAt + 0x08, u32(0xffffffff)},    // its header's size
        {kDirectoryAt + 0x10, u32(0)},             // blocks of nothing
        {kDirectoryAt + 0x10, u32(0x80000000U)},   // giant blocks
        {kDirectoryAt + 0x1c, u32(7)},             // a root that isn't there
        {kDirectoryAt + 0x20, u32(1)},             // a first block that isn't there
        {kDirectoryAt + 0x20, u32(0x80000000U)},   // a negative one
        {kDirectoryAt + 0x2c, u32(0x40000000U)},   // more blocks than bytes
        {kDirectoryAt + 0x2c, u32(0)},             // none at all
    };
    for (const auto& [place, replaced] : damages)
        EXPECT_EQ(checkBytes(with(bytes, place, replaced)), ReaderState::damaged) << std::hex << place;
}

TEST_F(ContainerTest, FilesAreReadWithoutRegardToCase)
{
    book_.write(file_);
    const auto opened = Container::open(file_);
    ASSERT_TRUE(opened);
    EXPECT_THAT(read(*opened, "/A.HTM"), HasSubstr("body"));
    EXPECT_EQ(read(*opened, "/empty"), "d");
    EXPECT_EQ(read(*opened, "/none.htm"), "m");
    EXPECT_EQ(read(*opened, ""), "m");
    EXPECT_EQ(read(*opened, std::string(100000, 'x')), "m");
    EXPECT_EQ(read(*opened, std::string("/a.htm\0x", 8)), "m");
}

TEST_F(ContainerTest, CompressedFilesAreReadToTheLastByte)
{
    const auto opened = Container::open(kCompressed);
    ASSERT_TRUE(opened);
    std::string expected = "<html><head><title>Long</title></head><body>\n";
    for (int row = 0; row < 4000; ++row)
        expected += "<p>Row " + std::to_string(row) + ": the quick brown fox jumps over the lazy dog " +
                    std::to_string(row * row) + ".</p>\n";
    expected += "</body></html>\n";
    EXPECT_EQ(read(*opened, "/long.htm"), "d" + expected);
}

TEST_F(ContainerTest, TheListHoldsTheFilesAndNotTheContainersOwn)
{
    book_.write(file_);
    const auto opened = Container::open(file_);
    std::string paths;
    EXPECT_EQ(opened->list(paths), ReaderState::done);
    EXPECT_EQ(paths, "/a.htm\n/empty\n/toc.hhc\n");
}

TEST_F(ContainerTest, AFileThatIsCutOffIsDamaged)
{
    const std::string bytes = book_.bytes();
    writeFile(file_, bytes.substr(0, bytes.size() - 10));
    const auto opened = Container::open(file_);
    ASSERT_TRUE(opened);
    EXPECT_EQ(read(*opened, "/toc.hhc"), "x");
    EXPECT_EQ(read(*opened, "/a.htm").front(), 'd') << "what is there is read";
}

TEST_F(ContainerTest, RequestsAreAnsweredInOrder)
{
    book_.write(file_);
    std::string steps;
    std::istringstream requests("R" + u32(6) + "/empty" + "R" + u32(5) + "/none" + "L" + u32(0));
    std::ostringstream answers;
    const int nCode =
        serveBook(file_, requests, answers, {[&] { steps += "reading "; }, [&] { steps += "open"; }});
    EXPECT_EQ(nCode, 0);
    const std::string paths = "/a.htm\n/empty\n/toc.hhc\n";
    EXPECT_EQ(answers.str(), "d" + u32(0) + "d" + u32(0) + "m" + u32(0) + "d" +
                                 u32(static_cast<std::uint32_t>(paths.size())) + paths);
    EXPECT_EQ(steps, "reading open");
}

TEST_F(ContainerTest, ABookThatCantBeOpenedIsToldAndThatIsAll)
{
    std::istringstream requests("L" + u32(0));
    std::ostringstream answers;
    EXPECT_EQ(serveBook(folder_ / "none", requests, answers, {[] {}, [] {}}), 0);
    EXPECT_EQ(answers.str(), "m" + u32(0));
}

TEST_F(ContainerTest, ARequestBeyondBoundsEndsTheReader)
{
    book_.write(file_);
    std::istringstream requests("R" + u32(0xffffffff));
    std::ostringstream answers;
    EXPECT_EQ(serveBook(file_, requests, answers, {[] {}, [] {}}), 1);
}

} // namespace
} // namespace zorvo::help
