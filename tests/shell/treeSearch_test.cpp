#include "shell/treeSearch.h"

#include "base/RunTimeError.h"
#include "window/TreeNodes.h"

#include <gmock/gmock.h>

#include <deque>

namespace zorvo {
namespace {

using testing::ElementsAre;

/// Answers the dialogs from lists and writes down what was selected when each was shown.
class ScriptedForms : public TreeSearchForms {
public:
    explicit ScriptedForms(TreeNodes& tree)
        : tree_(tree)
    {
    }

    class Dialog : public TreeSearchDialog {
    public:
        Dialog(ScriptedForms& forms, std::string sText)
            : forms_(forms)
            , sText_(std::move(sText))
        {
        }
        bool ask() override { return forms_.answer(sText_); }
        std::string text() const override { return sText_; }
        void setText(const std::string& sText) override { sText_ = sText; }

    private:
        ScriptedForms& forms_;
        std::string sText_;
    };

    std::unique_ptr<TreeSearchDialog> newSearchDialog() override
    {
        ++nDialogs;
        return std::make_unique<Dialog>(*this, typed);
    }
    bool askToContinue() override
    {
        journal.emplace_back("no more");
        const bool bContinue = nContinue > 0;
        --nContinue;
        return bContinue;
    }
    bool answer(const std::string& sText)
    {
        if (bFailsAtAMatch && !tree_.multiSelect())
            throw RunTimeError(kOverflow);
        std::string sSelected;
        for (const TreeNode* node : tree_.selectedNodes())
            sSelected += node->key();
        journal.push_back(sText + ":" + sSelected + (tree_.multiSelect() ? "" : " single"));
        const bool bFindNext = findNext.empty() || findNext.front();
        if (!findNext.empty())
            findNext.pop_front();
        return bFindNext;
    }

    std::string typed;
    std::deque<bool> findNext;
    int nContinue = 0;
    bool bFailsAtAMatch = false;
    int nDialogs = 0;
    std::vector<std::string> journal;

private:
    TreeNodes& tree_;
};

class TreeSearchTest : public testing::Test {
protected:
    TreeSearchTest()
    {
        tree.add("", "g", "Balance group", -1, 1);
        tree.add("g", "p", "Audit", -1, 1);
        tree.add("p", "a", "Trial balance", -1, 3);
        tree.add("p", "b", "Memo", -1, 3);
        tree.setSelected(*tree.find("b"), true);
    }

    TreeNodes tree;
    ScriptedForms forms{tree};
};

TEST_F(TreeSearchTest, SelectsEachMatchInCollectionOrderWithoutRegardToCase)
{
    forms.typed = "BALANCE";
    SearchTree(tree, forms);
    EXPECT_THAT(forms.journal, ElementsAre("BALANCE:b", "BALANCE:g single", "BALANCE:a single", "no more"));
    EXPECT_EQ(forms.nDialogs, 2) << "the matches have a dialog of their own";
}

TEST_F(TreeSearchTest, CloseAtAMatchLeavesItSelected)
{
    forms.typed = "balance";
    forms.findNext = {true, false};
    SearchTree(tree, forms);
    EXPECT_THAT(forms.journal, ElementsAre("balance:b", "balance:g single"));
    EXPECT_TRUE(tree.find("g")->selected());
    EXPECT_TRUE(tree.multiSelect());
}

TEST_F(TreeSearchTest, CloseInTheFirstDialogKeepsTheSelectionAndTurnsMultipleSelectionBackOn)
{
    forms.findNext = {false};
    SearchTree(tree, forms);
    EXPECT_TRUE(tree.find("b")->selected());
    EXPECT_TRUE(tree.multiSelect());
    EXPECT_THAT(forms.journal, ElementsAre(":b"));
}

TEST_F(TreeSearchTest, AnEmptyTextMatchesEveryNode)
{
    SearchTree(tree, forms);
    EXPECT_EQ(forms.journal.size(), 6U) << "the first dialog, four nodes, the end";
}

TEST_F(TreeSearchTest, NothingFoundGoesStraightToTheEndAndCancelLeavesNothingSelected)
{
    forms.typed = "nowhere";
    SearchTree(tree, forms);
    EXPECT_THAT(forms.journal, ElementsAre("nowhere:b", "no more"));
    EXPECT_TRUE(tree.selectedNodes().empty());
}

TEST_F(TreeSearchTest, OkAtTheEndAsksForTheTextAgain)
{
    forms.typed = "memo";
    forms.nContinue = 1;
    SearchTree(tree, forms);
    EXPECT_THAT(forms.journal,
                ElementsAre("memo:b", "memo:b single", "no more", "memo:b", "memo:b single", "no more"));
}

TEST_F(TreeSearchTest, GroupsAndProductsAreSearchedToo)
{
    forms.typed = "audit";
    SearchTree(tree, forms);
    EXPECT_THAT(forms.journal, ElementsAre("audit:b", "audit:p single", "no more"));
}

TEST_F(TreeSearchTest, AFailureGivesTheMultipleSelectionBack)
{
    forms.typed = "memo";
    forms.bFailsAtAMatch = true;
    EXPECT_THROW(SearchTree(tree, forms), RunTimeError);
    EXPECT_TRUE(tree.multiSelect());
}

TEST_F(TreeSearchTest, CancelAtTheEndLeavesTheLastMatchSelected)
{
    forms.typed = "balance";
    SearchTree(tree, forms);
    EXPECT_TRUE(tree.find("a")->selected());
    EXPECT_FALSE(tree.find("g")->selected());
}

} // namespace
} // namespace zorvo
