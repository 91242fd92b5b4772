#include "platform/Platform.h"
#include "search/BuildExampleDocument.h"
#include "search/searchState.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/office/UserOfficeTest.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

/// The result of a search in the user's own office, read back out of it.
namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ResultDocument : public UserOfficeTest {
protected:
    ResultDocument()
    {
        platform().office = office;
        std::filesystem::create_directories(library);
        SearchState& state = searchState();
        state = SearchState();
        state.sSWDPath = {dos(library)};
        state.sSWDRdfExt = {"rtf"};
        state.sSWDTemplate = {"dot"};
    }
    void TearDown() override
    {
        platform().office.reset();
        searchState() = SearchState();
        UserOfficeTest::TearDown();
    }

    void putExample(const std::string& sName, const std::vector<std::string>& lines)
    {
        std::ofstream(library / sName) << richTextOf(lines);
        searchState().sSWDFoundFiles.push_back(dos(library / sName));
        ++searchState().nSWDFoundCount;
    }

    /// What the user's office says about its documents.
    static std::vector<std::string> documents()
    {
        const std::string pipe = "zorvo-read-" + std::to_string(getpid());
        const std::string listen =
            "soffice '--accept=pipe,name=" + pipe + ";urp;' --nologo --nodefault >/dev/null 2>&1";
        EXPECT_EQ(std::system(listen.c_str()), 0);
        std::string answer;
        EXPECT_TRUE(waitUntil([&] {
            FILE* stream =
                popen((std::string(ZORVO_OFFICE_READER) + " " + pipe + " 2>/dev/null").c_str(), "r");
            answer.clear();
            for (int character = std::fgetc(stream); character != EOF; character = std::fgetc(stream))
                answer += static_cast<char>(character);
            return pclose(stream) == 0;
        }));
        std::vector<std::string> lines;
        std::istringstream text(answer);
        for (std::string line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }

    const std::filesystem::path library = folder / "Library 2007";
    RecordingMessages messages;
};

TEST_F(ResultDocument, HoldsTheExamplesInTheirOrderAndIsVisibleAndUnsaved)
{
    writeWordTemplate(library / "SWD.dot", {"About these examples"});
    putExample("leases.rtf", {"Leases", "Rent was paid."});
    putExample("cash.rtf", {"Cash", "|Bank|100|", "More words."});
    putExample("debt.rtf", {"Debt"});
    BuildExampleDocument();
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_TRUE(waitUntil([&] { return screen.shows("Untitled 1"); })) << screen.windows();
    EXPECT_THAT(documents(), ElementsAre("document", "address ", "modified yes", "visible yes", "before ",
                                         "paragraph Leases", "paragraph Rent was paid.", "paragraph Cash",
                                         "table Bank|100", "paragraph More words.", "paragraph Debt",
                                         "paragraph About these examples"));
    EXPECT_THAT(officeChildren(), IsEmpty());
}

TEST_F(ResultDocument, WithAnExampleMissingGoesAndIsTold)
{
    writeWordTemplate(library / "SWD.dot", {"About these examples"});
    putExample("cash.rtf", {"Cash"});
    putExample("debt.rtf", {"Debt"});
    std::filesystem::remove(library / "debt.rtf");
    BuildExampleDocument();
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt,
                HasSubstr("One or more of the example disclosure files are missing."));
    EXPECT_THAT(documents(), IsEmpty());
}

TEST_F(ResultDocument, OfADamagedExampleIsNotMade)
{
    writeWordTemplate(library / "SWD.dot", {"About these examples"});
    putExample("cash.rtf", {"Cash"});
    putExample("debt.rtf", {"Debt"});
    std::filesystem::resize_file(library / "debt.rtf", 20);
    BuildExampleDocument();
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to create the example disclosure file."));
    EXPECT_THAT(documents(), IsEmpty());
}

TEST_F(ResultDocument, OfTheMasterKeepsWhatHoldsTheKeywordAndTheLastExample)
{
    writeWordTemplate(folder / "Library 2007Allrtf.dot",
                      {"All examples", "|Cash|", "behind cash", "|Leases: RENT was paid|", "behind leases",
                       "|Debt|", "", "more", "|Rental income|", "behind income", "|Taxes|", "end"});
    FilterMasterDocument(dos(library), "rent", 0);
    EXPECT_TRUE(waitUntil([&] { return screen.shows("Untitled 1"); })) << screen.windows();
    const std::vector<std::string> told = documents();
    ASSERT_THAT(told, SizeIs(testing::Gt(5U)));
    EXPECT_EQ(told[1], "address ");
    EXPECT_EQ(told[2], "modified yes");
    EXPECT_EQ(told[3], "visible yes");
    EXPECT_THAT(std::vector<std::string>(told.begin() + 5, told.end()),
                ElementsAre("paragraph All examples", "table Leases: RENT was paid",
                            "paragraph behind leases", "table Rental income", "paragraph behind income",
                            "table Taxes", "paragraph end"));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(officeChildren(), IsEmpty());
}

TEST_F(ResultDocument, OfAMissingMasterIsNothingAndStartsNoOffice)
{
    FilterMasterDocument(dos(library), "rent", 0);
    EXPECT_THAT(usersOffices(), IsEmpty());
    EXPECT_THAT(officeChildren(), IsEmpty());
}

} // namespace
} // namespace zorvo
