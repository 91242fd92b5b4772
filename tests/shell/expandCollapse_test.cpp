#include "shell/expandCollapse.h"

#include "shell/listBarJump.h"
#include "window/TreeNodes.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExpandCollapseTest : public testing::Test {
protected:
    ExpandCollapseTest()
    {
        tree.add("", "G", "Group", -1, 1);
        tree.add("G", "N", "Nested", -1, 1);
        tree.add("N", "P1", "Product", -1, 1);
        tree.add("P1", "F1", "Folder", -1, 2);
        tree.add("F1", "D1", "Document", -1, 3);
        tree.add("G", "P2", "Product", -1, 1);
        tree.add("P2", "F2", "Folder", -1, 2);
        tree.add("F2", "D2", "Document", -1, 3);
        tree.add("", "H", "Other group", -1, 1);
        tree.add("H", "P3", "Product", -1, 1);
    }

    std::vector<std::string> expanded() const
    {
        std::vector<std::string> keys;
        for (int i = 1; i <= tree.count(); ++i) {
            if (tree.item(i).expanded() && !tree.item(i).children().empty())
                keys.push_back(tree.item(i).key());
        }
        return keys;
    }

    TreeNodes tree;
};

TEST_F(ExpandCollapseTest, ReachesEveryNodeBelowTheSelectedOneAndNoOther)
{
    tree.setSelected(*tree.find("G"), true);
    expandCollapse(tree, true);
    EXPECT_THAT(expanded(), ElementsAre("G", "N", "P1", "F1", "P2", "F2"));
    expandCollapse(tree, false);
    EXPECT_THAT(expanded(), IsEmpty());
}

TEST_F(ExpandCollapseTest, ReachesBelowTheLastSibling)
{
    tree.setSelected(*tree.find("P2"), true);
    expandCollapse(tree, true);
    EXPECT_THAT(expanded(), ElementsAre("P2", "F2"));
}

TEST_F(ExpandCollapseTest, VisitsWhateverLiesBetweenTwoSiblingsByNumber)
{
    // Added late: between it and its first sibling lies all that came meanwhile.
    tree.add("N", "L", "Late product", -1, 1);
    tree.setSelected(*tree.find("N"), true);
    expandCollapse(tree, true);
    EXPECT_THAT(expanded(), ElementsAre("N", "P1", "F1", "P2", "F2", "H"));
}

TEST_F(ExpandCollapseTest, OpensFromTheInsideOut)
{
    class Order : public TreeNodesListener {
    public:
        void nodesAboutToReset() override {}
        void nodesReset() override {}
        void nodeAboutToBeAdded(TreeNode* /*parent*/, int /*row*/) override {}
        void nodeAdded() override {}
        void nodeAboutToBeRemoved(const TreeNode& /*node*/) override {}
        void nodeRemoved() override {}
        void expandedChanged(TreeNode& node) override { keys.push_back(node.key()); }
        void selectionChanged(TreeNode& /*node*/) override {}
        void selectionCleared() override {}
        void selectionModeChanged() override {}
        std::vector<std::string> keys;
    } order;
    tree.setSelected(*tree.find("G"), true);
    tree.setListener(&order);
    expandCollapse(tree, true);
    tree.setListener(nullptr);
    EXPECT_THAT(order.keys, ElementsAre("D1", "F1", "P1", "N", "D2", "F2", "P2", "G"));
}

TEST_F(ExpandCollapseTest, DoesNothingWithNothingSelected)
{
    expandCollapse(tree, true);
    EXPECT_THAT(expanded(), IsEmpty());
}

TEST_F(ExpandCollapseTest, DoesNothingOnADocument)
{
    tree.setSelected(*tree.find("D1"), true);
    expandCollapse(tree, true);
    EXPECT_THAT(expanded(), IsEmpty());
    EXPECT_FALSE(tree.find("D1")->expanded());
}

TEST_F(ExpandCollapseTest, AListBarClickSelectsItsGroupInsteadOfTheNodeBefore)
{
    tree.setSelected(*tree.find("D1"), true);
    jumpToListBarEntry(tree, "H");
    EXPECT_TRUE(tree.find("H")->selected());
    EXPECT_TRUE(tree.find("H")->expanded());
    EXPECT_FALSE(tree.find("D1")->selected());
}

TEST_F(ExpandCollapseTest, AListBarClickComparesTheFileNamePartOfTheKeyWithoutExtension)
{
    jumpToListBarEntry(tree, "C:\\Images\\H.ico");
    EXPECT_TRUE(tree.find("H")->selected());
}

TEST_F(ExpandCollapseTest, AListBarClickTakesOnlyTheNodeWithTheFocusOutOfTheSelection)
{
    tree.setSelected(*tree.find("D1"), true);
    tree.setSelected(*tree.find("D2"), true);
    jumpToListBarEntry(tree, "H");
    EXPECT_TRUE(tree.find("D1")->selected());
    EXPECT_FALSE(tree.find("D2")->selected());
    EXPECT_EQ(tree.selectedNode(), tree.find("H"));
}

TEST_F(ExpandCollapseTest, AListBarClickOnTheSelectedGroupTakesItsSelectionBack)
{
    tree.setSelected(*tree.find("H"), true);
    jumpToListBarEntry(tree, "H");
    EXPECT_FALSE(tree.find("H")->selected());
    EXPECT_TRUE(tree.find("H")->expanded());
}

TEST_F(ExpandCollapseTest, AListBarClickWithoutMatchKeepsTheSelection)
{
    tree.setSelected(*tree.find("D1"), true);
    jumpToListBarEntry(tree, "nowhere");
    EXPECT_TRUE(tree.find("D1")->selected());
}

} // namespace
} // namespace zorvo
