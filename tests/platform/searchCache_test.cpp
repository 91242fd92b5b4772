#include "platform/linux/filesearch/SearchCache.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/childProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace zorvo {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class SearchCacheTest : public testing::Test {
protected:
    static SearchPack packOf(const std::string& sName, const std::string& sWords = "words")
    {
        SearchPack pack;
        pack.files.push_back({{sName, 20'000, 1'700'000'000'123'456'789}, SearchedFile::Kind::indexed});
        pack.files.push_back({{sName + "2", 0, -5}, SearchedFile::Kind::tooRich});
        pack.sWords = sWords;
        return pack;
    }

    std::vector<std::string> names(const std::string& sKey, const SearchCache& from)
    {
        std::vector<std::string> result;
        for (const SearchPack& pack : from.load(sKey))
            result.push_back(pack.files.at(0).file.sName);
        return result;
    }

    TemporaryFolder folder;
    std::string sFile = folder / "cache/zorvobrendle/search.db";
    SearchCache cache{sFile};
};

TEST_F(SearchCacheTest, GivesBackWhatWasPutIn)
{
    const std::string sWords("w\0\xFF", 3);
    cache.change("key", {}, {packOf("a.rtf", sWords)});
    const std::vector<SearchPack> packs = SearchCache(sFile).load("key");
    ASSERT_THAT(packs, SizeIs(1));
    EXPECT_EQ(packs[0].sWords, sWords);
    ASSERT_THAT(packs[0].files, SizeIs(2));
    EXPECT_EQ(packs[0].files[0].file, (FolderFile{"a.rtf", 20'000, 1'700'000'000'123'456'789}));
    EXPECT_EQ(packs[0].files[0].kind, SearchedFile::Kind::indexed);
    EXPECT_EQ(packs[0].files[1].file.nModified, -5);
    EXPECT_EQ(packs[0].files[1].kind, SearchedFile::Kind::tooRich);
}

TEST_F(SearchCacheTest, KeepsTheKeysApart)
{
    cache.change("one", {}, {packOf("a")});
    cache.change("two", {}, {packOf("b"), packOf("c")});
    EXPECT_THAT(names("one", cache), testing::ElementsAre("a"));
    EXPECT_THAT(names("two", cache), testing::ElementsAre("b", "c"));
    EXPECT_THAT(names("three", cache), IsEmpty());
}

TEST_F(SearchCacheTest, TakesOutdatedPacksOut)
{
    cache.change("key", {}, {packOf("a"), packOf("b")});
    const std::vector<SearchPack> packs = cache.load("key");
    cache.change("key", {packs[0].nId}, {packOf("c")});
    EXPECT_THAT(names("key", cache), testing::ElementsAre("b", "c"));
}

TEST_F(SearchCacheTest, StaysBelowItsNumberOfBytesAndDropsTheOldest)
{
    const SearchCache small(sFile, 10'000);
    const std::string sWords(3'000, 'w');
    for (const char* key : {"1", "2", "3", "4", "5"})
        small.change(key, {}, {packOf("a", sWords)});
    EXPECT_THAT(names("1", small), IsEmpty());
    EXPECT_THAT(names("2", small), IsEmpty());
    EXPECT_THAT(names("3", small), SizeIs(1));
    EXPECT_THAT(names("5", small), SizeIs(1));
    small.change("6", {}, {packOf("a", std::string(20'000, 'w'))});
    EXPECT_THAT(names("6", small), IsEmpty());
}

TEST_F(SearchCacheTest, IsForThisUserAlone)
{
    cache.change("key", {}, {packOf("a")});
    struct stat status {};
    ASSERT_EQ(stat((folder / "cache/zorvobrendle").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(SearchCacheTest, ADamagedFileIsMadeAnew)
{
    cache.change("key", {}, {packOf("a", std::string(500'000, 'w'))});
    const std::string sBytes = fileBytes(sFile);
    for (const std::string& sDamaged : {std::string("no database"), std::string(), std::string(100'000, '\0'),
                                        sBytes.substr(0, sBytes.size() / 2)}) {
        putFile(sFile, sDamaged);
        EXPECT_THAT(cache.load("key"), IsEmpty());
        cache.change("key", {}, {packOf("b")});
        EXPECT_THAT(names("key", cache), testing::ElementsAre("b"));
    }
}

TEST_F(SearchCacheTest, DamageInsideIsNotTakenForWords)
{
    cache.change("key", {}, {packOf("a", std::string(500'000, 'w')), packOf("b")});
    std::string sBytes = fileBytes(sFile);
    const std::size_t at = sBytes.find(std::string(1'000, 'w'));
    ASSERT_NE(at, std::string::npos);
    sBytes[at + 10] = 'x';
    putFile(sFile, sBytes);
    EXPECT_THAT(names("key", cache), testing::ElementsAre("b"));
}

TEST_F(SearchCacheTest, AFileOfAnotherFormatIsMadeAnew)
{
    cache.change("key", {}, {packOf("a")});
    std::string sBytes = fileBytes(sFile);
    sBytes[63] = 99; // the lowest byte of the user version
    putFile(sFile, sBytes);
    EXPECT_THAT(cache.load("key"), IsEmpty());
    cache.change("key", {}, {packOf("b")});
    EXPECT_THAT(names("key", cache), testing::ElementsAre("b"));
}

TEST_F(SearchCacheTest, WhereNothingCanBeWrittenItHasNothing)
{
    putFile(folder / "plain", "x");
    const SearchCache nowhere(folder / "plain/search.db");
    nowhere.change("key", {}, {packOf("a")});
    EXPECT_THAT(nowhere.load("key"), IsEmpty());
    std::filesystem::create_directories(folder / "taken/search.db");
    const SearchCache taken(folder / "taken/search.db");
    taken.change("key", {}, {packOf("a")});
    EXPECT_THAT(taken.load("key"), IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(folder / "taken/search.db"));
}

TEST_F(SearchCacheTest, TwoProcessesLoseNothingOfEachOther)
{
    constexpr int kPacks = 30;
    const auto fill = [this](const std::string& sKey) {
        for (int i = 0; i < kPacks; ++i) {
            cache.change(sKey, {}, {packOf(sKey + std::to_string(i))});
            cache.load(sKey);
        }
        return 0;
    };
    ChildProcess one([&] { return fill("one"); });
    ChildProcess two([&] { return fill("two"); });
    EXPECT_EQ(one.result(), 0);
    EXPECT_EQ(two.result(), 0);
    EXPECT_THAT(cache.load("one"), SizeIs(kPacks));
    EXPECT_THAT(cache.load("two"), SizeIs(kPacks));
}

TEST_F(SearchCacheTest, AProcessKilledWhileItWritesDamagesNothing)
{
    cache.change("key", {}, {packOf("a")});
    ChildProcess writer([this]() -> int {
        ualarm(100'000, 0); // its signal ends the process
        for (;;)
            cache.change("other", {}, {packOf("b", std::string(200'000, 'w'))});
    });
    EXPECT_EQ(writer.result(), -SIGALRM);
    EXPECT_THAT(names("key", cache), testing::ElementsAre("a"));
}

} // namespace
} // namespace zorvo
