#include "base/RunTimeError.h"
#include "platform/linux/LibreOffice.h"
#include "tests/office/TestDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// An add-in that the user has installed as an extension of the office, called by name.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class AddIn : public testing::Test {
protected:
    TestDesk& desk = TestDesk::instance();
    std::shared_ptr<Office> office = makeLibreOffice();
    std::shared_ptr<WordApplication> word = office->createWord();
    const fs::path folder = desk.newFolder();

    void SetUp() override { word->documentsAdd(dos(desk.templates() / "LETTER.DOT")); }

    LateBoundPtr connection() const { return word->comAddIn("ZorvoTSR.Connect"); }
};

} // namespace

TEST_F(AddIn, StuffsProfileDataIntoTheDocumentThatIsSaved)
{
    const LateBoundPtr addIn = connection();
    addIn->call("SetCompanyID", {std::string("Zorvo")});
    addIn->call("StuffProperties",
                {AutomationObjectPtr(word->activeDocument()), std::string("Fröhlich & Co")});
    word->activeDocument()->saveAs(dos(folder / "Letter.doc"), 0);
    EXPECT_EQ(std::get<bool>(addIn->call("RefreshFields", {AutomationObjectPtr(word->activeDocument())})),
              true);
    word->activeDocument()->close();
    EXPECT_THAT(textOf(folder / "Letter.doc"), HasSubstr("Fröhlich & Co"));
}

TEST_F(AddIn, TakesAndGivesTextsNumbersAndBooleans)
{
    const LateBoundPtr addIn = connection();
    EXPECT_EQ(std::get<std::string>(addIn->call("Echo", {std::string("ä")})), "ä");
    EXPECT_EQ(std::get<bool>(addIn->call("Echo", {true})), true);
    EXPECT_EQ(std::get<std::int16_t>(addIn->call("Echo", {std::int16_t{-7}})), -7);
    EXPECT_EQ(std::get<std::int32_t>(addIn->call("Echo", {std::int32_t{70'000}})), 70'000);
    EXPECT_EQ(std::get<std::uint32_t>(addIn->call("Echo", {std::uint32_t{4'000'000'000U}})), 4'000'000'000U);
    EXPECT_EQ(std::get<double>(addIn->call("Echo", {1.5})), 1.5);
    EXPECT_EQ(std::get<std::vector<std::string>>(addIn->call("Echo", {std::vector<std::string>{"a", "b"}})),
              (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(addIn->call("Echo", {Value()})));
}

TEST_F(AddIn, ByReferenceArgumentsComeBack)
{
    std::vector<Value> arguments = {std::string("C:\\Profile"), std::int32_t{10}, std::int32_t{20}};
    const Value profile = connection()->invoke("TreeSelectProfileDataForm", arguments);
    EXPECT_EQ(std::get<std::string>(profile), "profile");
    EXPECT_EQ(std::get<std::string>(arguments[0]), "C:\\Profile\\");
    EXPECT_EQ(std::get<std::int32_t>(arguments[1]), 10);
}

TEST_F(AddIn, AnUnknownMemberFailsAndTheOfficeLivesOn)
{
    const LateBoundPtr addIn = connection();
    EXPECT_EQ(numberOf([&] { addIn->call("NoSuchMember"); }), kMemberNotFound);
    std::vector<Value> none;
    EXPECT_EQ(numberOf([&] { addIn->invokeById(1, none); }), kMemberNotFound);
    EXPECT_EQ(std::get<bool>(addIn->call("Echo", {true})), true);
}

TEST_F(AddIn, ItsOwnFailureComesWithItsWords)
{
    EXPECT_THAT(descriptionOf([&] { connection()->call("Fail"); }), HasSubstr("No profile is open."));
}

TEST_F(AddIn, ArgumentsThatItDoesntTakeAreAMismatch)
{
    EXPECT_EQ(numberOf([&] {
                  connection()->call("StuffProperties", {std::string("no document"), true});
              }),
              kTypeMismatch);
    EXPECT_EQ(numberOf([&] { connection()->call("Echo", {AutomationObjectPtr(connection())}); }),
              kTypeMismatch);
}

TEST_F(AddIn, ADocumentOfAnotherOfficeIsAMismatch)
{
    const auto second = makeLibreOffice();
    const auto another = second->createWord();
    another->documentsAdd(dos(desk.templates() / "LETTER.DOT"));
    EXPECT_EQ(numberOf([&] {
                  connection()->call("RefreshFields", {AutomationObjectPtr(another->activeDocument())});
              }),
              kTypeMismatch);
}

TEST_F(AddIn, TheOfficeOfWordServesAWorkbookToo)
{
    const auto excel = office->createExcel();
    excel->workbooksAdd(dos(desk.templates() / "BUDGET.XLT"));
    word->activeDocument()->close();
    EXPECT_EQ(
        std::get<bool>(connection()->call("RefreshFields", {AutomationObjectPtr(excel->activeWorkbook())})),
        false);
}

TEST_F(AddIn, OneThatEndsTheOfficeIsACrash)
{
    const LateBoundPtr addIn = connection();
    EXPECT_EQ(numberOf([&] { addIn->call("Die"); }), kOfficeDoesNotAnswer);
    EXPECT_EQ(numberOf([&] { addIn->call("Echo", {true}); }), kOfficeDoesNotAnswer);
    word->documentsAdd(dos(desk.templates() / "LETTER.DOT"));
    EXPECT_EQ(word->activeDocument()->fullName(), "");
}

TEST_F(AddIn, OneThatHangsIsEndedWithItsOffice)
{
    const ScopedVariable timeout("ZORVOBRENDLE_OFFICE_TIMEOUT_MS", "3000");
    const auto impatient = makeLibreOffice();
    const auto another = impatient->createWord();
    another->documentsAdd(dos(desk.templates() / "LETTER.DOT"));
    EXPECT_EQ(numberOf([&] { another->comAddIn("ZorvoTSR.Connect")->call("Sleep"); }), kOfficeDoesNotAnswer);
    another->documentsAdd(dos(desk.templates() / "LETTER.DOT"));
    EXPECT_EQ(another->activeDocument()->fullName(), "");
}

TEST_F(AddIn, AMissingOneFailsAndTheOfficeLivesOn)
{
    EXPECT_EQ(numberOf([&] { word->comAddIn("Nobody.Connect"); }), kCannotCreateObject);
    EXPECT_EQ(std::get<bool>(connection()->call("Echo", {true})), true);
}

} // namespace zorvo
