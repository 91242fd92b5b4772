#include "platform/FileSearch.h"

#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "tests/office/TestDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

/// The search of files in the formats that the office alone reads.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class OfficeFileSearch : public testing::Test {
protected:
    /// The office's own file made of rich text.
    void add(const std::string& sName, const std::string& sRichText) const
    {
        const fs::path source = folder / (sName + ".source.rtf");
        std::ofstream(source) << "{\\rtf1\\ansi " << sRichText << "\\par}";
        const auto word = office->createWord();
        word->documentsOpen(dos(source));
        word->activeDocument()->saveAs(dos(folder / sName), 0);
        word->activeDocument()->close();
        word->quit();
        fs::remove(source);
    }

    std::vector<std::string> find(const std::string& sText) const
    {
        std::vector<std::string> names;
        for (const std::string& sPath : platform().fileSearch->find({dos(folder), sText, "*.doc"}, {}))
            names.push_back(sPath.substr(sPath.rfind('\\') + 1));
        return names;
    }

    TestDesk& desk = TestDesk::instance();
    std::shared_ptr<Office> office = makeLibreOffice();
    const fs::path folder = desk.newFolder();
};

TEST_F(OfficeFileSearch, FindsWordsOfTextTablesAndNotesButNoHiddenOnes)
{
    add("text.doc", "Petty caf\\'e9 {\\v secret} cash{\\footnote remark}");
    add("table.doc", "\\trowd\\cellx2000\\cellx4000\\intbl Debt\\cell cash\\cell\\row\\pard");
    EXPECT_THAT(find("cash"), ElementsAre("table.doc", "text.doc"));
    EXPECT_THAT(find("CAF\u00C9 remark"), ElementsAre("text.doc"));
    EXPECT_THAT(find("secret"), IsEmpty());
}

TEST_F(OfficeFileSearch, BrokenFilesCostNoOther)
{
    add("good.doc", "cash");
    const std::string sBytes = bytesOf(folder / "good.doc");
    std::ofstream(folder / "cut.doc") << sBytes.substr(0, sBytes.size() / 3);
    std::ofstream(folder / "noise.doc") << sBytes.substr(0, 8) << std::string(5'000, '\x5A');
    EXPECT_THAT(find("cash"), ElementsAre("good.doc"));
}

TEST_F(OfficeFileSearch, TheSecondSearchNeedsNoOffice)
{
    add("a.doc", "cash");
    fs::last_write_time(folder / "a.doc", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_THAT(find("cash"), ElementsAre("a.doc"));
    const ScopedVariable nowhere("ZORVOBRENDLE_OFFICE_DIR", "/nowhere");
    EXPECT_THAT(find("cash"), ElementsAre("a.doc"));
    EXPECT_THAT(find("debt"), IsEmpty());
}

} // namespace
} // namespace zorvo
