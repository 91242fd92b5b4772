#include "search/forms/SearchSwdLib.h"

#include "branding/companyIdentity.h"
#include "search/ShowSearchForm.h"
#include "search/forms/SWDSearchHelpText.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/searchFormInstances.h"
#include "search/searchState.h"
#include "tests/search/SearchTest.h"
#include "tests/support/pictureBytes.h"
#include "window/MnemonicLabel.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SearchSwdLibTest : public SearchTest {
protected:
    SearchSwdLibTest()
    {
        searchEngine() = [this] {
            ++nSearches;
            if (whileSearching)
                whileSearching();
        };
    }
    ~SearchSwdLibTest() override
    {
        searchSwdLib().unload();
        swdSearchMessage().unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QPushButton& button(const char* name)
    {
        return *searchSwdLib().ifLoaded()->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    static QComboBox& libraries()
    {
        return *searchSwdLib().ifLoaded()->findChild<QComboBox*>(QStringLiteral("LibraryList"));
    }
    static QLineEdit& keyword()
    {
        return *searchSwdLib().ifLoaded()->findChild<QLineEdit*>(QStringLiteral("Keyword"));
    }

    /// Shows the form and acts when it is up; the form is closed if the act leaves it open.
    void show(const std::function<void()>& act)
    {
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            SearchSwdLib* form = searchSwdLib().ifLoaded();
            // Its activate event serves timers too, ahead of its end.
            const bool bCame = !dynamic_cast<const FakeMachine&>(*platform().machine).sleeps.empty();
            if (!form || !form->isActiveWindow() || !bCame)
                return;
            watch.stop();
            act();
            form = searchSwdLib().ifLoaded();
            if (form && form->isVisible())
                form->unload();
        });
        watch.start(1);
        ShowSearchForm();
    }

    void search(const std::string& sKeyword)
    {
        show([&] {
            keyword().setText(QString::fromStdString(sKeyword));
            button("SearchButton").click();
        });
    }

    int nSearches = 0;
    std::function<void()> whileSearching;
};

TEST_F(SearchSwdLibTest, CarriesItsCaptionAndThoseOfItsControls)
{
    show([] {
        const SearchSwdLib& form = *searchSwdLib().ifLoaded();
        EXPECT_EQ(form.objectName(), QStringLiteral("SearchSwdLib"));
        EXPECT_EQ(form.caption(), QStringLiteral("Search Zorvo's Sablewood Library"));
        EXPECT_EQ(form.findChild<MnemonicLabel*>(QStringLiteral("Label1"))->caption(),
                  QStringLiteral("Select a Zorvo &Sablewood Library:"));
        EXPECT_EQ(form.findChild<MnemonicLabel*>(QStringLiteral("Label2"))->caption(),
                  QStringLiteral("Enter a &word or phrase to look for:"));
        EXPECT_EQ(button("SearchButton").text(), QStringLiteral("&Search"));
        EXPECT_EQ(button("CancelSearchButton").text(), QStringLiteral("Cancel"));
        EXPECT_EQ(button("SearchHelpButton").text(), QStringLiteral("&Help"));
        EXPECT_EQ(libraries().accessibleName(), QStringLiteral("Select a Zorvo Sablewood Library:"));
        EXPECT_EQ(keyword().accessibleName(), QStringLiteral("Enter a word or phrase to look for:"));
    });
}

TEST_F(SearchSwdLibTest, ListsTheEditionsFoundAndSelectsTheFirst)
{
    installEdition("SablewoodLibrary", "2007", "C:\\Lib");
    installEdition("SablewoodGovernment", "2006", "C:\\Gov");
    show([] {
        ASSERT_EQ(libraries().count(), 2);
        EXPECT_EQ(libraries().itemText(0), QStringLiteral("Library 2007"));
        EXPECT_EQ(libraries().itemText(1), QStringLiteral("Governments 2006"));
        EXPECT_EQ(libraries().currentIndex(), 0);
        EXPECT_FALSE(libraries().isEditable());
        EXPECT_EQ(searchSwdLib().ifLoaded()->libraryText(), "Library 2007");
    });
}

TEST_F(SearchSwdLibTest, OpensWithAnEmptyListWhenNothingIsFoundAndStillSearches)
{
    whileSearching = [] {
        EXPECT_EQ(searchSwdLib().ifLoaded()->libraryText(), "");
        EXPECT_EQ(libraries().placeholderText(), QStringLiteral("No library is installed"));
    };
    search("assets");
    EXPECT_EQ(nSearches, 1);
}

TEST_F(SearchSwdLibTest, LoadsUnderABusyPointerThatReachesTheMainForm)
{
    std::int16_t nPointerAtExcelMessage = 0;
    messages.whileBoxIsUp = [&] { nPointerAtExcelMessage = goMousePointer().MousePointer(); };
    office->setVersions("11.0", "8.0");
    show([] { EXPECT_EQ(goMousePointer().MousePointer(), 0); });
    EXPECT_EQ(nPointerAtExcelMessage, 11);
    EXPECT_THAT(gate.calls, ElementsAre("load main form", "disable", "load main form", "enable"));
}

TEST_F(SearchSwdLibTest, AFailingLoadReachesTheCallerAndLeavesNothingBehind)
{
    fakes.files->remove("C:\\Zorvo\\TreeData\\SWDXML.xml");
    const int nLoaded = Form::loadedForms();
    EXPECT_EQ(numberOfFailure([] { ShowSearchForm(); }), kObjectNotSet);
    EXPECT_EQ(Form::loadedForms(), nLoaded);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(SearchSwdLibTest, ComesInFrontFor250MillisecondsThenTheKeywordHasTheFocus)
{
    show([this] {
        EXPECT_THAT(fakes.machine->sleeps, ElementsAre(250));
        EXPECT_FALSE(searchSwdLib().ifLoaded()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_TRUE(keyword().hasFocus());
    });
}

TEST_F(SearchSwdLibTest, StandsAboveAllOtherWindowsWhileItComesInFront)
{
    class WatchingMachine : public FakeMachine {
    public:
        void sleep(int milliseconds) override
        {
            FakeMachine::sleep(milliseconds);
            bOnTop = searchSwdLib().ifLoaded()->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        }
        bool bOnTop = false;
    };
    const auto machine = std::make_shared<WatchingMachine>();
    platform().machine = machine;
    show([&] {
        EXPECT_TRUE(machine->bOnTop);
        EXPECT_FALSE(searchSwdLib().ifLoaded()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    });
}

TEST_F(SearchSwdLibTest, AKeywordOfTenThousandCharactersIsSearchedForWhole)
{
    const std::string sLong(10'000, 'x');
    std::string sSearched;
    whileSearching = [&] { sSearched = searchSwdLib().ifLoaded()->keywordText(); };
    search(sLong);
    EXPECT_EQ(sSearched, sLong);
}

TEST_F(SearchSwdLibTest, AnErrorWhileComingInFrontIsSuppressed)
{
    class FailingMachine : public FakeMachine {
    public:
        void sleep(int milliseconds) override
        {
            FakeMachine::sleep(milliseconds);
            throw RunTimeError(kInvalidCall);
        }
    };
    platform().machine = std::make_shared<FailingMachine>();
    bool bUp = false;
    show([&] { bUp = searchSwdLib().ifLoaded()->isVisible(); });
    EXPECT_TRUE(bUp);
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(SearchSwdLibTest, AnEmptyKeywordIsAskedForAndTheFormStaysOpen)
{
    bool bOpen = false;
    show([&] {
        button("SearchButton").click();
        bOpen = searchSwdLib().ifLoaded()->isVisible();
    });
    EXPECT_TRUE(bOpen);
    EXPECT_EQ(nSearches, 0);
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Please enter a word or phrase to search for.");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
}

TEST_F(SearchSwdLibTest, AKeywordOfBlanksIsSearchedForAsItIs)
{
    whileSearching = [] { EXPECT_EQ(searchSwdLib().ifLoaded()->keywordText(), "  "); };
    search("  ");
    EXPECT_EQ(nSearches, 1);
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(SearchSwdLibTest, SearchesBehindTheWaitNoticeWithTheFormHiddenButReadable)
{
    whileSearching = [] {
        ASSERT_NE(searchSwdLib().ifLoaded(), nullptr);
        EXPECT_FALSE(searchSwdLib().ifLoaded()->isVisible());
        EXPECT_EQ(searchSwdLib().ifLoaded()->keywordText(), "gr?y");
        ASSERT_NE(swdSearchMessage().ifLoaded(), nullptr);
        EXPECT_TRUE(swdSearchMessage().ifLoaded()->isVisible());
        EXPECT_FALSE(swdSearchMessage().ifLoaded()->isModal());
    };
    search("gr?y");
    EXPECT_EQ(nSearches, 1);
}

TEST_F(SearchSwdLibTest, IsUnloadedOnceTheSearchHasHiddenIt)
{
    search("x");
    EXPECT_EQ(searchSwdLib().ifLoaded(), nullptr);
}

TEST_F(SearchSwdLibTest, ASearchMayUnloadTheFormItself)
{
    whileSearching = [] {
        searchSwdLib().unload();
        swdSearchMessage().unload();
    };
    const int nLoaded = Form::loadedForms();
    search("x");
    EXPECT_EQ(Form::loadedForms(), nLoaded);
}

TEST_F(SearchSwdLibTest, ASearchThatOnlyHidItsFormsLeavesNoneBehind)
{
    whileSearching = [] { swdSearchMessage().get().hide(); };
    const int nLoaded = Form::loadedForms();
    search("x");
    EXPECT_EQ(Form::loadedForms(), nLoaded);
}

TEST_F(SearchSwdLibTest, AFailedSearchTakesTheWaitNoticeAway)
{
    whileSearching = [] { throw RunTimeError(429); };
    const int nLoaded = Form::loadedForms();
    EXPECT_EQ(numberOfFailure([&] { search("x"); }), 429);
    EXPECT_EQ(Form::loadedForms(), nLoaded);
    EXPECT_FALSE(searchState().bSearching);
}

TEST_F(SearchSwdLibTest, AnotherCallDuringTheSearchFailsAndLeavesItsFormAlone)
{
    whileSearching = [] {
        EXPECT_EQ(numberOfFailure([] { ShowSearchForm(); }), kInvalidCall);
        ASSERT_NE(searchSwdLib().ifLoaded(), nullptr);
        EXPECT_EQ(searchSwdLib().ifLoaded()->keywordText(), "cash");
    };
    search("cash");
    EXPECT_EQ(nSearches, 1);
    whileSearching = {};
    search("again");
    EXPECT_EQ(nSearches, 2);
}

TEST_F(SearchSwdLibTest, AnotherModalFormIsAskedToBeClosed)
{
    Form other("frmOther");
    QTimer::singleShot(0, &other, [&] {
        search("x");
        other.unload();
    });
    other.showModal();
    EXPECT_EQ(nSearches, 0);
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Please close form and retry search.");
    EXPECT_EQ(messages.boxes[0].nStyle, 0);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
}

TEST_F(SearchSwdLibTest, Error401OfTheSearchIsToldTheSameWay)
{
    whileSearching = [] { throw RunTimeError(401, "modal"); };
    search("x");
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Please close form and retry search.");
}

TEST_F(SearchSwdLibTest, AnyOtherErrorReachesTheCallerWithNumberSourceAndDescription)
{
    whileSearching = [] { throw RunTimeError(5174, "File is not there", "Somewhere.Else"); };
    try {
        search("x");
        FAIL() << "nothing was thrown";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 5174);
        EXPECT_EQ(error.description(), "File is not there");
        EXPECT_EQ(error.source(), "Somewhere.Else");
    }
    EXPECT_EQ(searchSwdLib().ifLoaded(), nullptr);
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(SearchSwdLibTest, CancelUnloadsTheForm)
{
    show([] {
        button("CancelSearchButton").click();
        EXPECT_EQ(searchSwdLib().ifLoaded(), nullptr);
    });
    EXPECT_EQ(nSearches, 0);
}

TEST_F(SearchSwdLibTest, EscapeCancelsAndEnterSearches)
{
    show([] {
        QTest::keyClick(&keyword(), Qt::Key_Escape);
        EXPECT_EQ(searchSwdLib().ifLoaded(), nullptr);
    });
    show([] {
        keyword().setText(QStringLiteral("x"));
        QTest::keyClick(&keyword(), Qt::Key_Return);
    });
    EXPECT_EQ(nSearches, 1);
}

TEST_F(SearchSwdLibTest, HelpShowsTheContentsOfTheProgramsHelp)
{
    show([] { button("SearchHelpButton").click(); });
    ASSERT_THAT(help->shown, SizeIs(1));
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

TEST_F(SearchSwdLibTest, ASecondShowWhileItIsUpFailsAndLeavesTheFirst)
{
    show([] {
        EXPECT_EQ(numberOfFailure([] { ShowSearchForm(); }), kInvalidCall);
        ASSERT_NE(searchSwdLib().ifLoaded(), nullptr);
        EXPECT_TRUE(searchSwdLib().ifLoaded()->isVisible());
    });
}

TEST_F(SearchSwdLibTest, WithoutASearchTheButtonIsDisabledAndSaysWhy)
{
    searchEngine() = {};
    show([] {
        EXPECT_FALSE(button("SearchButton").isEnabled());
        EXPECT_EQ(button("SearchButton").toolTip(), QStringLiteral("The search isn't part of this build."));
    });
}

TEST_F(SearchSwdLibTest, ReadsAsTheCompanysOwn)
{
    StoreCompanyID("ABC");
    show([] {
        EXPECT_EQ(searchSwdLib().ifLoaded()->caption(), QStringLiteral("Search ABC's Sablewood Library"));
        EXPECT_EQ(searchSwdLib().ifLoaded()->findChild<MnemonicLabel*>(QStringLiteral("Label1"))->caption(),
                  QStringLiteral("Select a ABC &Sablewood Library:"));
    });
}

TEST_F(SearchSwdLibTest, TheWaitNoticeSaysWhatIsGoingOn)
{
    SWDSearchMessage& notice = swdSearchMessage().get();
    EXPECT_EQ(notice.objectName(), QStringLiteral("SWDSearchMessage"));
    EXPECT_EQ(notice.caption(), QStringLiteral("Zorvo's Sablewood Library is being searched"));
    EXPECT_EQ(
        notice.findChild<MnemonicLabel*>(QStringLiteral("lblInstanceName"))->caption(),
        QStringLiteral("Now searching the database of example disclosures. This may take a few minutes."));
    EXPECT_NE(notice.findChild<QLabel*>(QStringLiteral("sbPleaseWait")), nullptr);
    EXPECT_FALSE(notice.findChild<QLabel*>(QStringLiteral("imgDocument"))->pixmap().isNull());
}

TEST_F(SearchSwdLibTest, TheWaitNoticeCountsTheExamples)
{
    SWDSearchMessage& notice = swdSearchMessage().get();
    const auto* panel = notice.findChild<QLabel*>(QStringLiteral("sbPleaseWait"));
    notice.setProgress(0, 0);
    EXPECT_EQ(panel->text(), QStringLiteral("Please wait"));
    notice.setProgress(12, 150);
    EXPECT_EQ(panel->text(), QStringLiteral("Example 12 of 150"));
}

TEST_F(SearchSwdLibTest, TheWaitNoticeShowsAnotherCompanysProductIcon)
{
    fakes.files->addFile("C:\\Zorvo\\Images\\Product16.ico", pictureBytes(16));
    fakes.files->addFile("C:\\Zorvo\\Images\\Brendle.ico", pictureBytes(16));
    StoreCompanyID("ABC");
    const SWDSearchMessage& notice = swdSearchMessage().get();
    EXPECT_EQ(notice.caption(), QStringLiteral("ABC's Sablewood Library is being searched"));
    const QPixmap shown = notice.findChild<QLabel*>(QStringLiteral("imgDocument"))->pixmap();
    EXPECT_EQ(shown.toImage().pixelColor(shown.width() / 2, shown.height() / 2), QColor(Qt::red));
}

TEST_F(SearchSwdLibTest, TheRulesKeepTheirWordingLineByLine)
{
    const SWDSearchHelpText form;
    const QString text = form.findChild<MnemonicLabel*>()->caption();
    EXPECT_EQ(text.split(QLatin1Char('\n')),
              QStringList({
                  QStringLiteral("To search the example disclosures in Zorvo's Sablewood Library:"),
                  QStringLiteral("- Enter keyword(s) without quotes."),
                  QStringLiteral("- Keep in mind that examples containing all of the keyword(s)"),
                  QStringLiteral("entered, in no strict order, will be returned (e.g., entering"),
                  QStringLiteral("Current Assets will return all examples containing the phrase"),
                  QStringLiteral("'Current Assets' as well as all examples containing both of the"),
                  QStringLiteral("words Current and Assets)."),
                  QStringLiteral("- Use the ? wildcard character to match any single character"),
                  QStringLiteral("(e.g., entering gr?y will return examples containing the word"),
                  QStringLiteral("gray or grey)."),
                  QStringLiteral("- Use the * wildcard character to match any number of"),
                  QStringLiteral("characters (e.g., account* will return examples containing"),
                  QStringLiteral("the word account, accounts, or accounting)."),
              }));
}

} // namespace
} // namespace zorvo
