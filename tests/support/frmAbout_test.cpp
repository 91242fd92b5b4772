#include "support/forms/frmAbout.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "support/SupportHost.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/pictureBytes.h"
#include "window/clsMousePointer.h"

#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

void initSupportPictures()
{
    Q_INIT_RESOURCE(supportPictures);
}

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kReport = "C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\ZorvoSysOut.txt";
constexpr const char* kLibrary = "C:\\Zorvo\\ZorvoSys32.dll";
constexpr int kBrandedWidth = 12;

struct AppInfoCall {
    std::string sFolder;
    std::int32_t hWnd = 0;
    std::string sReportFile;
    std::string sCompanyID;
};
std::vector<AppInfoCall> appInfoCalls;

void recordAppInfo(const char* sFolder, std::int32_t hWnd, const char* sReportFile, const char* sCompanyID)
{
    appInfoCalls.push_back({sFolder, hWnd, sReportFile, sCompanyID});
}

class AboutBox : public testing::Test {
protected:
    AboutBox()
    {
        initSupportPictures();
        sessionState() = SessionState();
        captionState() = CaptionState();
        appInfoCalls.clear();
        platform().help = help;
        supportHost().mainCaption = [] { return std::string("The caption"); };
        fakes.files->addFile("C:\\Zorvo\\xmlCaptions.xml", "<Captions><AboutDialog><Warning>Copying is "
                                                           "theft.</Warning></AboutDialog></Captions>");
        xmlCaptionLoader();
    }
    ~AboutBox() override
    {
        ReleaseHTMLHelp();
        goMousePointer().ClearMousePointer();
        setScreenPointer(0);
        supportHost() = SupportHost();
        captionState() = CaptionState();
        sessionState() = SessionState();
    }

    frmAbout& loaded()
    {
        form.load();
        return form;
    }
    template <typename Control>
    Control* control(const char* name)
    {
        return form.findChild<Control*>(QString::fromLatin1(name));
    }
    void click(const char* name) { control<QPushButton>(name)->click(); }
    void addLibrary(void* symbol) { fakes.libraries->addLibrary(kLibrary, {{"GetAppInfoEx2", symbol}}); }
    /// To the front, away, and to the front again.
    void activateTwice()
    {
        QWidget other;
        form.showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        QCoreApplication::processEvents();
    }

    FakePlatform fakes;
    RecordingMessages messages;
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    frmAbout form;
};

TEST_F(AboutBox, ShowsVersionAndWarning)
{
    EXPECT_EQ(control<QLabel>("lblVersion")->text(), QStringLiteral("Version number goes here"));
    loaded();
    EXPECT_EQ(form.caption(), QStringLiteral("About Zorvo's Brendle"));
    EXPECT_TRUE(control<QLabel>("lblVersion")->text().startsWith(QStringLiteral("Version ")));
    EXPECT_EQ(control<QLabel>("lblVersion")->text().toStdString(), fakes.settings->value("Version"));
    EXPECT_EQ(control<QPlainTextEdit>("txtWarning")->toPlainText(), QStringLiteral("Copying is theft."));
    EXPECT_TRUE(control<QPlainTextEdit>("txtWarning")->isReadOnly());
    EXPECT_EQ(control<QWidget>("txtWarning")->parentWidget()->objectName(), QStringLiteral("fraCredits"));
    EXPECT_EQ(control<QPushButton>("cmdSupport")->text(), QStringLiteral("&Support"));
    EXPECT_EQ(control<QPushButton>("cmdHelp")->text(), QStringLiteral("&Help"));
    EXPECT_EQ(control<QPushButton>("cmdQuickTour")->text(), QStringLiteral("&Quick-Tour"));
}

TEST_F(AboutBox, SetsTheDefaultPointerWhileItIsLoadedAndTheBusyOneBack)
{
    goMousePointer().SetModalDialogState(true);
    goMousePointer().setMousePointer(11);
    loaded();
    EXPECT_EQ(screenPointer(), 0);
    form.unload();
    EXPECT_EQ(screenPointer(), 11);
    goMousePointer().ClearMousePointer();
    goMousePointer().SetModalDialogState(false);
}

TEST_F(AboutBox, SetsTheDefaultPointerOnceTheReportIsWritten)
{
    supportHost().mainCaption = [] {
        setScreenPointer(11);
        return std::string("A main window that was loaded for its caption");
    };
    loaded();
    click("cmdSupport");
    EXPECT_EQ(screenPointer(), 0);
}

TEST_F(AboutBox, OkUnloadsIt)
{
    loaded();
    click("cmdOK");
    EXPECT_FALSE(form.isFormLoaded());
}

TEST_F(AboutBox, HelpShowsTheContents)
{
    loaded();
    click("cmdHelp");
    ASSERT_THAT(help->shown, SizeIs(1));
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

TEST_F(AboutBox, QuickTourIsTheMainWindows)
{
    int nTours = 0;
    supportHost().quickTour = [&nTours] { ++nTours; };
    loaded();
    click("cmdQuickTour");
    EXPECT_EQ(nTours, 1);
}

TEST_F(AboutBox, KeepsTheDefaultCompanysPicture)
{
    const int nWidth = control<QLabel>("picAboutBrand")->pixmap(Qt::ReturnByValue).width();
    EXPECT_GT(nWidth, kBrandedWidth);
    fakes.files->addFile("C:\\Zorvo\\Images\\About.bmp", pictureBytes(kBrandedWidth, "BMP"));
    activateTwice();
    EXPECT_EQ(control<QLabel>("picAboutBrand")->pixmap(Qt::ReturnByValue).width(), nWidth);
}

TEST_F(AboutBox, TakesABrandedCompanysPictureWhenItComesToTheFront)
{
    sessionState().gsCompanyID = "ABC";
    fakes.files->addFile("C:\\Zorvo\\ABC\\About.bmp", pictureBytes(kBrandedWidth, "BMP"));
    loaded();
    EXPECT_GT(control<QLabel>("picAboutBrand")->pixmap(Qt::ReturnByValue).width(), kBrandedWidth);
    activateTwice();
    EXPECT_EQ(control<QLabel>("picAboutBrand")->pixmap(Qt::ReturnByValue).width(), kBrandedWidth);
}

TEST_F(AboutBox, ReportsAMissingPictureOnceAndShowsNone)
{
    sessionState().gsCompanyID = "ABC";
    activateTwice();
    std::size_t nReports = 0;
    for (const std::string& sTag : messages.tags())
        nReports += sTag == "basBranding.LoadBrandedPicture(About.bmp)" ? 1 : 0;
    EXPECT_EQ(nReports, 1U);
    EXPECT_TRUE(control<QLabel>("picAboutBrand")->pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(AboutBox, SupportHandsTheWrittenReportToTheSupportLibrary)
{
    addLibrary(reinterpret_cast<void*>(&recordAppInfo));
    loaded();
    click("cmdSupport");
    ASSERT_THAT(appInfoCalls, SizeIs(1));
    EXPECT_EQ(appInfoCalls[0].sFolder, "C:\\Zorvo\\");
    EXPECT_EQ(appInfoCalls[0].hWnd, static_cast<std::int32_t>(form.winId()));
    EXPECT_EQ(appInfoCalls[0].sReportFile, kReport);
    EXPECT_EQ(appInfoCalls[0].sCompanyID, "Zorvo");
    EXPECT_TRUE(fakes.files->content(kReport));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(AboutBox, LoadsTheSupportLibraryOnceAndFreesItAtUnload)
{
    addLibrary(reinterpret_cast<void*>(&recordAppInfo));
    loaded();
    click("cmdSupport");
    click("cmdSupport");
    EXPECT_THAT(appInfoCalls, SizeIs(2));
    EXPECT_THAT(fakes.libraries->loaded, ElementsAre(kLibrary));
    EXPECT_EQ(fakes.libraries->nUnloads, 0);
    form.unload();
    EXPECT_EQ(fakes.libraries->nUnloads, 1);
}

TEST_F(AboutBox, PassesOverAMissingSupportLibraryAndTriesAgainAtTheNextClick)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path", "", "info");
    loaded();
    click("cmdSupport");
    click("cmdSupport");
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_THAT(fakes.libraries->loaded, ElementsAre(kLibrary, kLibrary));
    EXPECT_TRUE(fakes.files->content(kReport));
    EXPECT_THAT(fakes.launcher->started, ElementsAre("info", "info"));
}

TEST_F(AboutBox, ReportsASupportLibraryWithoutItsFunction)
{
    addLibrary(nullptr);
    loaded();
    click("cmdSupport");
    EXPECT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
}

TEST_F(AboutBox, ReportsAnEmptyLogAndEndsTheClick)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path", "", "info");
    fakes.files->addFile("C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err", "");
    loaded();
    click("cmdSupport");
    ASSERT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
    EXPECT_EQ(messages.reports[0].nNumber, kInputPastEnd);
    EXPECT_THAT(fakes.libraries->loaded, IsEmpty());
    EXPECT_THAT(fakes.launcher->started, IsEmpty());
}

TEST_F(AboutBox, ReportsALogThatCantBeReadAndEndsTheClick)
{
    fakes.files->addFile("C:\\Users\\Test\\Documents\\Halvern House\\Brendle\\Brendle.err", "a,b");
    fakes.files->failOn(FakeFiles::Operation::read, "", kPermissionDenied);
    loaded();
    click("cmdSupport");
    ASSERT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
    EXPECT_EQ(messages.reports[0].nNumber, kPermissionDenied);
    EXPECT_THAT(fakes.libraries->loaded, IsEmpty());
}

TEST_F(AboutBox, ReportsAMissingDocumentsFolderAndEndsTheClick)
{
    fakes.folders->sDocuments.clear();
    loaded();
    click("cmdSupport");
    EXPECT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
    EXPECT_THAT(fakes.libraries->loaded, IsEmpty());
}

TEST_F(AboutBox, ReportsAViewersCommandThatIsAllArgument)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path", "", "%1");
    loaded();
    click("cmdSupport");
    ASSERT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
    EXPECT_EQ(messages.reports[0].nNumber, kInvalidCall);
    EXPECT_TRUE(fakes.files->content(kReport)) << "the report was complete by then";
}

TEST_F(AboutBox, ReportsAViewerThatDoesntStartAndKeepsTheReport)
{
    fakes.registry->setText(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\SharedTools\\MSInfo\\Path", "", "info");
    fakes.launcher->nFailStart = kFileNotFound;
    loaded();
    click("cmdSupport");
    ASSERT_THAT(messages.tags(), ElementsAre("frmAbout.cmdSupport_Click"));
    EXPECT_EQ(messages.reports[0].nNumber, kFileNotFound);
    EXPECT_TRUE(fakes.files->content(kReport));
}

} // namespace
} // namespace zorvo
