#include "search/BuildExampleDocument.h"

#include "base/RunTimeError.h"
#include "base/attempt.h"
#include "base/numbers.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/SpecialFolders.h"
#include "platform/machineAccess.h"
#include "search/DisclosureProgress.h"
#include "search/SWDSearchSupport.h"
#include "search/searchState.h"
#include "window/messageBox.h"

#include <cmath>
#include <memory>
#include <vector>

namespace zorvo {

namespace {

constexpr int kPageView = 3;
constexpr int kMaximized = 1;
constexpr int kDocumentUnit = 6;
constexpr int kWordApplication = 1;
/// Older ones leave Word behind other windows when it becomes visible.
constexpr double kFirstExcelThatRaisesWord = 10;

using WordPtr = std::shared_ptr<WordApplication>;

/// The one Excel of a call, made when it is first asked for and never told to quit.
class ExcelOfTheCall {
public:
    ExcelApplication& get()
    {
        if (!objExcelApp_)
            objExcelApp_ = platform().office->createExcel();
        return *objExcelApp_;
    }

private:
    std::shared_ptr<ExcelApplication> objExcelApp_;
};

/// Half a per cent goes to the even number.
std::string sPercentage(int nDone, int nAll)
{
    const double rounded = std::nearbyint(static_cast<double>(nDone) / nAll * 100);
    return std::to_string(static_cast<std::int16_t>(rounded));
}

void showProgressForm()
{
    if (disclosureProgress())
        disclosureProgress()->showForm();
}

void showProgress(const std::string& sText)
{
    if (disclosureProgress())
        disclosureProgress()->setProgressValue(sText);
}

void removeProgressForm()
{
    if (disclosureProgress())
        disclosureProgress()->hideAndUnload();
}

void insertExamples(WordApplication& objWordApp)
{
    SearchState& state = searchState();
    for (std::int16_t i = 1; i <= state.nSWDFoundCount; ++i) {
        objWordApp.selection().insertFile(tableEntry(state.sSWDFoundFiles, state.nSWDFileIndex));
        ++state.nSWDFileIndex;
        showProgress(sPercentage(i, state.nSWDFoundCount) + "% Completed");
    }
}

void handOver(WordApplication& objWordApp, ExcelOfTheCall& excel)
{
    objWordApp.setVisible(true);
    if (leadingNumber(excel.get().version()) < kFirstExcelThatRaisesWord)
        excel.get().activateMicrosoftApp(kWordApplication);
    objWordApp.activate();
    objWordApp.activeWindow().activate();
    objWordApp.selection().homeKey(kDocumentUnit);
}

void build(WordPtr& objWordApp, ExcelOfTheCall& excel)
{
    SearchState& state = searchState();
    state.nSWDFileIndex = 0;
    objWordApp = platform().office->createWordForUser();
    objWordApp->setVisible(false);
    const std::string sCurrentFolder = platform().folders->current();
    showProgressForm();
    const std::string& sFolder = tableEntry(state.sSWDPath, state.nSWDSelected);
    objWordApp->documentsAdd(sFolder + "\\SWD." + tableEntry(state.sSWDTemplate, state.nSWDSelected));
    objWordApp->changeFileOpenDirectory(sFolder);
    insertExamples(*objWordApp);
    objWordApp->changeFileOpenDirectory(sCurrentFolder);
    removeProgressForm();
    handOver(*objWordApp, excel);
}

/// The user reads about the failure that led here, and of no other one.
void dropDocument(const WordPtr& objWordApp, ExcelOfTheCall& excel)
{
    attempt([&] { excel.get().setDisplayAlerts(false); });
    attempt([&] { objWordApp->activeWindow().closeWithoutSaving(); });
    attempt([&] { objWordApp->quit(); });
    attempt([&] { excel.get().setDisplayAlerts(true); });
}

void keepMatches(WordApplication& objWordApp, const std::string& sKeyword)
{
    const auto objTables = objWordApp.activeDocument()->tables();
    int i = 1;
    // The last table is never looked at, and so stays whatever it holds: products count on it.
    while (i < objTables->count()) {
        const auto objTable = objTables->item(i);
        if (containsNoCase(objTable->text(), sKeyword)) {
            ++i;
        } else {
            objTable->select();
            objTable->remove();
            attempt([&] { // what can't be removed stays
                // What stood between this example and the next.
                while (!objWordApp.selection().withinTable())
                    objWordApp.selection().deleteForward();
            });
        }
        // In small letters here and in capitals above: both are on record as they are.
        showProgress(sPercentage(i, objTables->count()) + "% completed");
    }
}

} // namespace

DisclosureProgress*& disclosureProgress()
{
    static DisclosureProgress* progress = nullptr;
    return progress;
}

void BuildExampleDocument()
{
    WordPtr objWordApp;
    ExcelOfTheCall excel;
    try {
        build(objWordApp, excel);
    } catch (const RunTimeError& error) {
        // The progress form stays: only a build that succeeds takes it away.
        if (error.number() == kWordFileNotFound) {
            dropDocument(objWordApp, excel);
            BrandedMsgBox(
                "Unable to show examples. One or more of the example disclosure files are missing.  ",
                kMsgInformation, {}, {}, {}, kLibraryTitleSuffix);
        } else {
            BrandedMsgBox("Unable to create the example disclosure file.    ", kMsgInformation, {}, {}, {},
                          kLibraryTitleSuffix);
        }
    }
}

void FilterMasterDocument(const std::string& sFolder, const std::string& sKeyword, std::int16_t nSelected)
{
    // No backslash: the master lies beside the edition's folder, under a name that begins with the folder's.
    const std::string sMaster = sFolder + "All" + tableEntry(searchState().sSWDRdfExt, nSelected) + ".dot";
    if (!bFileExists(sMaster))
        return;
    const WordPtr objWordApp = platform().office->createWordForUser();
    objWordApp->documentsAdd(sMaster);
    WordWindow& objWindow = objWordApp->activeWindow();
    if (objWindow.viewSplitSpecial() == 0)
        objWindow.setPaneViewType(kPageView);
    else
        objWindow.setViewType(kPageView);
    showProgressForm();
    keepMatches(*objWordApp, sKeyword);
    removeProgressForm();
    objWordApp->setVisible(true);
    objWordApp->setWindowState(kMaximized);
}

} // namespace zorvo
