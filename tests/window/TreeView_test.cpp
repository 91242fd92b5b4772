#include "tests/support/pictureBytes.h"
#include "tests/window/WindowTest.h"
#include "window/TreeView.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

PicturePtr plainPicture(Qt::GlobalColor colour, int size = 16)
{
    return Picture::fromBytes(pictureBytes(size, "PNG", colour));
}

class TreeViewTest : public testing::Test {
protected:
    TreeViewTest()
        : view_("TreeView1", &window_)
    {
        auto* layout = new QVBoxLayout(&window_);
        layout->addWidget(&view_);
        window_.resize(300, 400);
        QObject::connect(&view_, &TreeView::nodeSelected, &view_,
                         [this](const TreeNode* node) { told_.push_back(node->key()); });
        QObject::connect(&view_, &TreeView::nodeDoubleClicked, &view_,
                         [this](const TreeNode* node) { activated_.push_back(node->key()); });
    }

    /// a(a1(a1x), a2), b(b1), c; a stands expanded.
    void fill()
    {
        const TreeNodes::Bulk bulk(nodes());
        nodes().images().clear();
        nodes().images().add("icon", plainPicture(Qt::red));
        nodes().images().add("none", nullptr);
        nodes().add("", "a", "Alpha", 1, 1);
        nodes().add("a", "a1", "Amber", 1, 2);
        nodes().add("a1", "a1x", "Axle", 2, 3);
        nodes().add("a", "a2", "Azure", -1, 3);
        nodes().add("", "b", "Bravo", 1, 1);
        nodes().add("b", "b1", "Beta", 3, 3);
        nodes().add("", "c", "Charlie", 1, 1);
        nodes().setExpanded(*nodes().find("a"), true);
    }

    void showFilled()
    {
        fill();
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    TreeNodes& nodes() { return view_.nodes(); }
    TreeNode& node(const char* key) { return *nodes().find(key); }
    QModelIndex indexOf(const char* key)
    {
        return static_cast<TreeModel*>(view_.model())->indexOf(node(key));
    }
    QPoint placeOf(const char* key) { return view_.visualRect(indexOf(key)).center(); }

    void click(const char* key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(view_.viewport(), Qt::LeftButton, modifiers, placeOf(key));
    }

    std::vector<std::string> selectedKeys()
    {
        std::vector<std::string> keys;
        for (const TreeNode* each : nodes().selectedNodes())
            keys.push_back(each->key());
        return keys;
    }

    std::vector<std::string> shownAsSelected()
    {
        std::vector<std::string> keys;
        for (int i = 1; i <= nodes().count(); ++i)
            if (view_.selectionModel()->isSelected(indexOf(nodes().item(i).key().c_str())))
                keys.push_back(nodes().item(i).key());
        return keys;
    }

    QWidget window_;
    TreeView view_;
    std::vector<std::string> told_;
    std::vector<std::string> activated_;
};

TEST_F(TreeViewTest, TheModelKeepsItsContractThroughEveryChange)
{
    const QAbstractItemModelTester tester(view_.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    fill();
    nodes().add("b", "b2", "Later", 1, 3);
    nodes().add("", "d", "Delta", 1, 1);
    nodes().setSelected(node("a1x"), true);
    nodes().remove(node("a1"));
    nodes().removeChildless([](const TreeNode& each) { return each.tag() == 1; });
    nodes().clear();
    fill();
    EXPECT_EQ(view_.model()->rowCount(), 3);
}

TEST_F(TreeViewTest, HasOneColumnWithTextAndImage)
{
    fill();
    const QAbstractItemModel& model = *view_.model();
    EXPECT_EQ(model.columnCount(), 1);
    EXPECT_EQ(model.data(indexOf("a1")).toString(), QStringLiteral("Amber"));
    EXPECT_FALSE(model.data(indexOf("a"), Qt::DecorationRole).value<QIcon>().isNull());
}

TEST_F(TreeViewTest, ShowsNoImageForAnIndexThatHasNone)
{
    fill();
    for (const char* key : {"a2", "a1x", "b1"})
        EXPECT_FALSE(view_.model()->data(indexOf(key), Qt::DecorationRole).isValid()) << key;
}

TEST_F(TreeViewTest, NoNodeCanBeChangedInPlaceOrMoved)
{
    showFilled();
    const Qt::ItemFlags flags = view_.model()->flags(indexOf("a"));
    EXPECT_FALSE(flags & (Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled));
    EXPECT_FALSE(view_.dragEnabled());
    click("b");
    QTest::keyClick(&view_, Qt::Key_F2);
    EXPECT_EQ(view_.findChild<QWidget*>(QStringLiteral("qt_editor")), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), &view_);
}

TEST_F(TreeViewTest, AClickSelectsAndCtrlAdds)
{
    showFilled();
    click("b");
    EXPECT_THAT(selectedKeys(), ElementsAre("b"));
    click("a2", Qt::ControlModifier);
    EXPECT_THAT(selectedKeys(), ElementsAre("a2", "b"));
    EXPECT_EQ(nodes().selectedNode()->key(), "a2");
    EXPECT_THAT(told_, ElementsAre("b", "a2"));
    click("c");
    EXPECT_THAT(selectedKeys(), ElementsAre("c"));
    EXPECT_EQ(told_.back(), "c");
}

TEST_F(TreeViewTest, CtrlAndClickTakesASelectedNodeOut)
{
    showFilled();
    click("a");
    click("b", Qt::ControlModifier);
    click("b", Qt::ControlModifier);
    EXPECT_THAT(selectedKeys(), ElementsAre("a"));
    EXPECT_EQ(nodes().selectedNode()->key(), "a");
    EXPECT_EQ(told_.back(), "a");
    const auto nTold = told_.size();
    click("a", Qt::ControlModifier);
    EXPECT_THAT(selectedKeys(), IsEmpty());
    EXPECT_EQ(told_.size(), nTold);
}

TEST_F(TreeViewTest, AClickOnOneOfManyMakesItTheSelectedNode)
{
    showFilled();
    click("a");
    click("b", Qt::ControlModifier);
    click("a");
    EXPECT_THAT(selectedKeys(), ElementsAre("a"));
    EXPECT_EQ(nodes().selectedNode()->key(), "a");
}

TEST_F(TreeViewTest, ARangeEndsAtTheNodeThatTheUserWentTo)
{
    showFilled();
    click("c");
    QTest::keyClick(&view_, Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_THAT(selectedKeys(), ElementsAre("a", "a1", "a2", "b", "c"));
    EXPECT_EQ(nodes().selectedNode()->key(), "a");
    EXPECT_EQ(told_.back(), "a");
}

TEST_F(TreeViewTest, RightExpandsAndLeftCollapses)
{
    showFilled();
    click("b");
    QTest::keyClick(&view_, Qt::Key_Right);
    EXPECT_TRUE(node("b").expanded());
    QTest::keyClick(&view_, Qt::Key_Left);
    EXPECT_FALSE(node("b").expanded());
}

TEST_F(TreeViewTest, ADoubleClickActivatesAndExpandsANodeWithChildren)
{
    showFilled();
    click("a2");
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, placeOf("a2"));
    click("b");
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, placeOf("b"));
    EXPECT_THAT(activated_, ElementsAre("a2", "b"));
    EXPECT_TRUE(node("b").expanded());
    EXPECT_FALSE(node("a2").expanded());
}

TEST_F(TreeViewTest, EnterActivates)
{
    showFilled();
    click("a2");
    QTest::keyClick(&view_, Qt::Key_Return);
    EXPECT_THAT(activated_, ElementsAre("a2"));
}

TEST_F(TreeViewTest, TypingGoesToTheNodeThatBeginsSo)
{
    showFilled();
    click("a");
    QTest::keyClicks(&view_, QStringLiteral("az"));
    EXPECT_THAT(selectedKeys(), ElementsAre("a2"));
    EXPECT_EQ(told_.back(), "a2");
}

TEST_F(TreeViewTest, ShowsWhatTheProgramSelects)
{
    showFilled();
    nodes().setSelected(node("b"), true);
    nodes().setSelected(node("c"), true);
    EXPECT_THAT(shownAsSelected(), ElementsAre("b", "c"));
    EXPECT_EQ(view_.currentIndex(), indexOf("c"));
    nodes().setSelected(node("b"), false);
    EXPECT_THAT(shownAsSelected(), ElementsAre("c"));
    nodes().clearSelection();
    EXPECT_THAT(shownAsSelected(), IsEmpty());
    EXPECT_THAT(told_, ElementsAre("b", "c", "c"));
}

TEST_F(TreeViewTest, ANodeSelectedByProgramIsBroughtIntoView)
{
    fill();
    for (int i = 0; i < 500; ++i)
        nodes().add("b1", "deep" + std::to_string(i), "Deep", 1, 3);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    nodes().setSelected(node("deep400"), true);
    EXPECT_TRUE(node("b").expanded() && node("b1").expanded());
    const QRect place = view_.visualRect(indexOf("deep400"));
    EXPECT_FALSE(place.isEmpty());
    EXPECT_TRUE(view_.viewport()->rect().contains(place.center()));
}

TEST_F(TreeViewTest, ANodeSelectedBeforeTheWindowShowsIsInViewThen)
{
    fill();
    for (int i = 0; i < 500; ++i)
        nodes().add("b1", "deep" + std::to_string(i), "Deep", 1, 3);
    nodes().setSelected(node("deep400"), true);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    EXPECT_TRUE(waitUntil(
        [&] { return view_.viewport()->rect().contains(view_.visualRect(indexOf("deep400")).center()); }));
}

TEST_F(TreeViewTest, SingleSelectionReplaces)
{
    showFilled();
    nodes().setMultiSelect(false);
    nodes().setSelected(node("a"), true);
    nodes().setSelected(node("b"), true);
    EXPECT_THAT(shownAsSelected(), ElementsAre("b"));
    click("c", Qt::ControlModifier);
    EXPECT_THAT(selectedKeys(), ElementsAre("c"));
    nodes().setMultiSelect(true);
    click("a", Qt::ControlModifier);
    EXPECT_THAT(selectedKeys(), ElementsAre("a", "c"));
}

TEST_F(TreeViewTest, ShowsWhatTheProgramExpands)
{
    showFilled();
    EXPECT_TRUE(view_.isExpanded(indexOf("a")));
    nodes().setExpanded(node("b"), true);
    EXPECT_TRUE(view_.isExpanded(indexOf("b")));
    nodes().setExpanded(node("a"), false);
    EXPECT_FALSE(view_.isExpanded(indexOf("a")));
}

TEST_F(TreeViewTest, ExpandingManyAtATimeShowsThemAll)
{
    for (int i = 0; i < 50; ++i) {
        nodes().add("", "g" + std::to_string(i), "G", 1, 1);
        nodes().add("g" + std::to_string(i), "d" + std::to_string(i), "D", 1, 3);
    }
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    for (int i = 1; i <= nodes().count(); ++i)
        nodes().setExpanded(nodes().item(i), true);
    EXPECT_FALSE(view_.visualRect(indexOf("d0")).isEmpty());
    int nShown = 0;
    for (QModelIndex at = view_.model()->index(0, 0); at.isValid(); at = view_.indexBelow(at))
        ++nShown;
    EXPECT_EQ(nShown, 100);
    for (int i = nodes().count(); i > 0; --i)
        nodes().setExpanded(nodes().item(i), false);
    EXPECT_TRUE(view_.visualRect(indexOf("d0")).isEmpty());
}

TEST_F(TreeViewTest, ANodeExpandedAheadOfItsFirstChildShowsIt)
{
    window_.show();
    nodes().setExpanded(nodes().add("", "g", "G", 1, 1), true);
    nodes().add("g", "d", "D", 1, 3);
    EXPECT_TRUE(view_.isExpanded(indexOf("g")));
}

TEST_F(TreeViewTest, SelectionAndExpansionSurviveABulk)
{
    showFilled();
    nodes().setSelected(node("a2"), true);
    nodes().setSelected(node("b"), true);
    told_.clear();
    {
        const TreeNodes::Bulk bulk(nodes());
        nodes().add("", "z", "Zulu", 1, 1);
        nodes().setExpanded(node("b"), true);
        nodes().setSelected(node("c"), true);
    }
    EXPECT_THAT(shownAsSelected(), ElementsAre("a2", "b", "c"));
    EXPECT_TRUE(view_.isExpanded(indexOf("a")) && view_.isExpanded(indexOf("b")));
    EXPECT_EQ(view_.currentIndex(), indexOf("c"));
    EXPECT_THAT(told_, IsEmpty());
}

TEST_F(TreeViewTest, ShowsNoNodeThatIsGoneWhileTheNodesAreExchanged)
{
    showFilled();
    nodes().setSelected(node("a2"), true);
    {
        const TreeNodes::Bulk bulk(nodes());
        nodes().clear();
        view_.grab();
        QCoreApplication::processEvents();
        EXPECT_EQ(view_.model()->rowCount(), 0);
        nodes().add("", "new", "New", 1, 1);
        view_.grab();
    }
    EXPECT_EQ(view_.model()->rowCount(), 1);
}

TEST_F(TreeViewTest, ARemovedNodeLeavesViewAndSelection)
{
    showFilled();
    nodes().setSelected(node("a2"), true);
    nodes().setSelected(node("b1"), true);
    nodes().remove(node("b"));
    EXPECT_THAT(selectedKeys(), ElementsAre("a2"));
    EXPECT_THAT(shownAsSelected(), ElementsAre("a2"));
}

TEST_F(TreeViewTest, TellsOfItsFocus)
{
    showFilled();
    QSignalSpy gained(&view_, &TreeView::focusGained);
    QSignalSpy lost(&view_, &TreeView::focusLost);
    view_.clearFocus();
    view_.setFocus();
    EXPECT_EQ(lost.count(), 1);
    EXPECT_EQ(gained.count(), 1);
}

TEST_F(TreeViewTest, EnterIsTheFormsWhereNothingWaitsForActivation)
{
    struct KeyCounter : QWidget {
        int nEnters = 0;
        void keyPressEvent(QKeyEvent* event) override { nEnters += event->key() == Qt::Key_Return; }
    } window;
    TreeView view("list", &window);
    view.nodes().add("", "a", "A", -1, 1);
    view.setCurrentIndex(view.model()->index(0, 0));
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(window.nEnters, 1);
}

TEST_F(TreeViewTest, ABackgroundPictureKeepsTheTextReadable)
{
    view_.setBackgroundPicture(plainPicture(Qt::white));
    EXPECT_EQ(view_.palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_FALSE(view_.palette().brush(QPalette::Base).texture().isNull());
    view_.setBackgroundPicture(plainPicture(Qt::black));
    EXPECT_EQ(view_.palette().color(QPalette::Text), QColor(Qt::white));
    view_.setBackgroundPicture(nullptr);
    EXPECT_TRUE(view_.palette().brush(QPalette::Base).texture().isNull());
}

TEST_F(TreeViewTest, IsATreeToThoseWhoCannotSeeIt)
{
    showFilled();
    view_.setAccessibleName(QStringLiteral("Products"));
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&view_);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    EXPECT_EQ(tree->text(QAccessible::Name), QStringLiteral("Products"));
    // The hidden heading counts as a child too.
    ASSERT_EQ(tree->childCount(), 1 + 5);
    EXPECT_EQ(tree->child(2)->text(QAccessible::Name), QStringLiteral("Amber"));
}

TEST(TreeViewSize, StaysQuickWithAHundredThousandNodes)
{
    constexpr int kNodes = 100000;
    TreeView view("big");
    view.resize(300, 400);
    view.show();
    QElapsedTimer clock;
    clock.start();
    {
        const TreeNodes::Bulk bulk(view.nodes());
        for (int i = 0; i < kNodes; ++i)
            view.nodes().add(i % 50 ? std::to_string(i - i % 50) : std::string(), std::to_string(i),
                             "A document", -1, 3);
    }
    for (int i = 1; i <= kNodes; ++i)
        view.nodes().setExpanded(view.nodes().item(i), true);
    QCoreApplication::processEvents();
    view.nodes().setSelected(view.nodes().item(kNodes), true);
    view.selectAll();
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(view.nodes().selectedNodes().size(), 1U);
    const auto nTook = clock.elapsed();
    testing::Test::RecordProperty("ms", static_cast<int>(nTook));
    // Far above what a sanitized build on a busy machine takes, far below what a layout for each node would.
    EXPECT_LT(nTook, 15000);
}

} // namespace
} // namespace zorvo
