#include "help/viewer/HelpWindow.h"

#include "help/viewer/EntryTree.h"
#include "help/viewer/PageView.h"
#include "help/viewer/SearchPane.h"
#include "tests/help/HelpTest.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <gmock/gmock.h>

namespace zorvo::help {
namespace {

class HelpWindowTest : public HelpTest {
protected:
    void show(const TestBook& book)
    {
        window_ = new HelpWindow(open(book), [this](const QString& address) { opened_.append(address); });
        window_->showContents();
        window_->show();
    }
    ~HelpWindowTest() override { delete window_; }

    template <typename Widget>
    Widget* child(const char* name)
    {
        auto* found = window_->findChild<Widget*>(QLatin1String(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    PageView* page() { return child<PageView>("Page"); }
    QTabWidget* tabs() { return child<QTabWidget>("Navigation"); }
    QString notice()
    {
        return child<QLabel>("Notice")->isVisible() ? child<QLabel>("Notice")->text() : QString();
    }
    QAction* action(const QString& text)
    {
        for (QAction* each : window_->findChildren<QAction*>())
            if (each->text() == text)
                return each;
        ADD_FAILURE() << text.toStdString();
        return nullptr;
    }
    QStringList found()
    {
        QStringList titles;
        auto* results = child<QListWidget>("SearchResults");
        for (int i = 0; i < results->count(); ++i)
            titles.append(results->item(i)->text());
        return titles;
    }
    void search(const QString& words)
    {
        tabs()->setCurrentIndex(2);
        QSignalSpy done(window_->findChild<BookSearch*>(), &BookSearch::finished);
        child<QLineEdit>("SearchText")->setText(words);
        child<QPushButton>("SearchButton")->click();
        EXPECT_TRUE(!done.isEmpty() || done.wait(10000));
    }

    QPointer<HelpWindow> window_;
    QStringList opened_;
};

TEST_F(HelpWindowTest, ContentsAreShownWithTheFirstPageAndTheBooksTitle)
{
    show(threePages());
    EXPECT_EQ(window_->windowTitle(), QStringLiteral("The Book"));
    EXPECT_EQ(tabs()->currentIndex(), 0);
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
    EXPECT_EQ(child<EntryTree>("Contents")->currentItem()->text(0), QStringLiteral("First"));
}

TEST_F(HelpWindowTest, ContentsKeepThePageThatIsRead)
{
    show(threePages());
    window_->showNumberedTopic(2);
    window_->showContents();
    EXPECT_EQ(page()->page(), QStringLiteral("/sub/three.htm"));
}

TEST_F(HelpWindowTest, TheIndexOpensAtItsWords)
{
    show(threePages());
    window_->showIndex();
    EXPECT_EQ(tabs()->currentIndex(), 1);
    EXPECT_EQ(child<EntryTree>("Index")->topLevelItemCount(), 2);
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
    child<QLineEdit>("IndexText")->setText(QStringLiteral("BET"));
    EXPECT_TRUE(child<EntryTree>("Index")->topLevelItem(0)->isHidden());
    EXPECT_FALSE(child<EntryTree>("Index")->topLevelItem(1)->isHidden());
    child<EntryTree>("Index")->setCurrentItem(child<EntryTree>("Index")->topLevelItem(1));
    EXPECT_EQ(page()->page(), QStringLiteral("/two.htm"));
}

TEST_F(HelpWindowTest, ABookWithoutAnIndexSaysSo)
{
    show(TestBook().page("/a.htm", "A", ""));
    window_->showIndex();
    QCoreApplication::processEvents();
    bool bTold = false;
    for (const QLabel* label : window_->findChildren<QLabel*>())
        bTold = bTold || (label->isVisible() && label->text().contains(QStringLiteral("has no index")));
    EXPECT_TRUE(bTold);
}

TEST_F(HelpWindowTest, ANumberedTopicShowsItsPage)
{
    show(threePages());
    window_->showNumberedTopic(1);
    EXPECT_EQ(page()->page(), QStringLiteral("/two.htm"));
    EXPECT_EQ(child<EntryTree>("Contents")->currentItem()->text(0), QStringLiteral("Second"));
    EXPECT_EQ(notice(), QString());
}

TEST_F(HelpWindowTest, AnUnknownNumberIsToldAndThePageStays)
{
    show(threePages());
    window_->showNumberedTopic(1);
    window_->showNumberedTopic(99);
    EXPECT_EQ(notice(), QStringLiteral("This help file has no topic with the number 99."));
    EXPECT_EQ(page()->page(), QStringLiteral("/two.htm"));
    window_->showNumberedTopic(2);
    EXPECT_EQ(notice(), QString()) << "it goes with the next page";
}

TEST_F(HelpWindowTest, ANumberWhosePageIsMissingTellsIt)
{
    show(threePages());
    window_->showNumberedTopic(3);
    EXPECT_TRUE(page()->toPlainText().contains(QStringLiteral("isn't in the help file")));
}

TEST_F(HelpWindowTest, TheDefaultTopicIsTheBooksFirstPage)
{
    show(threePages());
    window_->showNumberedTopic(2);
    window_->showDefaultTopic();
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
}

TEST_F(HelpWindowTest, AChosenLineShowsItsPageAndBackReturns)
{
    show(threePages());
    EXPECT_FALSE(action(QStringLiteral("Back"))->isEnabled());
    auto* contents = child<EntryTree>("Contents");
    contents->setCurrentItem(contents->topLevelItem(2));
    EXPECT_EQ(page()->page(), QStringLiteral("/sub/three.htm"));
    action(QStringLiteral("Back"))->trigger();
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
    EXPECT_EQ(contents->currentItem()->text(0), QStringLiteral("First"));
    action(QStringLiteral("Forward"))->trigger();
    EXPECT_EQ(page()->page(), QStringLiteral("/sub/three.htm"));
    action(QStringLiteral("Home"))->trigger();
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
}

TEST_F(HelpWindowTest, ALineReachesToTheEdgeOfThePaneAndALongOneScrolls)
{
    show(threePages());
    auto* contents = child<EntryTree>("Contents");
    const auto line = [&] { return contents->visualItemRect(contents->topLevelItem(0)).right() + 1; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return line() == contents->viewport()->width(); }));
    contents->topLevelItem(1)->setText(0, QString(300, QLatin1Char('m')));
    EXPECT_TRUE(QTest::qWaitFor([&] { return line() > contents->viewport()->width(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents->horizontalScrollBar()->maximum() > 0; }));
}

TEST_F(HelpWindowTest, WhatAFieldIsForCanBeReadOnADarkDesktopToo)
{
    show(threePages());
    QPalette dark;
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::PlaceholderText, Qt::black);
    window_->setPalette(dark);
    for (const auto& [nTab, field] : {std::pair(1, "IndexText"), std::pair(2, "SearchText")}) {
        tabs()->setCurrentIndex(nTab);
        const QColor colour = child<QLineEdit>(field)->palette().color(QPalette::PlaceholderText);
        EXPECT_EQ(colour.red(), 255) << field;
        EXPECT_LT(colour.alpha(), 255) << field;
    }
}

TEST_F(HelpWindowTest, ALineThatLeadsOutIsRefusedWithAWord)
{
    show(threePages().contents(
        {{"First", "one.htm"}, {"Out", "file:///etc/passwd"}, {"Web", "https://x.example/"}}));
    auto* contents = child<EntryTree>("Contents");
    contents->setCurrentItem(contents->topLevelItem(1));
    EXPECT_TRUE(notice().contains(QStringLiteral("isn't followed")));
    contents->setCurrentItem(contents->topLevelItem(2));
    EXPECT_EQ(opened_, QStringList(QStringLiteral("https://x.example/")));
    EXPECT_EQ(page()->page(), QStringLiteral("/one.htm"));
}

TEST_F(HelpWindowTest, TheSearchFindsPagesThatHoldAllWords)
{
    show(threePages());
    search(QStringLiteral("alpha"));
    EXPECT_EQ(found(),
              QStringList({QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third")}));
    EXPECT_EQ(child<QLabel>("SearchState")->text(), QStringLiteral("3 pages"));
    search(QStringLiteral("  BETA alpha "));
    EXPECT_EQ(found(), QStringList({QStringLiteral("Second"), QStringLiteral("Third")}));
    child<QListWidget>("SearchResults")->setCurrentRow(1);
    EXPECT_EQ(page()->page(), QStringLiteral("/sub/three.htm"));
    EXPECT_EQ(page()->extraSelections().size(), 2);
}

TEST_F(HelpWindowTest, AWordOfTheTitleComesFirst)
{
    show(TestBook()
             .page("/a.htm", "Other", "tree tree tree")
             .page("/b.htm", "The tree", "x")
             .contents({{"a", "a.htm"}, {"b", "b.htm"}}));
    search(QStringLiteral("tree"));
    EXPECT_EQ(found(), QStringList({QStringLiteral("The tree"), QStringLiteral("Other")}));
}

TEST_F(HelpWindowTest, WithoutAHitOrAWordTheSearchSaysSo)
{
    show(threePages());
    search(QStringLiteral("alpha nowhere"));
    EXPECT_EQ(found(), QStringList());
    EXPECT_TRUE(child<QLabel>("SearchState")->text().startsWith(QStringLiteral("No page holds")));
    search(QStringLiteral("   "));
    EXPECT_EQ(child<QLabel>("SearchState")->text(), QStringLiteral("Type the words to find."));
}

TEST_F(HelpWindowTest, PagesThatNoContentsNameAreSearchedToo)
{
    show(threePages().page("/hidden.htm", "Hidden", "treasure"));
    search(QStringLiteral("treasure"));
    EXPECT_EQ(found(), QStringList(QStringLiteral("Hidden")));
}

TEST_F(HelpWindowTest, ALongSearchCountsItsPagesAndCanBeStopped)
{
    TestBook book;
    const std::string text(20000, 'x');
    for (int i = 0; i < 90; ++i)
        book.page("/p" + std::to_string(i) + ".htm", "P", text);
    show(book);
    tabs()->setCurrentIndex(2);
    auto* search = window_->findChild<BookSearch*>();
    QSignalSpy progressed(search, &BookSearch::progressed);
    search->start(QStringLiteral("word"));
    ASSERT_TRUE(progressed.wait(10000));
    EXPECT_EQ(progressed.first().at(1).toInt(), 90);
    EXPECT_TRUE(child<QLabel>("SearchState")->text().endsWith(QStringLiteral("of 90 pages")));
    child<QPushButton>("SearchButton")->click();
    EXPECT_FALSE(search->isRunning());
    EXPECT_EQ(child<QLabel>("SearchState")->text(), QStringLiteral("The search was stopped."));
}

TEST_F(HelpWindowTest, TopMostIsSetAndTakenBackWithoutMovingTheWindow)
{
    show(threePages());
    const QRect place = window_->geometry();
    window_->setTopMost(true);
    EXPECT_TRUE(window_->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(window_->isVisible());
    window_->setTopMost(false);
    EXPECT_FALSE(window_->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(window_->geometry(), place);
}

TEST_F(HelpWindowTest, TheContentsCanBeHiddenAndAnIndexRequestBringsThemBack)
{
    show(threePages());
    QAction* toggle = action(QStringLiteral("Hide Contents"));
    toggle->trigger();
    EXPECT_FALSE(tabs()->isVisible());
    EXPECT_EQ(toggle->text(), QStringLiteral("Show Contents"));
    window_->showIndex();
    EXPECT_TRUE(tabs()->isVisible());
    EXPECT_EQ(toggle->text(), QStringLiteral("Hide Contents"));
}

TEST_F(HelpWindowTest, TipsShowMarkupInABooksNamesAsItIs)
{
    const std::string name = "<img src=\"/etc/x.png\">";
    show(TestBook()
             .page("/a.htm", "&lt;b&gt;Title&lt;/b&gt;", "needle")
             .contents({{"&lt;img src=&quot;/etc/x.png&quot;&gt;", "a.htm"}}));
    const auto* contents = child<EntryTree>("Contents");
    EXPECT_EQ(contents->topLevelItem(0)->text(0).toStdString(), name);
    EXPECT_EQ(contents->topLevelItem(0)->toolTip(0),
              QStringLiteral("<qt>&lt;img src=&quot;/etc/x.png&quot;&gt;</qt>"));
    search(QStringLiteral("needle"));
    EXPECT_EQ(child<QListWidget>("SearchResults")->item(0)->toolTip(),
              QStringLiteral("<qt>&lt;b&gt;Title&lt;/b&gt;</qt>"));
}

} // namespace
} // namespace zorvo::help
