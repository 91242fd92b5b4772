#include "platform/linux/filesearch/LinuxFileSearch.h"

#include "base/RunTimeError.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/sanitizers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class LinuxFileSearchTest : public testing::Test {
protected:
    LinuxFileSearchTest()
    {
        fs::create_directories(folder / "dosdevices");
        fs::create_directories(folder / "lib");
        fs::create_symlink(folder.path(), folder / "dosdevices/c:");
    }

    /// A file that was changed long ago, unless `nAge` says something else.
    void add(const std::string& sName, const std::string& sBytes, long nAge = 1'000)
    {
        putFile(folder / ("lib/" + sName), sBytes);
        setTime(sName, time(nullptr) - nAge);
    }

    void setTime(const std::string& sName, time_t seconds)
    {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, (folder / ("lib/" + sName)).c_str(), times, 0), 0);
    }

    std::vector<std::string> find(const std::string& sText, const std::string& sPattern = "*.rtf")
    {
        std::vector<std::string> names;
        for (const std::string& sPath :
             LinuxFileSearch(DosPaths(folder.path()), sCache).find({"C:\\lib", sText, sPattern}, {}))
            names.push_back(sPath.substr(sPath.rfind('\\') + 1));
        return names;
    }

    /// The most that this process has ever held, in kilobytes.
    static long mostMemory()
    {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    }

    TemporaryFolder folder;
    std::string sCache = folder / "cache/search.db";
};

TEST_F(LinuxFileSearchTest, AFileThatHasNotChangedIsNotReadAgain)
{
    add("a.rtf", "{\\rtf1 cash}");
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
    const auto time = fs::last_write_time(folder / "lib/a.rtf");
    putFile(folder / "lib/a.rtf", "{\\rtf1 debt}"); // of the same size and, by force, the same time
    fs::last_write_time(folder / "lib/a.rtf", time);
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
    fs::remove(sCache);
    EXPECT_THAT(find("cash"), IsEmpty());
}

TEST_F(LinuxFileSearchTest, AnotherTimeOrAnotherSizeIsAnotherText)
{
    add("a.rtf", "{\\rtf1 cash}");
    add("b.rtf", "{\\rtf1 cash}");
    find("cash");
    add("a.rtf", "{\\rtf1 debt}", 500);
    const auto time = fs::last_write_time(folder / "lib/b.rtf");
    putFile(folder / "lib/b.rtf", "{\\rtf1 equity}");
    fs::last_write_time(folder / "lib/b.rtf", time);
    EXPECT_THAT(find("cash"), IsEmpty());
    EXPECT_THAT(find("debt"), ElementsAre("a.rtf"));
    EXPECT_THAT(find("equity"), ElementsAre("b.rtf"));
}

TEST_F(LinuxFileSearchTest, AFileThatHasJustChangedIsNotKept)
{
    add("a.rtf", "{\\rtf1 cash}");
    putFile(folder / "lib/new.rtf", "{\\rtf1 cash}");
    EXPECT_THAT(find("cash"), SizeIs(2));
    std::vector<std::string> kept;
    const std::string sKey = folder / "lib" + std::string(1, '\0') + "*.RTF";
    for (const SearchPack& pack : SearchCache(sCache).load(sKey))
        for (const SearchedFile& one : pack.files)
            if (one.file.nModified > 0)
                kept.push_back(one.file.sName);
    EXPECT_THAT(kept, ElementsAre("a.rtf"));
}

TEST_F(LinuxFileSearchTest, ManyChangesOneByOneLeaveFewPacks)
{
    for (int i = 0; i < 50; ++i) {
        add("f" + std::to_string(i) + ".rtf", "{\\rtf1 cash}");
        EXPECT_THAT(find("cash"), SizeIs(i + 1));
    }
    const std::string sKey = folder / "lib" + std::string(1, '\0') + "*.RTF";
    EXPECT_LE(SearchCache(sCache).load(sKey).size(), 18U);
}

TEST_F(LinuxFileSearchTest, MoreFilesThanAPackTakesAreAllFound)
{
    for (int i = 0; i < 700; ++i)
        add("f" + std::to_string(1000 + i) + ".rtf", i % 3 == 0 ? "{\\rtf1 cash}" : "{\\rtf1 debt}");
    for (int run = 0; run < 2; ++run) {
        const std::vector<std::string> names = find("cash");
        ASSERT_THAT(names, SizeIs(234));
        EXPECT_EQ(names[0], "f1000.rtf");
        EXPECT_EQ(names[1], "f1003.rtf");
        EXPECT_EQ(names[233], "f1699.rtf");
    }
}

TEST_F(LinuxFileSearchTest, WithoutACacheItSearchesAllTheSame)
{
    putFile(folder / "plain", "x");
    sCache = folder / "plain/search.db";
    add("a.rtf", "{\\rtf1 cash}");
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
}

TEST_F(LinuxFileSearchTest, ReadsPlainTextOfEveryUsualCharacterSet)
{
    add("utf8.txt", "caf\u00E9");
    add("mark.txt", "\xEF\xBB\xBF\u00C9t\u00E9 caf\u00E9");
    add("western.txt", "caf\xE9");
    add("little.txt", std::string("\xFF\xFE"
                                  "c\0a\0f\0\xE9\0",
                                  10));
    add("big.txt", std::string("\xFE\xFF"
                               "\0c\0a\0f\0\xE9",
                               10));
    add("binary.txt", std::string("caf\xE9\0\1", 6));
    EXPECT_THAT(find("caf\u00E9", "*.txt"),
                ElementsAre("big.txt", "little.txt", "mark.txt", "utf8.txt", "western.txt"));
    EXPECT_THAT(find("\u00E9t\u00E9", "*.txt"), ElementsAre("mark.txt"));
}

TEST_F(LinuxFileSearchTest, ACharacterAtTheEdgeOfAPieceStaysWhole)
{
    for (std::size_t n = 0; n < 4; ++n)
        add("f" + std::to_string(n) + ".txt",
            std::string((256U << 10U) - 3 - n, ' ') + "caf\u00E9\U0001F400caf\u00E9 end");
    EXPECT_THAT(find("caf\u00E9 end", "*.txt"), SizeIs(4));
}

TEST_F(LinuxFileSearchTest, APairOfUtf16AtTheEdgeOfAPieceStaysWhole)
{
    constexpr std::size_t kUnitsOfPiece = (256U << 10U) / 2;
    for (const std::size_t nBefore : {kUnitsOfPiece - 3, kUnitsOfPiece - 2, kUnitsOfPiece - 1}) {
        std::u16string text = u"\uFEFFbond" + std::u16string(nBefore - 5, u' ') + u"\U00010400cash";
        std::string little;
        std::string big;
        for (const char16_t unit : text) {
            const auto low = static_cast<char>(unit & 0xFFU);
            const auto high = static_cast<char>(unit >> 8U);
            little.append({low, high});
            big.append({high, low});
        }
        add("little" + std::to_string(nBefore) + ".txt", little);
        add("big" + std::to_string(nBefore) + ".txt", big);
    }
    EXPECT_THAT(find("bond \U00010400cash", "*.txt"), SizeIs(6));
}

TEST_F(LinuxFileSearchTest, ABrokenPairOfUtf16LosesNoOtherWord)
{
    add("broken.txt", std::string("\xFF\xFE"
                                  "c\0a\0s\0h\0 \0\x00\xD8 \0d\0u\0e\0\x01",
                                  23));
    EXPECT_THAT(find("cash due", "*.txt"), ElementsAre("broken.txt"));
}

TEST_F(LinuxFileSearchTest, GoesByTheContentNotByTheName)
{
    add("a.rtf", "cash in plain text");
    add("b.doc", "{\\rtf1 cash\\'e9}");
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
    EXPECT_THAT(find("cash\u00E9", "*.doc"), ElementsAre("b.doc"));
}

TEST_F(LinuxFileSearchTest, AFileThatCannotBeReadIsPassedOver)
{
    add("a.rtf", "{\\rtf1 cash}");
    fs::create_symlink("nowhere", folder / "lib/b.rtf");
    fs::create_directory(folder / "lib/c.rtf");
    ASSERT_EQ(mkfifo((folder / "lib/d.rtf").c_str(), 0600), 0);
    EXPECT_THAT(find("cash"), ElementsAre("a.rtf"));
    EXPECT_THAT(find(" "), ElementsAre("a.rtf"));
}

TEST_F(LinuxFileSearchTest, AFileWithTooManyWordsToKeepIsComparedEachTime)
{
    std::string sText = "{\\rtf1 ";
    for (int i = 0; i < 120'000; ++i)
        sText += "w" + std::to_string(i) + ' ';
    add("rich.rtf", sText + "last}");
    add("a.rtf", "{\\rtf1 last}");
    for (int run = 0; run < 2; ++run) {
        EXPECT_THAT(find("w119999 last"), ElementsAre("rich.rtf"));
        EXPECT_THAT(find("last"), ElementsAre("a.rtf", "rich.rtf"));
        EXPECT_THAT(find("w120000"), IsEmpty());
    }
}

TEST_F(LinuxFileSearchTest, ReadsAFileOf200MegabytesInBoundedMemory)
{
    constexpr std::size_t kSize = std::size_t(kSanitized ? 20 : 200) << 20U;
    const std::string sPiece = "\\pard Notes to financial statements {\\b with} pictures.\\par\r\n";
    {
        const int file = open((folder / "lib/big.rtf").c_str(), O_WRONLY | O_CREAT, 0600);
        std::string sBlock;
        while (sBlock.size() < (std::size_t(1) << 20U))
            sBlock += sPiece;
        ASSERT_EQ(write(file, "{\\rtf1 ", 7), 7);
        for (std::size_t n = 0; n < kSize; n += sBlock.size())
            ASSERT_EQ(write(file, sBlock.data(), sBlock.size()), static_cast<ssize_t>(sBlock.size()));
        ASSERT_EQ(write(file, "zebra}", 6), 6);
        close(file);
    }
    setTime("big.rtf", time(nullptr) - 1'000);
    const long nBefore = mostMemory();
    EXPECT_THAT(find("zebra notes"), ElementsAre("big.rtf"));
    EXPECT_THAT(find("zebra lion"), IsEmpty());
    EXPECT_LT(mostMemory() - nBefore, 60L << 10U);
}

TEST_F(LinuxFileSearchTest, TellsItsProgressAndServesItsCaller)
{
    for (int i = 0; i < 40; ++i)
        add("f" + std::to_string(i) + ".rtf", "{\\rtf1 " + std::string(1'000'000, 'x') + "}");
    LinuxFileSearch search(DosPaths(folder.path()), sCache);
    std::size_t nCalls = 0;
    std::size_t nLastDone = 0;
    search.find({"C:\\lib", "cash", "*.rtf"}, [&](std::size_t nDone, std::size_t nFiles) {
        ++nCalls;
        EXPECT_GE(nDone, nLastDone);
        EXPECT_LE(nDone, 40U);
        EXPECT_TRUE(nFiles == 0 || nFiles == 40U);
        nLastDone = nDone;
    });
    EXPECT_GT(nCalls, 0U);
}

TEST_F(LinuxFileSearchTest, AFailureOfTheCallerEndsTheSearch)
{
    for (int i = 0; i < 40; ++i)
        add("f" + std::to_string(i) + ".rtf", "{\\rtf1 " + std::string(1'000'000, 'x') + "}");
    LinuxFileSearch search(DosPaths(folder.path()), sCache);
    EXPECT_THROW(search.find({"C:\\lib", "cash", "*.rtf"},
                             [](std::size_t, std::size_t) { throw RunTimeError(kInvalidCall); }),
                 RunTimeError);
    EXPECT_FALSE(fs::exists(sCache) && fs::file_size(sCache) > 1'000'000);
}

TEST_F(LinuxFileSearchTest, WithoutAnOfficeItsFormatsAreAskedFor)
{
    const ScopedEnvironment office("ZORVOBRENDLE_OFFICE_DIR", "/nowhere");
    add("a.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and more");
    try {
        find("cash", "*.doc");
        FAIL() << "nothing was thrown";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kCannotCreateObject);
        EXPECT_THAT(error.description(), testing::HasSubstr("LibreOffice"));
    }
    EXPECT_THAT(find("cash"), IsEmpty());
}

} // namespace
} // namespace zorvo
