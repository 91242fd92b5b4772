#include "search/FindSWDFiles.h"
#include "search/ShowSearchForm.h"
#include "search/forms/QtSearchForms.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/SearchSwdLib.h"
#include "search/forms/searchFormInstances.h"
#include "search/searchState.h"
#include "tests/fakes/FakeFileSearch.h"
#include "tests/search/SearchTest.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// From the search form to the result document, with the real forms, on a fake machine with examples.
class WholeSearchTest : public SearchTest {
protected:
    WholeSearchTest()
    {
        platform().fileSearch = fileSearch;
        installQtSearchForms();
        resultDocuments().BuildExampleDocument = [this] {
            built = searchState().sSWDFoundFiles;
            nFormsAtBuild = Form::loadedForms();
        };
        resultDocuments().FilterMasterDocument = [this](const std::string& sFolder,
                                                        const std::string& sKeyword, std::int16_t nSelected) {
            filtered = {sFolder, sKeyword, std::to_string(nSelected)};
        };
        installEdition("SablewoodLibrary", "2007", "C:\\Lib");
        installEdition("SablewoodNonprofit", "2006", "C:\\Non");
        fakes.files->addFile("C:\\Lib\\Debt.rtf", "{\\rtf1 Long-term debt}");
        fakes.files->addFile("C:\\Lib\\Cash.rtf", "{\\rtf1 Cash in banks}");
        fakes.files->addFile("C:\\Lib\\Both.rtf", "{\\rtf1 Debt paid in cash}");
        fakes.files->addFile("C:\\Non\\Gifts.rtf", "{\\rtf1 Gifts in cash}");
    }
    ~WholeSearchTest() override
    {
        searchSwdLib().unload();
        swdSearchMessage().unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        searchForms() = nullptr;
        resultDocuments() = documentsBefore;
    }

    static QLineEdit& keyword()
    {
        return *searchSwdLib().ifLoaded()->findChild<QLineEdit*>(QStringLiteral("Keyword"));
    }

    /// Types the keyword, picks the edition and presses Search.
    void search(const QString& sKeyword, int nEdition = 0)
    {
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            SearchSwdLib* form = searchSwdLib().ifLoaded();
            if (!form || !form->isActiveWindow())
                return;
            watch.stop();
            keyword().setText(sKeyword);
            form->findChild<QComboBox*>(QStringLiteral("LibraryList"))->setCurrentIndex(nEdition);
            form->findChild<QPushButton*>(QStringLiteral("SearchButton"))->click();
        });
        watch.start(1);
        ShowSearchForm();
    }

    std::shared_ptr<FakeFileSearch> fileSearch = std::make_shared<FakeFileSearch>();
    std::vector<std::string> built;
    std::vector<std::string> filtered;
    int nFormsAtBuild = -1;
    const ResultDocuments documentsBefore = resultDocuments();
};

TEST_F(WholeSearchTest, BuildsADocumentOfTheExamplesFoundOnceTheFormsHaveGone)
{
    const int nForms = Form::loadedForms();
    messages.nAnswer = kMsgResultYes;
    search(QStringLiteral("cash"));
    EXPECT_THAT(built, ElementsAre("C:\\Lib\\Both.rtf", "C:\\Lib\\Cash.rtf"));
    EXPECT_EQ(nFormsAtBuild, nForms);
    EXPECT_EQ(Form::loadedForms(), nForms);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_FALSE(searchState().bSearching);
}

TEST_F(WholeSearchTest, SearchesTheEditionThatWasPicked)
{
    messages.nAnswer = kMsgResultYes;
    search(QStringLiteral("cash"), 1);
    EXPECT_THAT(built, ElementsAre("C:\\Non\\Gifts.rtf"));
    EXPECT_EQ(searchState().nSWDSelected, 2);
}

TEST_F(WholeSearchTest, NoLeavesNothingLoadedAndTheNextSearchWorks)
{
    const int nForms = Form::loadedForms();
    messages.nAnswer = kMsgResultNo;
    search(QStringLiteral("cash"));
    EXPECT_THAT(built, IsEmpty());
    EXPECT_EQ(Form::loadedForms(), nForms);
    messages.nAnswer = kMsgResultYes;
    search(QStringLiteral("debt"));
    EXPECT_THAT(built, ElementsAre("C:\\Lib\\Both.rtf", "C:\\Lib\\Debt.rtf"));
}

TEST_F(WholeSearchTest, TheQuestionStandsAloneOnTheScreen)
{
    messages.whileBoxIsUp = [] {
        EXPECT_FALSE(searchSwdLib().ifLoaded()->isVisible());
        EXPECT_FALSE(swdSearchMessage().ifLoaded()->isVisible());
    };
    search(QStringLiteral("cash"));
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(WholeSearchTest, NothingFoundEndsTheSearch)
{
    const int nForms = Form::loadedForms();
    search(QStringLiteral("nothing"));
    EXPECT_EQ(messages.boxes.at(0).sPrompt, "No examples containing the text 'nothing' were found.");
    EXPECT_EQ(Form::loadedForms(), nForms);
}

TEST_F(WholeSearchTest, TheWaitNoticeIsPaintedWhileFilesAreRead)
{
    fileSearch->answer = []() -> std::vector<std::string> {
        const auto* panel = swdSearchMessage().ifLoaded()->findChild<QLabel*>(QStringLiteral("sbPleaseWait"));
        EXPECT_EQ(panel->text(), QStringLiteral("Example 0 of 1"));
        EXPECT_TRUE(swdSearchMessage().ifLoaded()->isVisible());
        return {};
    };
    search(QStringLiteral("cash"));
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(WholeSearchTest, ARefreshPaintsTheWaitNoticeThoughNoEventsAreServed)
{
    class Painted : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            bYes = bYes || event->type() == QEvent::Paint;
            return false;
        }
        bool bYes = false;
    } painted;
    SWDSearchMessage& notice = swdSearchMessage().get();
    notice.showModeless();
    QCoreApplication::processEvents();
    notice.installEventFilter(&painted);
    searchForms()->refreshMessage();
    EXPECT_TRUE(painted.bYes);
}

TEST_F(WholeSearchTest, TimersAreServedDuringTheSearch)
{
    int nServed = 0;
    fileSearch->answer = [&]() -> std::vector<std::string> {
        QTimer::singleShot(0, [&nServed] { ++nServed; });
        searchForms()->showProgress(1, 2);
        return {};
    };
    search(QStringLiteral("cash"));
    EXPECT_EQ(nServed, 1);
}

TEST_F(WholeSearchTest, TheMasterIsFilteredWhereWordHasNoFileSearch)
{
    const int nForms = Form::loadedForms();
    office->setVersions("12.0", "12.0");
    search(QStringLiteral("cash"), 1);
    EXPECT_THAT(filtered, ElementsAre("C:\\Non", "cash", "2"));
    EXPECT_THAT(fileSearch->asked, IsEmpty());
    EXPECT_EQ(Form::loadedForms(), nForms);
}

TEST_F(WholeSearchTest, AFailureIsReportedOnceAndEverythingGoes)
{
    const int nForms = Form::loadedForms();
    fileSearch->nFailure = 429;
    search(QStringLiteral("cash"));
    EXPECT_THAT(messages.tags(), ElementsAre("SWDSearchSupport.FindSWDFiles"));
    EXPECT_EQ(Form::loadedForms(), nForms);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(WholeSearchTest, WithoutWordTheCallerIsToldAndEverythingGoes)
{
    const int nForms = Form::loadedForms();
    office->bWordInstalled = false;
    EXPECT_EQ(numberOfFailure([&] { search(QStringLiteral("cash")); }), kCannotCreateObject);
    EXPECT_EQ(Form::loadedForms(), nForms);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

} // namespace
} // namespace zorvo
