#include "window/PageView.h"

#include "tests/fakes/RecordingPageEngine.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/pictureBytes.h"
#include "tests/window/WindowTest.h"
#include "window/Form.h"
#include "window/RichTextPage.h"

#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kPage = "file://C:\\Zorvo\\TreeData\\HTML\\AUD.htm";

class PageViewTest : public testing::Test {
protected:
    class Window : public Form {
    public:
        Window()
            : Form("Window")
            , before(new QPushButton(QStringLiteral("Before"), this))
            , view(new PageView("web", this))
            , after(new QPushButton(QStringLiteral("After"), this))
        {
            auto* layout = new QVBoxLayout(this);
            layout->addWidget(before);
            layout->addWidget(view, 1);
            layout->addWidget(after);
            resize(400, 300);
        }
        void onActivate() override { ++nActivated; }
        void onDeactivate() override { ++nDeactivated; }

        QPushButton* before;
        PageView* view;
        QPushButton* after;
        int nActivated = 0;
        int nDeactivated = 0;
    };

    PageViewTest() { platform().pages = engine; }

    void show()
    {
        window.showModeless();
        ASSERT_TRUE(waitUntil([this] { return window.nActivated == 1; }));
    }
    PageView& view() { return *window.view; }
    bool shows(const QString& text) const
    {
        for (const QLabel* label : window.view->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(text))
                return true;
        }
        return false;
    }
    QTextBrowser* richText() const { return window.view->findChild<QTextBrowser*>(); }

    FakePlatform fakes;
    std::shared_ptr<RecordingPageEngine> engine = std::make_shared<RecordingPageEngine>();
    Window window;
};

TEST_F(PageViewTest, StartsTheEngineOnceAtTheFirstNeed)
{
    EXPECT_EQ(engine->nOpened, 0);
    view().start();
    view().navigate(kPage);
    view().navigate("https://www.zorvo.example/");
    EXPECT_EQ(engine->nOpened, 1);
    EXPECT_THAT(engine->navigated, ElementsAre(kPage, "https://www.zorvo.example/"));
}

TEST_F(PageViewTest, TellsWhatBecomesOfPages)
{
    std::vector<std::string> told;
    QObject::connect(&view(), &PageView::finished,
                     [&](const std::string& s) { told.push_back("finished " + s); });
    QObject::connect(&view(), &PageView::failed,
                     [&](const std::string& s) { told.push_back("failed " + s); });
    QObject::connect(&view(), &PageView::stopped, [&] { told.emplace_back("stopped"); });
    view().navigate(kPage);
    engine->listener->pageFinished("a");
    engine->listener->pageFailed("b");
    engine->listener->pageStopped();
    EXPECT_THAT(told, ElementsAre("finished a", "failed b", "stopped"));
}

TEST_F(PageViewTest, ThePageIsSeenWhenTheViewIsAndItsWindowStays)
{
    view().start();
    EXPECT_THAT(engine->windows, IsEmpty());
    show();
    ASSERT_TRUE(waitUntil([this] { return !engine->windows.empty(); }));
    auto* host = view().findChild<QWidget*>(QStringLiteral("qt_pageHost"));
    EXPECT_THAT(engine->windows, ElementsAre(static_cast<std::uintptr_t>(host->winId())));
    QTest::qWait(50);
    EXPECT_EQ(engine->windows.size(), 1U);
}

TEST_F(PageViewTest, APageThatOpensInAVisibleViewIsSeenAtOnce)
{
    show();
    view().start();
    EXPECT_EQ(engine->windows.size(), 1U);
}

TEST_F(PageViewTest, TheEngineHearsTheViewsSize)
{
    show();
    view().navigate(kPage);
    window.resize(500, 400);
    QCoreApplication::processEvents();
    const std::string sSize = "resize " + std::to_string(view().contentsRect().width()) + " " +
                              std::to_string(view().contentsRect().height());
    EXPECT_TRUE(waitUntil([&] { return !engine->told.empty() && engine->told.back() == sSize; }));
}

TEST_F(PageViewTest, ABoxOverTheFormBlocksThePage)
{
    show();
    view().navigate(kPage);
    engine->told.clear();
    {
        QMessageBox box;
        box.setModal(true);
        box.show();
        EXPECT_THAT(engine->told, Contains("block"));
        EXPECT_THAT(engine->told, Not(Contains("unblock")));
    }
    EXPECT_THAT(engine->told, Contains("unblock"));
}

TEST_F(PageViewTest, TheKeyboardEntersThePageAtTheEndThatItComesFrom)
{
    show();
    view().navigate(kPage);
    window.before->setFocus();
    engine->told.clear();
    QTest::keyClick(window.before, Qt::Key_Tab);
    EXPECT_TRUE(view().hasFocus());
    EXPECT_THAT(engine->told, ElementsAre("focus first"));
    window.after->setFocus();
    QTest::keyClick(window.after, Qt::Key_Backtab);
    EXPECT_THAT(engine->told, ElementsAre("focus first", "focus last"));
}

TEST_F(PageViewTest, TheKeyboardLeavesThePageToItsNeighbours)
{
    show();
    view().navigate(kPage);
    view().setFocus();
    engine->listener->pageLeft(true);
    EXPECT_TRUE(window.after->hasFocus());
    view().setFocus();
    engine->listener->pageLeft(false);
    EXPECT_TRUE(window.before->hasFocus());
}

TEST_F(PageViewTest, APageThatTakesTheKeyboardHasTheFocusAndIsntToldToTakeIt)
{
    show();
    view().navigate(kPage);
    window.before->setFocus();
    engine->told.clear();
    engine->listener->pageFocusChanged(true);
    EXPECT_TRUE(view().hasFocus());
    EXPECT_THAT(engine->told, IsEmpty());
}

TEST_F(PageViewTest, TheFormStaysActiveWhileItsPageHasTheKeyboard)
{
    show();
    view().navigate(kPage);
    engine->listener->pageFocusChanged(true);
    QWidget pageWindow; // stands for the page's own
    pageWindow.show();
    pageWindow.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return pageWindow.isActiveWindow(); }));
    EXPECT_EQ(window.nDeactivated, 0);
    window.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
    engine->listener->pageFocusChanged(false);
    QTest::qWait(400);
    EXPECT_EQ(window.nDeactivated, 0);
    EXPECT_EQ(window.nActivated, 1) << "it has been active all the time";
}

TEST_F(PageViewTest, AFormWhosePageLosesTheKeyboardToAnotherWindowIsInactive)
{
    show();
    view().navigate(kPage);
    engine->listener->pageFocusChanged(true);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return other.isActiveWindow(); }));
    engine->listener->pageFocusChanged(false);
    EXPECT_TRUE(waitUntil([&] { return window.nDeactivated == 1; }));
    window.activateWindow();
    EXPECT_TRUE(waitUntil([&] { return window.nActivated == 2; }));
}

TEST_F(PageViewTest, AnEngineThatHasEndedIsToldInThePagesPlaceAndStartsAgainWithTheNextPage)
{
    show();
    view().navigate(kPage);
    QSignalSpy stopped(&view(), &PageView::stopped);
    engine->listener->pageGone(true);
    EXPECT_EQ(stopped.count(), 1);
    EXPECT_TRUE(shows(QStringLiteral("ended unexpectedly")));
    EXPECT_TRUE(waitUntil([this] { return engine->nOpen == 0; }));
    view().navigate("https://www.zorvo.example/");
    EXPECT_EQ(engine->nOpened, 2);
    EXPECT_EQ(engine->nOpen, 1);
    EXPECT_EQ(engine->navigated.back(), "https://www.zorvo.example/");
    EXPECT_FALSE(shows(QStringLiteral("ended unexpectedly")));
}

TEST_F(PageViewTest, AnEngineThatNeverCameUpIsReplacedByRichTextWithoutLosingThePage)
{
    fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\AUD.htm", "<h1>Audits</h1>");
    show();
    QSignalSpy finished(&view(), &PageView::finished);
    view().navigate(kPage);
    engine->listener->pageGone(false);
    EXPECT_TRUE(waitUntil([&] { return finished.count() == 1; }));
    ASSERT_NE(richText(), nullptr);
    EXPECT_EQ(richText()->toPlainText(), QStringLiteral("Audits"));
    view().navigate(kPage);
    EXPECT_EQ(engine->nOpened, 1) << "what can't run here isn't tried again";
}

class RichText : public PageViewTest {
protected:
    RichText()
    {
        engine->bMissing = true;
        QObject::connect(&view(), &PageView::finished,
                         [this](const std::string& s) { finished.push_back(s); });
        QObject::connect(&view(), &PageView::failed, [this](const std::string& s) { failed.push_back(s); });
    }

    void write(const std::string& sName, const std::string& sText)
    {
        fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\" + sName, sText);
    }
    bool navigate(const std::string& sAddress)
    {
        finished.clear();
        failed.clear();
        view().navigate(sAddress);
        EXPECT_THAT(finished, IsEmpty()) << "nothing is told from within the call";
        return waitUntil([this] { return finished.size() + failed.size() == 1; });
    }
    void follow(const char* sLink) { Q_EMIT richText()->anchorClicked(QUrl(QString::fromUtf8(sLink))); }
    QVariant resource(const char* sName)
    {
        return richText()->document()->resource(QTextDocument::ImageResource, QUrl(QString::fromUtf8(sName)));
    }

    std::vector<std::string> finished;
    std::vector<std::string> failed;
};

TEST_F(RichText, ShowsThePagesOfTheMachine)
{
    write("AUD.htm", "<meta charset=utf-8><h1>Audits \xC3\xA9</h1><script>bad()</script>");
    ASSERT_TRUE(navigate(kPage));
    EXPECT_THAT(finished, ElementsAre(kPage));
    EXPECT_EQ(richText()->toPlainText(), QStringLiteral("Audits \u00E9"));
}

TEST_F(RichText, AMissingPageFails)
{
    ASSERT_TRUE(navigate(kPage));
    EXPECT_THAT(failed, ElementsAre(kPage));
    EXPECT_FALSE(richText()->toPlainText().isEmpty());
}

TEST_F(RichText, AWebPageIsLeftToTheBrowserAndSaysSo)
{
    ASSERT_TRUE(navigate("https://www.zorvo.example/"));
    EXPECT_THAT(finished, ElementsAre("https://www.zorvo.example/"));
    EXPECT_TRUE(richText()->toPlainText().contains(QStringLiteral("browser")));
}

TEST_F(RichText, OnlyTheLastOfQuickRequestsShows)
{
    write("AUD.htm", "A");
    write("REV.htm", "R");
    view().navigate(kPage);
    ASSERT_TRUE(navigate("file://C:\\Zorvo\\TreeData\\HTML\\REV.htm"));
    QTest::qWait(20);
    EXPECT_THAT(finished, ElementsAre("file://C:\\Zorvo\\TreeData\\HTML\\REV.htm"));
}

TEST_F(RichText, LinksLeadWithinTheFolderAndToTheWebAndNowhereElse)
{
    write("AUD.htm", "A");
    write("more\\REV 2.htm", "R");
    ASSERT_TRUE(navigate(kPage));
    finished.clear();
    for (const char* sLink : {"file:///etc/passwd", "../secret.htm", "/etc/passwd", "C:/Zorvo/x.htm",
                              "mailto:a@b.example", "javascript:1", "//server/share.htm", "a/../../x.htm"})
        follow(sLink);
    QTest::qWait(20);
    EXPECT_THAT(finished, IsEmpty());
    EXPECT_THAT(failed, IsEmpty());
    follow("more/REV%202.htm");
    EXPECT_TRUE(waitUntil([this] { return finished.size() == 1; }));
    EXPECT_THAT(finished, ElementsAre("file://C:\\Zorvo\\TreeData\\HTML\\more\\REV 2.htm"));
    follow("https://www.zorvo.example/");
    EXPECT_TRUE(waitUntil([this] { return finished.size() == 2; }));
}

TEST_F(RichText, PicturesComeFromThePagesFolderAlone)
{
    const std::string sDot = pictureBytes(7);
    write("AUD.htm", "A");
    write("dot.png", sDot);
    write("text.png", "no picture");
    fakes.files->addFile("C:\\Zorvo\\TreeData\\dot.png", sDot);
    const TemporaryFolder outside;
    const std::string sOutside = outside / "dot.png";
    putFile(sOutside, sDot);
    ASSERT_TRUE(navigate(kPage));
    const auto size = [&](const std::string& sName) {
        return resource(sName.c_str()).value<QImage>().size();
    };
    EXPECT_EQ(size("dot.png"), QSize(7, 7));
    // A null picture would be looked for among the user's own files.
    for (const std::string& sName :
         std::vector<std::string>{"../dot.png", "file:///C:/Zorvo/TreeData/dot.png", "none.png", "text.png",
                                  sOutside, "file://" + sOutside})
        EXPECT_EQ(size(sName), QSize(1, 1)) << sName;
}

TEST_F(RichText, StyleSheetsComeFromThePagesFolderAlone)
{
    write("AUD.htm", "A");
    write("page.css", "p { color: red }");
    const TemporaryFolder outside;
    putFile(outside / "page.css", "p { color: blue }");
    ASSERT_TRUE(navigate(kPage));
    const auto sheet = [&](const std::string& sName) {
        return richText()
            ->document()
            ->resource(QTextDocument::StyleSheetResource, QUrl(QString::fromStdString(sName)))
            .toString();
    };
    EXPECT_EQ(sheet("page.css"), QStringLiteral("p { color: red }"));
    EXPECT_EQ(sheet("none.css"), QString());
    EXPECT_EQ(sheet("file://" + (outside / "page.css")), QString());
}

} // namespace
} // namespace zorvo
