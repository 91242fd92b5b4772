#include "tests/window/WindowTest.h"
#include "window/TreeNodes.h"

#include <chrono>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> keysOf(const std::vector<TreeNode*>& nodes)
{
    std::vector<std::string> keys;
    for (const TreeNode* node : nodes)
        keys.push_back(node->key());
    return keys;
}

std::vector<std::string> keysInOrder(const TreeNodes& nodes)
{
    std::vector<std::string> keys;
    for (int i = 1; i <= nodes.count(); ++i)
        keys.push_back(nodes.item(i).key());
    return keys;
}

/// a(a1(a1x), a2), b(b1), c
void fillSample(TreeNodes& nodes)
{
    nodes.add("", "a", "A", 1, 1);
    nodes.add("", "b", "B", 1, 1);
    nodes.add("a", "a1", "A1", 2, 2);
    nodes.add("b", "b1", "B1", 3, 3);
    nodes.add("a", "a2", "A2", 3, 3);
    nodes.add("a1", "a1x", "A1X", 3, 3);
    nodes.add("", "c", "C", -1, 1);
}

class RecordingListener : public TreeNodesListener {
public:
    void nodesAboutToReset() override { calls.emplace_back("aboutToReset"); }
    void nodesReset() override { calls.emplace_back("reset"); }
    void nodeAboutToBeAdded(TreeNode* parent, int row) override
    {
        calls.push_back("adding " + (parent ? parent->key() : "-") + " " + std::to_string(row));
    }
    void nodeAdded() override { calls.emplace_back("added"); }
    void nodeAboutToBeRemoved(const TreeNode& node) override { calls.push_back("removing " + node.key()); }
    void nodeRemoved() override { calls.emplace_back("removed"); }
    void expandedChanged(TreeNode& node) override
    {
        calls.push_back((node.expanded() ? "expanded " : "collapsed ") + node.key());
    }
    void selectionChanged(TreeNode& node) override
    {
        calls.push_back((node.selected() ? "selected " : "deselected ") + node.key());
    }
    void selectionCleared() override { calls.emplace_back("cleared"); }
    void selectionModeChanged() override { calls.emplace_back("mode"); }

    std::vector<std::string> calls;
};

TEST(TreeNodes, AddsBelowItsRelativeAsTheLastChild)
{
    TreeNodes nodes;
    fillSample(nodes);
    const TreeNode& a2 = *nodes.find("a2");
    EXPECT_EQ(a2.parent(), nodes.find("a"));
    EXPECT_EQ(a2.row(), 1);
    EXPECT_EQ(a2.text(), "A2");
    EXPECT_EQ(a2.image(), 3);
    EXPECT_EQ(a2.tag(), 3);
    EXPECT_THAT(keysOf(nodes.roots()), ElementsAre("a", "b", "c"));
    EXPECT_EQ(nodes.find("c")->parent(), nullptr);
}

TEST(TreeNodes, NumbersNodesInTheOrderOfAddition)
{
    TreeNodes nodes;
    fillSample(nodes);
    EXPECT_THAT(keysInOrder(nodes), ElementsAre("a", "b", "a1", "b1", "a2", "a1x", "c"));
    EXPECT_EQ(nodes.find("b1")->index(), 4);
}

TEST(TreeNodes, RefusesAnIndexOutsideTheCollection)
{
    TreeNodes nodes;
    fillSample(nodes);
    EXPECT_EQ(errorNumberOf([&] { nodes.item(0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { nodes.item(8); }), 9);
}

TEST(TreeNodes, RefusesAKeyThatExists)
{
    TreeNodes nodes;
    fillSample(nodes);
    EXPECT_EQ(errorNumberOf([&] { nodes.add("b", "a1", "again", 0, 0); }), 457);
    EXPECT_EQ(nodes.count(), 7);
    EXPECT_EQ(nodes.find("b")->children().size(), 1U);
}

TEST(TreeNodes, RefusesARelativeThatDoesNotExist)
{
    TreeNodes nodes;
    EXPECT_EQ(errorNumberOf([&] { nodes.add("nowhere", "k", "", 0, 0); }), 35601);
    EXPECT_EQ(nodes.count(), 0);
}

TEST(TreeNodes, TellsKeysApartByCase)
{
    TreeNodes nodes;
    nodes.add("", "Key", "1", 0, 0);
    nodes.add("", "KEY", "2", 0, 0);
    EXPECT_EQ(nodes.find("KEY")->text(), "2");
    EXPECT_EQ(nodes.find("key"), nullptr);
}

TEST(TreeNodes, TakesAnEmptyKeyAnyNumberOfTimesAndNeverFindsIt)
{
    TreeNodes nodes;
    nodes.add("", "", "1", 0, 0);
    nodes.add("", "", "2", 0, 0);
    EXPECT_EQ(nodes.count(), 2);
    EXPECT_EQ(nodes.find(""), nullptr);
    nodes.remove(nodes.item(1));
    EXPECT_EQ(nodes.item(1).text(), "2");
}

TEST(TreeNodes, RemovesANodeWithAllBelowIt)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.remove(*nodes.find("a1"));
    EXPECT_THAT(keysInOrder(nodes), ElementsAre("a", "b", "b1", "a2", "c"));
    EXPECT_EQ(nodes.find("a1x"), nullptr);
    EXPECT_EQ(nodes.find("a2")->row(), 0);
    EXPECT_EQ(nodes.find("a2")->index(), 4);
    EXPECT_THAT(keysOf(nodes.find("a")->children()), ElementsAre("a2"));
}

TEST(TreeNodes, FindsARemovedKeyNoMoreAndTakesItAgain)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.remove(*nodes.find("c"));
    EXPECT_EQ(nodes.find("c"), nullptr);
    const TreeNode& again = nodes.add("b", "c", "again", 5, 2);
    EXPECT_FALSE(again.selected() || again.expanded());
    EXPECT_TRUE(again.children().empty());
    EXPECT_EQ(again.parent(), nodes.find("b"));
}

TEST(TreeNodes, RemovesChildlessNodesUntilNoneIsLeft)
{
    TreeNodes nodes;
    nodes.add("", "group", "", 0, 1);
    nodes.add("group", "inner", "", 0, 1);
    nodes.add("inner", "product", "", 0, 1);
    nodes.add("", "kept", "", 0, 1);
    nodes.add("kept", "emptyFolder", "", 0, 2);
    nodes.removeChildless([](const TreeNode& node) { return node.tag() == 1; });
    EXPECT_THAT(keysInOrder(nodes), ElementsAre("kept", "emptyFolder"));
    EXPECT_EQ(nodes.find("kept")->row(), 0);
}

TEST(TreeNodes, GivesSelectedNodesFromTopToBottomWhateverTheOrderOfSelection)
{
    TreeNodes nodes;
    fillSample(nodes);
    for (const char* key : {"c", "a1x", "b1", "a"})
        nodes.setSelected(*nodes.find(key), true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("a", "a1x", "b1", "c"));
}

TEST(TreeNodes, GivesFewSelectedOfManyInTheSameOrderAsAWalk)
{
    TreeNodes nodes;
    for (int i = 0; i < 200; ++i) {
        const std::string key = "p" + std::to_string(i);
        nodes.add("", key, "", 0, 0);
        nodes.add(key, key + "/1", "", 0, 0);
        nodes.add(key + "/1", key + "/1/1", "", 0, 0);
    }
    for (const char* key : {"p150/1", "p7/1/1", "p150", "p7", "p6/1/1"})
        nodes.setSelected(*nodes.find(key), true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("p6/1/1", "p7", "p7/1/1", "p150", "p150/1"));
}

TEST(TreeNodes, GivesANodeOnceThatWasSelectedAnew)
{
    TreeNodes nodes;
    for (int i = 0; i < 100; ++i)
        nodes.add("", std::to_string(i), "", 0, 0);
    for (int i = 0; i < 500; ++i) {
        nodes.setSelected(nodes.item(3), true);
        nodes.setSelected(nodes.item(3), false);
    }
    nodes.setSelected(nodes.item(3), true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("2"));
}

TEST(TreeNodes, HasTheNodeSelectedLastAsTheSelectedOne)
{
    TreeNodes nodes;
    fillSample(nodes);
    EXPECT_EQ(nodes.selectedNode(), nullptr);
    nodes.setSelected(*nodes.find("a"), true);
    nodes.setSelected(*nodes.find("b"), true);
    nodes.setSelected(*nodes.find("c"), true);
    EXPECT_EQ(nodes.selectedNode()->key(), "c");
    nodes.setSelected(*nodes.find("a"), false);
    EXPECT_EQ(nodes.selectedNode()->key(), "c");
    nodes.setSelected(*nodes.find("c"), false);
    EXPECT_EQ(nodes.selectedNode()->key(), "b");
    nodes.setSelected(*nodes.find("b"), false);
    EXPECT_EQ(nodes.selectedNode(), nullptr);
}

TEST(TreeNodes, MakesOnlyASelectedNodeCurrent)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.setSelected(*nodes.find("a"), true);
    nodes.setSelected(*nodes.find("b"), true);
    nodes.makeCurrent(*nodes.find("a"));
    EXPECT_EQ(nodes.selectedNode()->key(), "a");
    nodes.makeCurrent(*nodes.find("c"));
    EXPECT_EQ(nodes.selectedNode()->key(), "a");
}

TEST(TreeNodes, AddsToTheSelectionWithMultipleSelectionOn)
{
    TreeNodes nodes;
    fillSample(nodes);
    EXPECT_TRUE(nodes.multiSelect());
    nodes.setSelected(*nodes.find("a"), true);
    nodes.setSelected(*nodes.find("b"), true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("a", "b"));
}

TEST(TreeNodes, ReplacesTheSelectionWithMultipleSelectionOff)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.setSelected(*nodes.find("a"), true);
    nodes.setSelected(*nodes.find("b"), true);
    nodes.setMultiSelect(false);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("a", "b"));
    nodes.setSelected(*nodes.find("c"), true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("c"));
    nodes.setMultiSelect(true);
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("c"));
}

TEST(TreeNodes, ForgetsRemovedNodesInTheSelection)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.setSelected(*nodes.find("b"), true);
    nodes.setSelected(*nodes.find("a1x"), true);
    nodes.remove(*nodes.find("a"));
    EXPECT_THAT(keysOf(nodes.selectedNodes()), ElementsAre("b"));
    EXPECT_EQ(nodes.selectedNode()->key(), "b");
    nodes.clear();
    EXPECT_THAT(nodes.selectedNodes(), IsEmpty());
    EXPECT_EQ(nodes.selectedNode(), nullptr);
}

TEST(TreeNodes, IsEmptyAfterClearAndFillsAgain)
{
    TreeNodes nodes;
    fillSample(nodes);
    nodes.clear();
    EXPECT_EQ(nodes.count(), 0);
    EXPECT_TRUE(nodes.roots().empty());
    EXPECT_EQ(nodes.find("a"), nullptr);
    fillSample(nodes);
    EXPECT_EQ(nodes.count(), 7);
}

TEST(TreeNodes, TellsItsListenerOfEachChange)
{
    TreeNodes nodes;
    RecordingListener listener;
    nodes.setListener(&listener);
    TreeNode& a = nodes.add("", "a", "", 0, 0);
    nodes.add("a", "b", "", 0, 0);
    nodes.setExpanded(a, true);
    nodes.setExpanded(a, true);
    nodes.setSelected(a, true);
    nodes.setSelected(a, true);
    nodes.clearSelection();
    nodes.clearSelection();
    nodes.setMultiSelect(false);
    nodes.remove(*nodes.find("b"));
    EXPECT_THAT(listener.calls, ElementsAre("adding - 0", "added", "adding a 0", "added", "expanded a",
                                            "selected a", "cleared", "mode", "removing b", "removed"));
}

TEST(TreeNodes, HoldsBackItsListenerInABulkAndEndsWithOneReset)
{
    TreeNodes nodes;
    RecordingListener listener;
    nodes.setListener(&listener);
    {
        const TreeNodes::Bulk outer(nodes);
        const TreeNodes::Bulk inner(nodes);
        fillSample(nodes);
        nodes.setSelected(nodes.item(1), true);
        nodes.setExpanded(nodes.item(1), true);
        nodes.remove(nodes.item(2));
        nodes.clear();
    }
    EXPECT_THAT(listener.calls, ElementsAre("aboutToReset", "reset"));
}

TEST(TreeNodes, PruningNothingTellsNothing)
{
    TreeNodes nodes;
    fillSample(nodes);
    RecordingListener listener;
    nodes.setListener(&listener);
    nodes.removeChildless([](const TreeNode&) { return false; });
    EXPECT_THAT(listener.calls, IsEmpty());
}

TEST(TreeNodes, StaysQuickWithAHundredThousandNodes)
{
    constexpr int kNodes = 100000;
    std::vector<std::string> keys;
    for (int i = 0; i < kNodes; ++i)
        keys.push_back("{0F2C91-" + std::to_string(i) + "-A11B-77C0E2}");
    TreeNodes nodes;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kNodes; ++i)
        nodes.add(i % 50 ? keys[static_cast<std::size_t>(i - i % 50)] : std::string(),
                  keys[static_cast<std::size_t>(i)], "A document", 1, 3);
    for (int i = kNodes; i > 0; --i)
        nodes.setSelected(nodes.item(i), true);
    for (int i = 1; i <= kNodes; ++i)
        nodes.setSelected(nodes.item(i), false);
    const auto took = std::chrono::steady_clock::now() - start;
    RecordProperty("ms",
                   static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(took).count()));
    // Far above what a sanitized build on a busy machine takes, far below what a walk for each node would.
    EXPECT_LT(took, std::chrono::seconds(5));
}

} // namespace
} // namespace zorvo
