#include "base/RunTimeError.h"
#include "base/failure.h"
#include "base/sessionState.h"
#include "shell/ZorvoTreeSelector.h"
#include "shell/clsAbout.h"
#include "shell/eventMailbox.h"
#include "shell/forms/formInstances.h"
#include "shell/forms/frmNoMoreSearch.h"
#include "shell/forms/frmSplash.h"
#include "shell/forms/frmTreeSearch.h"
#include "shell/shellState.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "tests/support/pictureBytes.h"
#include "window/MnemonicLabel.h"
#include "window/clsMousePointer.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace zorvo {
namespace {

constexpr const char* kMissingSplash = "basBranding.LoadBrandedPicture(Splash.bmp)";

/// Another window takes the front and gives it back.
void showAgain(QWidget& form)
{
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    QCoreApplication::processEvents();
}

using SmallFormsTest = MainFormTest;

TEST_F(SmallFormsTest, TheSplashLoadsTheMainFormHiddenAndStaysBusyUntilItUnloads)
{
    splash().get();
    EXPECT_NE(shellState().gfrmMain, nullptr);
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(form().isEnabled());
    EXPECT_EQ(goMousePointer().MousePointer(), 11);
    splash().unload();
    EXPECT_TRUE(form().isEnabled());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(SmallFormsTest, ASecondClientDuringTheSplashLeavesNeitherSplashNorBusyPointerBehind)
{
    QTimer::singleShot(50, qApp, [] { ZorvoTreeSelector().ShowTreeDirectly(); });
    ZorvoTreeSelector().ShowTreeDirectly();
    EXPECT_EQ(splash().ifLoaded(), nullptr);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(SmallFormsTest, AMainFormThatFailsToLoadBehindTheSplashLeavesNothingBehindForTheNextCall)
{
    store("MainState", "99999");
    EXPECT_THROW(ZorvoTreeSelector().ShowTreeDirectly(), RunTimeError);
    EXPECT_EQ(splash().ifLoaded(), nullptr);
    EXPECT_EQ(shellState().gfrmMain, nullptr);
    EXPECT_EQ(Form::loadedForms(), 0);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    store("MainState", "2");
    store("DisplaySplash", "False");
    ZorvoTreeSelector().ShowTreeDirectly();
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(SmallFormsTest, TheSplashShowsTheVersionAndStoresItWithoutACompanysPrefix)
{
    sessionState().gsCompanyID = "ABC";
    const QString text = child<QLabel>(splash().get(), "lblVersion")->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Version ")));
    EXPECT_TRUE(text.contains(QStringLiteral(".0.")));
    EXPECT_EQ(stored("Version"), text.toStdString());
    splash().unload();
}

TEST_F(SmallFormsTest, WhoCannotSeeTheSplashHearsTheCompanysName)
{
    sessionState().gsCompanyID = "ABC";
    EXPECT_EQ(child<QLabel>(splash().get(), "picSplash")->accessibleName(),
              QStringLiteral("ABC's Brendle is starting"));
    splash().unload();
}

TEST_F(SmallFormsTest, ABusyPointerWithoutAMainFormLoadsItHiddenAndNoneUnderTheModalState)
{
    goMousePointer().SetModalDialogState(true);
    goMousePointer().setMousePointer(11);
    EXPECT_EQ(templateTree().ifLoaded(), nullptr);
    goMousePointer().setMousePointer(0);
    EXPECT_EQ(templateTree().ifLoaded(), nullptr);
    goMousePointer().SetModalDialogState(false);
    goMousePointer().setMousePointer(11);
    ASSERT_NE(templateTree().ifLoaded(), nullptr);
    EXPECT_FALSE(form().isVisible());
    EXPECT_FALSE(form().isEnabled());
    goMousePointer().setMousePointer(0);
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(SmallFormsTest, TheSplashOfACompanyWithoutItsPictureTellsItOnceAndShowsNone)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile("C:\\Zorvo\\ABC\\Splash.bmp", "no picture");
    int nReports = 0;
    const FailureReporter before = setFailureReporter([&](const auto& sTag, const auto&, const auto&) {
        nReports += sTag == kMissingSplash ? 1 : 0;
        if (sTag == kMissingSplash)
            showAgain(splash().get()); // the message takes the splash out of the front and gives it back
    });
    splash().get().showModeless();
    showAgain(splash().get());
    setFailureReporter(before);
    EXPECT_EQ(nReports, 1);
    EXPECT_TRUE(child<QLabel>(splash().get(), "picSplash")->pixmap(Qt::ReturnByValue).isNull())
        << "the house's own picture isn't the company's";
    splash().unload();
}

TEST_F(SmallFormsTest, TheSplashTakesItsCompanysPictureAtEachActivateAndTheHousesStays)
{
    const auto width = [] {
        return child<QLabel>(splash().get(), "picSplash")->pixmap(Qt::ReturnByValue).width();
    };
    fakes.files->addFile("C:\\Zorvo\\Images\\Splash.bmp", pictureBytes(12, "BMP"));
    splash().get().showModeless();
    showAgain(splash().get());
    EXPECT_GT(width(), 12) << "the house's picture is the form's own";
    splash().unload();
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile("C:\\Zorvo\\ABC\\Splash.bmp", pictureBytes(14, "BMP"));
    splash().get().showModeless();
    showAgain(splash().get());
    EXPECT_EQ(width(), 14);
    fakes.files->addFile("C:\\Zorvo\\ABC\\Splash.bmp", pictureBytes(16, "BMP"));
    showAgain(splash().get());
    EXPECT_EQ(width(), 16);
    splash().unload();
}

TEST_F(SmallFormsTest, TheAboutBoxReadsTheMainWindowsCaptionWhichLoadsItHidden)
{
    whenModal("frmAbout", [](QWidget& about) {
        EXPECT_EQ(shellState().gfrmMain, nullptr);
        click(about, "cmdSupport");
        EXPECT_NE(shellState().gfrmMain, nullptr);
        click(about, "cmdOK");
    });
    clsAbout().show_QBK_About();
    EXPECT_FALSE(form().isVisible());
    const auto sReport =
        fakes.files->content("C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\ZorvoSysOut.txt");
    EXPECT_THAT(sReport.value_or(""), testing::StartsWith("Zorvo's Brendle properties as of "));
}

TEST_F(SmallFormsTest, TheAboutBoxesQuickTourIsTheMainWindowsWhichLoadsItHidden)
{
    whenModal("frmAbout", [](QWidget& about) {
        click(about, "cmdQuickTour");
        EXPECT_NE(shellState().gfrmMain, nullptr);
        click(about, "cmdOK");
    });
    clsAbout().show_QBK_About();
    EXPECT_FALSE(form().isVisible());
    ASSERT_EQ(fakes.launcher->opened.size(), 1U);
    EXPECT_EQ(fakes.launcher->opened[0].sTarget, "http://tour.example");
    EXPECT_EQ(fakes.launcher->opened[0].ownerWindow, static_cast<std::uintptr_t>(form().winId()));
}

TEST_F(SmallFormsTest, AClickOnTheSplashAsksTheMainFormsTimerToEndTheWait)
{
    splash().get().showModeless();
    form().setTmEventInterval(kRequestSplashWait);
    QTest::mouseClick(child<QLabel>(splash().get(), "picSplash"), Qt::LeftButton);
    EXPECT_EQ(form().tmEventInterval(), 1);
    EXPECT_TRUE(QTest::qWaitFor([] { return splash().ifLoaded() == nullptr; }));
    EXPECT_EQ(form().tmEventInterval(), 0);
}

TEST_F(SmallFormsTest, FindNextAndCloseAnswerTheSearch)
{
    frmTreeSearch search;
    whenModal("frmTreeSearch", [](QWidget& shown) { click(shown, "cmdFind"); });
    search.showModal();
    EXPECT_TRUE(search.bFindNext);
    whenModal("frmTreeSearch", [](QWidget& shown) { click(shown, "cmdClose"); });
    search.showModal();
    EXPECT_FALSE(search.bFindNext);
}

TEST_F(SmallFormsTest, TheSearchsCloseBoxIsItsCloseButton)
{
    frmTreeSearch search;
    search.bFindNext = true;
    whenModal("frmTreeSearch", [](QWidget& shown) { shown.close(); });
    search.showModal();
    EXPECT_FALSE(search.bFindNext);
}

TEST_F(SmallFormsTest, TheEndOfTheSearchAsksWhetherToGoOn)
{
    frmNoMoreSearch end;
    whenModal("frmNoMoreSearch", [](QWidget& shown) { click(shown, "Command1"); });
    end.showModal();
    EXPECT_TRUE(end.bContinue);
    whenModal("frmNoMoreSearch", [](QWidget& shown) { click(shown, "Command2"); });
    end.showModal();
    EXPECT_FALSE(end.bContinue);
}

TEST_F(SmallFormsTest, TheEndOfTheSearchClosedByItsBoxIsACancel)
{
    frmNoMoreSearch end;
    whenModal("frmNoMoreSearch", [](QWidget& shown) { shown.close(); });
    end.showModal();
    EXPECT_FALSE(end.bContinue);
}

TEST_F(SmallFormsTest, TheSearchsDialogsCarryTheirTexts)
{
    frmTreeSearch search;
    EXPECT_EQ(search.caption(), QStringLiteral("Locate Template"));
    EXPECT_EQ(search.text(), "");
    EXPECT_EQ(child<MnemonicLabel>(search, "Label1")->text(), QStringLiteral("Find What:"));
    EXPECT_EQ(child<QLineEdit>(search, "Text1")->accessibleName(), QStringLiteral("Find What:"));
    EXPECT_EQ(child<QPushButton>(search, "cmdFind")->text(), QStringLiteral("&Find Next"));
    EXPECT_EQ(child<QPushButton>(search, "cmdClose")->text(), QStringLiteral("&Close"));
    frmNoMoreSearch end;
    EXPECT_EQ(end.caption(), QStringLiteral("Locate Template"));
    EXPECT_EQ(
        child<MnemonicLabel>(end, "Label1")->text().toStdString(),
        "No additional matches were found in the Brendle tree. Click OK to continue searching from the top "
        "of the tree list or click Cancel to close.");
    EXPECT_EQ(child<QPushButton>(end, "Command1")->text(), QStringLiteral("OK"));
    EXPECT_EQ(child<QPushButton>(end, "Command2")->text(), QStringLiteral("Cancel"));
}

TEST_F(SmallFormsTest, TheSearchsDialogsCarryTheirCompanysIcon)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile("C:\\Zorvo\\ABC\\Brendle.ico", pictureBytes(16, "BMP"));
    frmTreeSearch search;
    frmNoMoreSearch end;
    for (Form* each : {static_cast<Form*>(&search), static_cast<Form*>(&end)}) {
        each->load();
        EXPECT_EQ(each->windowIcon().availableSizes(), QList<QSize>{QSize(16, 16)});
        each->unload();
    }
}

} // namespace
} // namespace zorvo
