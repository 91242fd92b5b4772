#include "base/RunTimeError.h"
#include "base/paths.h"
#include "tests/office/OfficeStage.h"
#include "tests/office/TestDesk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// What holds for every office, the fake that the other tests rely on and the real one.
namespace zorvo {

namespace {

using testing::ElementsAre;

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

TEST_P(OfficeContract, InsertedFilesFollowEachOtherInFrontOfTheTemplatesText)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Result.doc";
    word->documentsAdd(stage->textTemplate({"frame", "end"}));
    word->selection().insertFile(stage->richText({"first", "of two"}));
    word->selection().insertFile(stage->richText({"second"}));
    word->selection().insertFile(stage->richText({"third", "|a|b|"}));
    word->selection().insertFile(stage->richText({"|c|", "fourth"}));
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    word->activeDocument()->saveAs(sName, 0);
    EXPECT_THAT(stage->savedLines(sName),
                ElementsAre("first", "of two", "second", "third", "a", "b", "c", "fourth", "frame", "end"));
}

TEST_P(OfficeContract, AfterHomeAFileComesInAtTheBeginning)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Result.doc";
    word->documentsAdd();
    word->selection().insertFile(stage->richText({"first"}));
    word->selection().homeKey(6);
    word->selection().insertFile(stage->richText({"second"}));
    word->activeDocument()->saveAs(sName, 0);
    EXPECT_THAT(stage->savedLines(sName), ElementsAre("second", "first"));
}

TEST_P(OfficeContract, TablesThatATemplateBeginsWithStayInFront)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Result.doc";
    word->documentsAdd(stage->textTemplate({"|head|", "frame"}));
    word->selection().insertFile(stage->richText({"first"}));
    word->selection().insertFile(stage->richText({"second"}));
    word->activeDocument()->saveAs(sName, 0);
    EXPECT_THAT(stage->savedLines(sName), ElementsAre("head", "first", "second", "frame"));
}

TEST_P(OfficeContract, AFileThatIsNotThereOrHoldsNothingIsNotInserted)
{
    const auto word = office.createWord();
    const std::string sFolder = stage->folder();
    stage->putFile(sFolder + "empty.rtf", "");
    word->documentsAdd(stage->textTemplate({"frame"}));
    EXPECT_EQ(numberOf([&] { word->selection().insertFile(sFolder + "none.rtf"); }), kWordFileNotFound);
    EXPECT_EQ(numberOf([&] { word->selection().insertFile(sFolder + "empty.rtf"); }), kPathOrFileAccess);
    word->selection().insertFile(stage->richText({"first"}));
    word->activeDocument()->saveAs(sFolder + "Result.doc", 0);
    EXPECT_THAT(stage->savedLines(sFolder + "Result.doc"), ElementsAre("first", "frame"));
}

TEST_P(OfficeContract, ANameWithoutFolderIsLookedForInTheOneThatWasSet)
{
    const auto word = office.createWord();
    const std::string sFile = stage->richText({"first"});
    const std::string sFolder = sGetFilePath(sFile);
    word->documentsAdd();
    EXPECT_EQ(numberOf([&] { word->changeFileOpenDirectory(sFolder + "\\None"); }), kPathNotFound);
    word->changeFileOpenDirectory(sFolder);
    word->selection().insertFile(sGetFileName(sFile, false));
    word->changeFileOpenDirectory("");
    EXPECT_NE(numberOf([&] { word->selection().insertFile(sGetFileName(sFile, false)); }), 0);
}

TEST_P(OfficeContract, TablesAreCountedAndReadInTheOrderOfTheText)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"|a|b|", "between", "|c|", "|d|", "end"}));
    const auto tables = word->activeDocument()->tables();
    ASSERT_EQ(tables->count(), 3);
    EXPECT_EQ(tables->item(1)->text(), "a\r\x07"
                                       "b\r\x07\r\x07");
    EXPECT_EQ(tables->item(2)->text(), "c\r\x07\r\x07");
    EXPECT_EQ(tables->item(3)->text(), "d\r\x07\r\x07");
    EXPECT_EQ(numberOf([&] { tables->item(0); }), kIndexOutOfRange);
    EXPECT_EQ(numberOf([&] { tables->item(4); }), kIndexOutOfRange);
}

TEST_P(OfficeContract, ADocumentWithoutTablesHasNone)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"words"}));
    EXPECT_EQ(word->activeDocument()->tables()->count(), 0);
    EXPECT_FALSE(word->selection().withinTable());
}

TEST_P(OfficeContract, InsertedTablesCountToo)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"frame", "|z|", "end"}));
    const auto tables = word->activeDocument()->tables();
    EXPECT_EQ(tables->count(), 1);
    word->selection().insertFile(stage->richText({"|a|", "words"}));
    ASSERT_EQ(tables->count(), 2);
    EXPECT_EQ(tables->item(1)->text(), "a\r\x07\r\x07");
    EXPECT_EQ(tables->item(2)->text(), "z\r\x07\r\x07");
}

TEST_P(OfficeContract, WhatFollowsARemovedTableIsDeletedUpToTheNext)
{
    const auto word = office.createWord();
    const std::string sName = stage->folder() + "Result.doc";
    word->documentsAdd(
        stage->textTemplate({"title", "|a|", "after a", "", "more", "|b|", "after b", "|c|", "end"}));
    const auto tables = word->activeDocument()->tables();
    const auto first = tables->item(1);
    first->select();
    EXPECT_TRUE(word->selection().withinTable());
    EXPECT_EQ(numberOf([&] { word->selection().deleteForward(); }), kInvalidCall);
    first->remove();
    int nDeletions = 0;
    for (; !word->selection().withinTable() && nDeletions < 100; ++nDeletions)
        word->selection().deleteForward();
    EXPECT_GE(nDeletions, 3);
    EXPECT_EQ(numberOf([&] { word->selection().deleteForward(); }), kInvalidCall);
    EXPECT_EQ(tables->count(), 2);
    EXPECT_EQ(tables->item(1)->text(), "b\r\x07\r\x07");
    EXPECT_EQ(numberOf([&] { first->text(); }), kObjectRequired);
    EXPECT_EQ(numberOf([&] { first->remove(); }), kObjectRequired);
    word->activeDocument()->saveAs(sName, 0);
    EXPECT_THAT(stage->savedLines(sName), ElementsAre("title", "b", "after b", "c", "end"));
}

TEST_P(OfficeContract, BetweenTwoTablesThatTouchThereIsNothingToDelete)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"|a|", "|b|", "end"}));
    word->activeDocument()->tables()->item(1)->remove();
    EXPECT_TRUE(word->selection().withinTable());
}

TEST_P(OfficeContract, DeletingEndsWithTheDocument)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"|a|", "one", "two"}));
    word->activeDocument()->tables()->item(1)->remove();
    int nDeletions = 0;
    while (nDeletions < 100 && numberOf([&] { word->selection().deleteForward(); }) == 0)
        ++nDeletions;
    EXPECT_GE(nDeletions, 2);
    EXPECT_LT(nDeletions, 100);
    EXPECT_FALSE(word->selection().withinTable());
    word->activeDocument()->saveAs(stage->folder() + "Result.doc", 0);
}

TEST_P(OfficeContract, TheCursorBeginsBeforeATableThatATemplateBeginsWith)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"|a|", "one"}));
    EXPECT_TRUE(word->selection().withinTable());
}

TEST_P(OfficeContract, TheActiveWindowShowsPagesAndClosesWithoutSaving)
{
    const auto word = office.createWord();
    word->documentsAdd(stage->textTemplate({"words"}));
    EXPECT_EQ(word->activeWindow().viewSplitSpecial(), 0);
    word->activeWindow().setPaneViewType(3);
    word->activeWindow().setViewType(3);
    word->setWindowState(1);
    word->activate();
    word->activeWindow().activate();
    word->selection().insertFile(stage->richText({"first"}));
    word->activeWindow().closeWithoutSaving();
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
}

TEST_P(OfficeContract, WithoutADocumentThereIsNoCursorAndNoWindow)
{
    const auto word = office.createWord();
    EXPECT_EQ(numberOf([&] { word->selection().insertFile(stage->richText({"first"})); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->selection().homeKey(6); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->selection().withinTable(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->selection().deleteForward(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->activeWindow().viewSplitSpecial(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->activeWindow().setViewType(3); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->activeWindow().activate(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { word->activeWindow().closeWithoutSaving(); }), kObjectNotSet);
}

TEST_P(OfficeContract, ExcelTakesWhatItIsToldAboutAlertsAndWord)
{
    const auto excel = office.createExcel();
    excel->setDisplayAlerts(false);
    excel->activateMicrosoftApp(1);
    excel->setDisplayAlerts(true);
    excel->quit();
    EXPECT_EQ(numberOf([&] { excel->setDisplayAlerts(true); }), kOfficeDoesNotAnswer);
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
