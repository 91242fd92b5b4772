#include "platform/linux/filesearch/OfficeTexts.h"

#include "base/RunTimeError.h"
#include "platform/linux/filesearch/LinuxFileSearch.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

/// Does as the office does when it converts files, and as badly as their content asks it to.
constexpr const char* kOffice = R"sh(#!/bin/sh
while [ "$(ulimit -v)" = unlimited ]; do sleep 0.01; done
echo run >> "$OFFICE_RUNS"
while [ "$1" != --outdir ]; do shift; done
out=$2
shift 2
for file; do
    name=${file##*/}
    case $(tr -d '\000' < "$file") in
    *CRASH*) kill -9 $$ ;;
    *HANG*) exec sleep 100 ;;
    *BAD*) echo "Error: source file could not be loaded" ;;
    *) { printf '{\\rtf1 '; tail -c +9 "$file"; printf '}'; } > "$out/${name%.*}.rtf" ;;
    esac
done
)sh";

class OfficeTextsTest : public testing::Test {
protected:
    OfficeTextsTest()
    {
        fs::create_directories(folder / "office");
        fs::create_directories(folder / "lib");
        fs::create_directories(folder / "dosdevices");
        fs::create_symlink(folder.path(), folder / "dosdevices/c:");
        putFile(folder / "office/libswlo.so", "");
        provideOffice(kOffice);
    }

    void provideOffice(const std::string& sScript)
    {
        putFile(folder / "office/soffice.bin", sScript);
        chmod((folder / "office/soffice.bin").c_str(), 0755);
    }

    void add(const std::string& sName, const std::string& sText)
    {
        putFile(folder / ("lib/" + sName), kCompoundFile + sText);
        const timespec times[2] = {{1'700'000'000, 0}, {1'700'000'000, 0}};
        utimensat(AT_FDCWD, (folder / ("lib/" + sName)).c_str(), times, 0);
    }

    std::vector<std::string> find(const std::string& sText)
    {
        std::vector<std::string> names;
        for (const std::string& sPath : LinuxFileSearch(DosPaths(folder.path()), folder / "cache/search.db")
                                            .find({"C:\\lib", sText, "*.doc"}, {}))
            names.push_back(sPath.substr(sPath.rfind('\\') + 1));
        return names;
    }

    std::size_t runs() const
    {
        const std::string sRuns = fs::exists(folder / "runs") ? fileBytes(folder / "runs") : "";
        return sRuns.size() / 4;
    }

    TemporaryFolder folder;
    ScopedEnvironment office{"ZORVOBRENDLE_OFFICE_DIR", folder / "office"};
    ScopedEnvironment cache{"XDG_CACHE_HOME", folder / "cache"};
    ScopedEnvironment runFile{"OFFICE_RUNS", folder / "runs"};
};

TEST_F(OfficeTextsTest, FindsWordsInTheOfficesFormatsWithOneProcessForAll)
{
    for (int i = 0; i < 30; ++i)
        add(std::to_string(100 + i) + ".doc", i % 10 == 0 ? "petty cash" : "debt");
    add("odd name $(x) '\".doc", "petty cash");
    EXPECT_THAT(find("cash"), ElementsAre("100.doc", "110.doc", "120.doc", "odd name $(x) '\".doc"));
    EXPECT_EQ(runs(), 1U);
}

TEST_F(OfficeTextsTest, WhatWasTakenOutIsKept)
{
    add("a.doc", "cash");
    add("b.doc", "BAD");
    EXPECT_THAT(find("cash"), ElementsAre("a.doc"));
    EXPECT_THAT(find("cash"), ElementsAre("a.doc"));
    EXPECT_EQ(runs(), 1U);
}

TEST_F(OfficeTextsTest, AFileThatTheOfficeCannotReadIsPassedOver)
{
    add("a.doc", "cash");
    add("b.doc", "BAD cash");
    add("c.doc", "cash");
    EXPECT_THAT(find("cash"), ElementsAre("a.doc", "c.doc"));
    EXPECT_THAT(find(" "), ElementsAre("a.doc", "c.doc"));
}

TEST_F(OfficeTextsTest, AFileThatCrashesTheOfficeCostsNoOther)
{
    add("a.doc", "cash");
    add("b.doc", "CRASH cash");
    add("c.doc", "cash");
    add("d.doc", "CRASH cash");
    add("e.doc", "cash");
    EXPECT_THAT(find("cash"), ElementsAre("a.doc", "c.doc", "e.doc"));
    const std::size_t nRuns = runs();
    EXPECT_THAT(find("cash"), ElementsAre("a.doc", "c.doc", "e.doc"));
    EXPECT_EQ(runs(), nRuns);
}

TEST_F(OfficeTextsTest, AnOfficeThatStandsStillIsEndedAndItsFilePassedOver)
{
    add("a.doc", "cash");
    add("b.doc", "HANG");
    add("c.doc", "cash");
    std::vector<bool> readable;
    takeOfficeTexts(
        {folder / "lib/a.doc", folder / "lib/b.doc", folder / "lib/c.doc"},
        [&](std::size_t i, const std::optional<std::string>& sTextFile) {
            EXPECT_EQ(i, readable.size());
            readable.push_back(sTextFile.has_value());
        },
        [] { return false; }, std::chrono::milliseconds(700));
    EXPECT_THAT(readable, ElementsAre(true, false, true));
}

TEST_F(OfficeTextsTest, ACancelledRunEndsItsOffice)
{
    add("a.doc", "HANG");
    int nAsked = 0;
    std::size_t nTaken = 0;
    takeOfficeTexts(
        {folder / "lib/a.doc"}, [&](std::size_t, const auto&) { ++nTaken; },
        [&nAsked] { return ++nAsked > 5; });
    EXPECT_EQ(nTaken, 0U);
}

TEST_F(OfficeTextsTest, AnOfficeThatAlwaysFailsIsTold)
{
    for (int i = 0; i < 40; ++i)
        add(std::to_string(100 + i) + ".doc", "CRASH");
    EXPECT_THROW(find("cash"), RunTimeError);
}

TEST_F(OfficeTextsTest, NothingOfItsFilesIsLeft)
{
    add("a.doc", "cash");
    find("cash");
    for (const auto& entry : fs::directory_iterator(folder / "cache/zorvobrendle/office"))
        EXPECT_FALSE(entry.is_directory()) << entry.path();
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder / "lib"))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, ElementsAre("a.doc"));
}

} // namespace
} // namespace zorvo
