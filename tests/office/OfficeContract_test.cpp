#include "base/RunTimeError.h"
#include "tests/office/OfficeStage.h"
#include "tests/office/TestDesk.h"

#include <gtest/gtest.h>

/// What holds for every office, the fake that the other tests rely on and the real one.
namespace zorvo {

namespace {

using MakeStage = std::unique_ptr<OfficeStage> (*)();

class OfficeContract : public testing::TestWithParam<MakeStage> {
protected:
    std::unique_ptr<OfficeStage> stage = GetParam()();
    Office& office = stage->office();
};

} // namespace

TEST_P(OfficeContract, VersionsTellThatWordHasAFileSearchAndExcelTakesAFormatNumber)
{
    EXPECT_EQ(office.createWord()->version(), "11.0");
    EXPECT_EQ(office.createExcel()->version(), "12.0");
}

TEST_P(OfficeContract, WithoutADocumentThereIsNoActiveOne)
{
    const auto word = office.createWord();
    const auto excel = office.createExcel();
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { excel->activeWorkbook(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->activatePane(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { excel->setActiveWindowView(1); }), kObjectNotSet);
}

TEST_P(OfficeContract, AMissingFileFailsWithTheApplicationsOwnNumber)
{
    const auto word = office.createWord();
    const auto excel = office.createExcel();
    const std::string sMissing = stage->folder() + "NONE.DOT";
    EXPECT_EQ(numberOf([&] { word->documentsAdd(sMissing); }), kWordFileNotFound);
    EXPECT_EQ(numberOf([&] { word->documentsOpen(sMissing); }), kWordFileNotFound);
    EXPECT_EQ(numberOf([&] { excel->workbooksAdd(sMissing); }), kFileNotFound);
    EXPECT_EQ(numberOf([&] { excel->workbooksOpen(sMissing); }), kFileNotFound);
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
}

TEST_P(OfficeContract, ADocumentIsMadeSavedAndClosed)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Letter.doc";
    word->documentsAdd(stage->letterTemplate());
    const auto document = word->activeDocument();
    EXPECT_EQ(document->fullName(), "");
    document->saveAs(sName, 0);
    EXPECT_EQ(document->fullName(), sName);
    document->close();
    EXPECT_TRUE(stage->content(sName).has_value());
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
}

TEST_P(OfficeContract, AWorkbookIsMadeSavedAndClosed)
{
    const auto excel = office.createExcel();
    const std::string sFolder = stage->folder();
    for (const int nFormat : {56, 0}) {
        const std::string sName = sFolder + "Budget " + std::to_string(nFormat) + ".xls";
        excel->setEnableEvents(false);
        excel->workbooksAdd(stage->budgetTemplate());
        excel->setEnableEvents(true);
        excel->activeWorkbook()->saveAs(sName, nFormat, 1);
        EXPECT_EQ(excel->activeWorkbook()->fullName(), sName);
        excel->activeWorkbook()->close();
        EXPECT_TRUE(stage->content(sName).has_value());
    }
}

TEST_P(OfficeContract, TheNewestOpenDocumentIsTheActiveOne)
{
    const auto word = office.createWord();
    const std::string sFolder = stage->folder();
    word->documentsAdd(stage->letterTemplate());
    word->activeDocument()->saveAs(sFolder + "first.doc", 0);
    word->documentsAdd(stage->letterTemplate());
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    word->activeDocument()->close();
    EXPECT_EQ(word->activeDocument()->fullName(), sFolder + "first.doc");
}

TEST_P(OfficeContract, ARefusedTemplateLeavesTheActiveDocumentAsItWas)
{
    const auto word = office.createWord();
    const std::string sFolder = stage->folder();
    word->documentsAdd(stage->letterTemplate());
    word->activeDocument()->saveAs(sFolder + "first.doc", 0);
    EXPECT_NE(numberOf([&] { word->documentsAdd(sFolder + "NONE.DOT"); }), 0);
    EXPECT_EQ(word->activeDocument()->fullName(), sFolder + "first.doc");
}

TEST_P(OfficeContract, ASavedDocumentOpensAgainUnderItsName)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Letter.doc";
    word->documentsAdd(stage->letterTemplate());
    word->activeDocument()->saveAs(sName, 0);
    word->activeDocument()->close();
    word->documentsOpen(sName);
    EXPECT_EQ(word->activeDocument()->fullName(), sName);
}

TEST_P(OfficeContract, AClosedDocumentIsGone)
{
    const auto word = office.createWord();
    const auto excel = office.createExcel();
    word->documentsAdd(stage->letterTemplate());
    const auto document = word->activeDocument();
    document->close();
    EXPECT_EQ(numberOf([&] { document->close(); }), kObjectRequired);
    EXPECT_EQ(numberOf([&] { document->fullName(); }), kObjectRequired);
    EXPECT_EQ(numberOf([&] { document->saveAs(stage->folder() + "x.doc", 0); }), kObjectRequired);
    excel->workbooksAdd();
    const auto workbook = excel->activeWorkbook();
    workbook->closeWithoutSaving();
    EXPECT_EQ(numberOf([&] { workbook->closeWithoutSaving(); }), kObjectRequired);
}

TEST_P(OfficeContract, ASaveReplacesAFileUnlessToldNeverTo)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Letter.doc";
    stage->putFile(sName, "old");
    word->documentsAdd(stage->letterTemplate());
    office.setNeverReplaceFiles(true);
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(sName, 0); }), kFileAlreadyExists);
    EXPECT_EQ(stage->content(sName), "old");
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    office.setNeverReplaceFiles(false);
    word->activeDocument()->saveAs(sName, 0);
    EXPECT_NE(stage->content(sName), "old");
}

TEST_P(OfficeContract, ASaveMakesNoFolder)
{
    const auto word = office.createWord();
    const std::string sFolder = stage->folder() + "None";
    word->documentsAdd(stage->letterTemplate());
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(sFolder + "\\Letter.doc", 0); }), kPathNotFound);
    EXPECT_FALSE(stage->folderExists(sFolder));
}

TEST_P(OfficeContract, AnUnknownAddInFails)
{
    const auto word = office.createWord();
    EXPECT_EQ(numberOf([&] { word->comAddIn("Nobody.Connect"); }), kCannotCreateObject);
    word->documentsAdd(stage->letterTemplate());
    EXPECT_EQ(numberOf([&] { word->comAddIn("Nobody.Connect"); }), kCannotCreateObject);
}

TEST_P(OfficeContract, AddInsAreListedByNameAndRememberThatTheyAreInstalled)
{
    stage->provideAddInFiles();
    const auto word = office.createWord();
    ASSERT_EQ(word->addInCount(), 2);
    EXPECT_EQ(word->addIn(1).sName, "a.DOT");
    EXPECT_EQ(word->addIn(2).sName, "B.dot");
    EXPECT_FALSE(word->addIn(2).bInstalled);
    word->setAddInInstalled(2, true);
    EXPECT_TRUE(word->addIn(2).bInstalled);
    EXPECT_FALSE(word->addIn(1).bInstalled);
    const auto later = office.createWord();
    ASSERT_EQ(later->addInCount(), 2);
    EXPECT_TRUE(later->addIn(2).bInstalled);
    later->setAddInInstalled(2, false);
    EXPECT_FALSE(later->addIn(2).bInstalled);

    const auto excel = office.createExcel();
    ASSERT_EQ(excel->addInCount(), 1);
    EXPECT_EQ(excel->addIn(1).sName, "Tools.xla");
    EXPECT_EQ(numberOf([&] { excel->addIn(2); }), kIndexOutOfRange);
    EXPECT_EQ(numberOf([&] { excel->addIn(0); }), kIndexOutOfRange);
    EXPECT_EQ(numberOf([&] { excel->setAddInInstalled(2, true); }), kIndexOutOfRange);
}

TEST_P(OfficeContract, AfterQuitTheApplicationAnswersNoMore)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->letterTemplate());
    word->quit();
    EXPECT_EQ(numberOf([&] { word->version(); }), kOfficeDoesNotAnswer);
    EXPECT_EQ(numberOf([&] { word->documentsAdd(stage->letterTemplate()); }), kOfficeDoesNotAnswer);
    EXPECT_EQ(numberOf([&] { word->setVisible(true); }), kOfficeDoesNotAnswer);
    EXPECT_EQ(numberOf([&] { word->quit(); }), kOfficeDoesNotAnswer);
    const auto another = office.createWord();
    another->documentsAdd(stage->letterTemplate());
    EXPECT_EQ(another->activeDocument()->fullName(), "");
}

INSTANTIATE_TEST_SUITE_P(Fake, OfficeContract, testing::Values(&makeFakeStage));
INSTANTIATE_TEST_SUITE_P(LibreOffice, OfficeContract, testing::Values(&makeRealStage));

} // namespace zorvo
