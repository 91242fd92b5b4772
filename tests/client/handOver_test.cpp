#include "client/handOver.h"

#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

namespace zorvo {

class HandOver : public testing::Test {
protected:
    void write(const std::string& sBytes, std::int64_t nModified)
    {
        fakes_.files->addFile(kPath, sBytes);
        fakes_.files->setLastModified(kPath, nModified);
    }

    static constexpr const char* kPath = "C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\DFS_DFK.txt";
    FakePlatform fakes_;
};

TEST_F(HandOver, IsTheLineWithoutItsQuotes)
{
    const HandOverFile file;
    write("\"<a b='c'/> |x|\"\r\n", 5);
    EXPECT_EQ(file.newText(), "<a b='c'/> |x|");
}

TEST_F(HandOver, IsWholeWithLineEndsWithin)
{
    const HandOverFile file;
    write("\"<a>\r\n  <b/>\n</a>\"\r\n", 5);
    EXPECT_EQ(file.newText(), "<a>\r\n  <b/>\n</a>");
}

TEST_F(HandOver, KeepsQuotesThatAreNotThePair)
{
    const HandOverFile file;
    write("\"half\r\n", 5);
    EXPECT_EQ(file.newText(), "\"half");
    write("\"", 6);
    EXPECT_EQ(file.newText(), "\"");
}

TEST_F(HandOver, IsNothingWithoutAFile)
{
    EXPECT_EQ(HandOverFile().newText(), std::nullopt);
}

TEST_F(HandOver, IsNotTheFileOfAnEarlierSession)
{
    write("\"old\"\r\n", 5);
    const HandOverFile file;
    EXPECT_EQ(file.newText(), std::nullopt);
    write("\"new\"\r\n", 6);
    EXPECT_EQ(file.newText(), "new");
}

TEST_F(HandOver, IsNothingWhenTheEarlierFileWasDeleted)
{
    write("\"old\"\r\n", 5);
    const HandOverFile file;
    fakes_.files->remove(kPath);
    EXPECT_EQ(file.newText(), std::nullopt);
}

TEST_F(HandOver, IsNothingWithoutADocumentsFolder)
{
    fakes_.folders->sDocuments.clear();
    EXPECT_EQ(HandOverFile().newText(), std::nullopt);
}

} // namespace zorvo
