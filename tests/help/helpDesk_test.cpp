#include "help/viewer/HelpDesk.h"

#include "help/viewer/HelpWindow.h"
#include "help/viewer/PageView.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/help/HelpTest.h"
#include "tests/support/testFolders.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
#include <filesystem>

namespace zorvo::help {
namespace {

class HelpDeskTest : public HelpTest {
protected:
    HelpDeskTest() { threePages().write(path()); }

    static QList<HelpWindow*> windows()
    {
        QList<HelpWindow*> found;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = qobject_cast<HelpWindow*>(widget); window && window->isVisible())
                found.append(window);
        return found;
    }
    static QMessageBox* box()
    {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QMessageBox*>(widget); found && found->isVisible())
                return found;
        return nullptr;
    }
    std::uintptr_t show(const QString& book, int nCommand, std::uint32_t nData = 0,
                        const QString& client = QStringLiteral("a"))
    {
        return desk_.show(0, book, nCommand, nData, client);
    }
    static QString pageOf(HelpWindow* window) { return window->findChild<PageView*>()->page(); }

    QStringList opened_;
    FakeSettings settings_;
    HelpDesk desk_{reader(), [this](const QString& address) { opened_.append(address); }, settings_};
};

TEST_F(HelpDeskTest, EachCommandShowsTheOneWindowOfItsBook)
{
    const std::uintptr_t handle = show(file(), HelpViewer::kDisplayContents);
    EXPECT_NE(handle, 0U);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(pageOf(windows()[0]), QStringLiteral("/one.htm"));
    EXPECT_EQ(show(file(), HelpViewer::kContext, 1), handle);
    EXPECT_EQ(pageOf(windows()[0]), QStringLiteral("/two.htm"));
    EXPECT_EQ(show(file(), HelpViewer::kDisplayIndex), handle);
    EXPECT_EQ(pageOf(windows()[0]), QStringLiteral("/two.htm"));
    EXPECT_EQ(show(file(), HelpViewer::kDisplayTopic), handle);
    EXPECT_EQ(pageOf(windows()[0]), QStringLiteral("/one.htm"));
    EXPECT_EQ(windows().size(), 1);
}

TEST_F(HelpDeskTest, OneFileByTwoSpellingsHasOneWindow)
{
    std::filesystem::create_symlink(path(), path("link.chm"));
    const std::uintptr_t handle = show(file(), HelpViewer::kDisplayContents);
    EXPECT_EQ(show(file("link.chm"), HelpViewer::kDisplayContents), handle);
    EXPECT_EQ(show(QString::fromStdString(folder_.path()) + QStringLiteral("/./book.chm"),
                   HelpViewer::kDisplayContents),
              handle);
}

TEST_F(HelpDeskTest, TwoBooksHaveTwoWindows)
{
    threePages().title("Other").write(path("other.chm"));
    EXPECT_NE(show(file(), HelpViewer::kDisplayContents),
              show(file("other.chm"), HelpViewer::kDisplayContents));
    EXPECT_EQ(windows().size(), 2);
}

TEST_F(HelpDeskTest, AFileThatWasReplacedIsReadAnew)
{
    show(file(), HelpViewer::kDisplayContents);
    threePages().title("The new edition of the book").write(path());
    show(file(), HelpViewer::kDisplayContents);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows()[0]->windowTitle(), QStringLiteral("The new edition of the book"));
}

TEST_F(HelpDeskTest, AClosedWindowComesBack)
{
    show(file(), HelpViewer::kDisplayContents);
    windows()[0]->close();
    EXPECT_NE(show(file(), HelpViewer::kDisplayContents), 0U);
    EXPECT_EQ(windows().size(), 1);
}

TEST_F(HelpDeskTest, AWindowComesBackWhereItWasAndAsItWasParted)
{
    show(file(), HelpViewer::kDisplayContents);
    windows()[0]->setGeometry(40, 60, 620, 500);
    QTest::qWait(0);
    auto* panes = windows()[0]->findChild<QSplitter*>();
    panes->setSizes({200, 420});
    const QList<int> sizes = panes->sizes();
    windows()[0]->close();

    HelpDesk later(
        reader(), [](const QString&) {}, settings_);
    later.show(0, file(), HelpViewer::kDisplayContents, 0, QStringLiteral("b"));
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows()[0]->geometry(), QRect(40, 60, 620, 500));
    EXPECT_EQ(windows()[0]->findChild<QSplitter*>()->sizes(), sizes);
}

TEST_F(HelpDeskTest, ASecondBooksWindowDoesNotLieOnTheFirst)
{
    threePages().title("Another").write(path("other.chm"));
    show(file(), HelpViewer::kDisplayContents);
    windows()[0]->setGeometry(40, 60, 620, 500);
    windows()[0]->close();
    show(file(), HelpViewer::kDisplayContents);
    show(file("other.chm"), HelpViewer::kDisplayContents);
    ASSERT_EQ(windows().size(), 2);
    EXPECT_NE(windows()[0]->geometry(), windows()[1]->geometry());
}

TEST_F(HelpDeskTest, APlaceThatIsNoneAndOneThatCannotBeKeptAreBorne)
{
    show(file(), HelpViewer::kDisplayContents);
    const QSize usual = windows()[0]->size();
    settings_.nFailWrites = 75;
    windows()[0]->resize(620, 500);
    windows()[0]->close();
    settings_.nFailWrites = 0;
    settings_.set("brendle-help", "Window", "Geometry", "no place");
    settings_.set("brendle-help", "Window", "Panes", "AAAA");
    show(file(), HelpViewer::kDisplayContents);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows()[0]->size(), usual);
}

TEST_F(HelpDeskTest, CloseAllTakesTheWindowsOfItsCallerAlone)
{
    threePages().write(path("other.chm"));
    show(file(), HelpViewer::kDisplayContents, 0, QStringLiteral("a"));
    show(file("other.chm"), HelpViewer::kDisplayContents, 0, QStringLiteral("b"));
    EXPECT_EQ(show({}, HelpViewer::kCloseAll, 0, QStringLiteral("c")), 0U);
    EXPECT_EQ(windows().size(), 2);
    show({}, HelpViewer::kCloseAll, 0, QStringLiteral("b"));
    ASSERT_EQ(windows().size(), 1);
    // Who asked last owns the window.
    show(file(), HelpViewer::kDisplayContents, 0, QStringLiteral("b"));
    show({}, HelpViewer::kCloseAll, 0, QStringLiteral("a"));
    EXPECT_EQ(windows().size(), 1);
    show({}, HelpViewer::kCloseAll, 0, QStringLiteral("b"));
    EXPECT_EQ(windows().size(), 0);
}

TEST_F(HelpDeskTest, AMissingFileIsToldAndNobodyWaits)
{
    EXPECT_EQ(show(file("none.chm"), HelpViewer::kDisplayContents), 0U);
    ASSERT_TRUE(box());
    EXPECT_EQ(box()->text(),
              QStringLiteral("The help file can't be found:\n\n%1\n\nRepairing the installation "
                             "brings it back.")
                  .arg(file("none.chm")));
    EXPECT_TRUE(desk_.isBusy());
    QSignalSpy idle(&desk_, &HelpDesk::becameIdle);
    box()->button(QMessageBox::Ok)->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return idle.count() > 0; }));
    EXPECT_FALSE(desk_.isBusy());
}

TEST_F(HelpDeskTest, ADamagedFileIsTold)
{
    const std::string whole = threePages().bytes();
    for (const std::string& bytes : {std::string(), whole.substr(0, 300), std::string(4000, 'x')}) {
        writeFile(path("bad.chm"), bytes);
        EXPECT_EQ(show(file("bad.chm"), HelpViewer::kDisplayContents), 0U);
        ASSERT_TRUE(box());
        EXPECT_TRUE(
            box()->text().startsWith(QStringLiteral("The help file can't be read:\n\n") + file("bad.chm")));
        delete box();
    }
}

TEST_F(HelpDeskTest, AFolderIsNoHelpFile)
{
    EXPECT_EQ(show(QString::fromStdString(folder_.path()), HelpViewer::kDisplayContents), 0U);
    EXPECT_TRUE(box());
    delete box();
}

TEST_F(HelpDeskTest, TopMostOfAWindowThatHasGoneIsPassedOver)
{
    const std::uintptr_t handle = show(file(), HelpViewer::kDisplayContents);
    desk_.setTopMost(handle, true);
    EXPECT_TRUE(windows()[0]->windowFlags() & Qt::WindowStaysOnTopHint);
    desk_.setTopMost(handle, false);
    EXPECT_FALSE(windows()[0]->windowFlags() & Qt::WindowStaysOnTopHint);
    windows()[0]->close();
    desk_.setTopMost(handle, true);
    desk_.setTopMost(0, true);
    desk_.setTopMost(12345, false);
    EXPECT_TRUE(windows().isEmpty());
}

TEST_F(HelpDeskTest, AMinimisedWindowComesBackUp)
{
    show(file(), HelpViewer::kDisplayContents);
    windows()[0]->showMinimized();
    show(file(), HelpViewer::kContext, 1);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_FALSE(windows()[0]->isMinimized());
}

TEST_F(HelpDeskTest, IdleIsToldWhenTheLastWindowGoes)
{
    threePages().write(path("other.chm"));
    show(file(), HelpViewer::kDisplayContents);
    show(file("other.chm"), HelpViewer::kDisplayContents);
    QSignalSpy idle(&desk_, &HelpDesk::becameIdle);
    windows()[0]->close();
    QTest::qWait(50);
    EXPECT_EQ(idle.count(), 0);
    windows()[0]->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return idle.count() > 0; }));
}

TEST_F(HelpDeskTest, TheSampleBookHasContentsIndexAndTopicOne)
{
    for (const char* book :
         {"/program/QBK_HELP.chm", "/program/OTR/QBK_HELP.chm", "/program/MRL/QBK_HELP.chm"}) {
        EXPECT_NE(show(QString::fromStdString(buildFolder().string() + book), HelpViewer::kContext, 1), 0U);
    }
    ASSERT_EQ(windows().size(), 3);
    QStringList titles;
    for (HelpWindow* window : windows()) {
        titles.append(window->windowTitle());
        EXPECT_EQ(pageOf(window), QStringLiteral("/manydocuments.htm"));
    }
    titles.sort();
    EXPECT_EQ(titles,
              QStringList({QStringLiteral("Merle & Lund's Brendle Help"),
                           QStringLiteral("OT&R's Brendle Help"), QStringLiteral("Zorvo's Brendle Help")}));
}

} // namespace
} // namespace zorvo::help
