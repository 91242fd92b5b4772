#include "window/TreeNodes.h"

#include "base/RunTimeError.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_set>

namespace zorvo {

namespace {

constexpr int kElementNotFound = 35601;

/// A selection of less than one node in this many is cheaper to sort than to find by walking the tree.
constexpr std::size_t kSortBelowOneIn = 16;

int depthOf(const TreeNode& node)
{
    int nDepth = 0;
    for (const TreeNode* above = node.parent(); above; above = above->parent())
        ++nDepth;
    return nDepth;
}

/// Tree order from top to bottom: a node stands above its children.
bool standsAbove(const TreeNode* a, const TreeNode* b)
{
    int nDepthA = depthOf(*a);
    int nDepthB = depthOf(*b);
    const bool bHigher = nDepthA < nDepthB;
    for (; nDepthA > nDepthB; --nDepthA)
        a = a->parent();
    for (; nDepthB > nDepthA; --nDepthB)
        b = b->parent();
    if (a == b)
        return bHigher;
    while (a->parent() != b->parent()) {
        a = a->parent();
        b = b->parent();
    }
    return a->row() < b->row();
}

void appendSelected(const std::vector<TreeNode*>& level, std::vector<TreeNode*>& selected)
{
    for (TreeNode* node : level) {
        if (node->selected())
            selected.push_back(node);
        appendSelected(node->children(), selected);
    }
}

} // namespace

/// Nodes live in blocks: their addresses hold, and a large tree takes few allocations.
struct TreeNodes::Storage {
    static constexpr std::size_t kBlock = 256;

    std::vector<std::unique_ptr<std::array<TreeNode, kBlock>>> blocks;
    std::vector<TreeNode*> freed;
    std::size_t nUsedOfLast = kBlock;

    TreeNode* take()
    {
        if (!freed.empty()) {
            TreeNode* node = freed.back();
            freed.pop_back();
            return node;
        }
        if (nUsedOfLast == kBlock) {
            blocks.push_back(std::make_unique<std::array<TreeNode, kBlock>>());
            nUsedOfLast = 0;
        }
        return &(*blocks.back())[nUsedOfLast++];
    }

    void giveBack(TreeNode* node)
    {
        *node = TreeNode();
        freed.push_back(node);
    }
};

TreeNodes::TreeNodes()
    : storage_(std::make_unique<Storage>())
{
}

TreeNodes::~TreeNodes() = default;

TreeNode& TreeNodes::add(const std::string& sRelative, const std::string& sKey, const std::string& sText,
                         int nImage, int nTag)
{
    TreeNode* parent = relative(sRelative);
    TreeNode* node = storage_->take();
    node->sKey_ = sKey;
    if (!sKey.empty() && !byKey_.insert(*node)) {
        storage_->giveBack(node);
        throw RunTimeError(kKeyAlreadyUsed);
    }

    std::vector<TreeNode*>& siblings = parent ? parent->children_ : roots_;
    const int nRow = static_cast<int>(siblings.size());
    if (TreeNodesListener* told = toldOneByOne())
        told->nodeAboutToBeAdded(parent, nRow);
    node->sText_ = sText;
    node->parent_ = parent;
    node->nImage_ = nImage;
    node->nTag_ = static_cast<short>(nTag);
    node->nRow_ = nRow;
    siblings.push_back(node);
    order_.push_back(node);
    node->nIndex_ = count();
    if (TreeNodesListener* told = toldOneByOne())
        told->nodeAdded();
    return *node;
}

/// Null for a root.
TreeNode* TreeNodes::relative(const std::string& sRelative)
{
    if (sRelative.empty())
        return nullptr;
    if (!lastRelative_ || lastRelative_->sKey_ != sRelative)
        lastRelative_ = find(sRelative);
    if (!lastRelative_)
        throw RunTimeError(kElementNotFound, "Element not found");
    return lastRelative_;
}

TreeNode& TreeNodes::item(int index)
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return *order_[static_cast<std::size_t>(index - 1)];
}

const TreeNode& TreeNodes::item(int index) const
{
    return const_cast<TreeNodes*>(this)->item(index);
}

TreeNode* TreeNodes::find(std::string_view sKey) const
{
    return sKey.empty() ? nullptr : byKey_.find(sKey);
}

void TreeNodes::remove(TreeNode& node)
{
    std::vector<bool> marked(order_.size(), false);
    std::vector<const TreeNode*> below{&node};
    while (!below.empty()) {
        const TreeNode* next = below.back();
        below.pop_back();
        marked[static_cast<std::size_t>(next->index() - 1)] = true;
        below.insert(below.end(), next->children().begin(), next->children().end());
    }
    TreeNodesListener* told = toldOneByOne();
    if (told)
        told->nodeAboutToBeRemoved(node);
    drop(marked);
    if (told)
        told->nodeRemoved();
}

void TreeNodes::removeMarked(const std::vector<bool>& marked)
{
    if (std::find(marked.begin(), marked.end(), true) == marked.end())
        return;
    const Bulk bulk(*this);
    drop(marked);
}

/// Takes the marked nodes out. With a node all below it is marked too.
void TreeNodes::drop(const std::vector<bool>& marked)
{
    const auto isMarked = [&marked](const TreeNode* node) {
        return marked[static_cast<std::size_t>(node->nIndex_ - 1)];
    };

    std::vector<TreeNode*> gone;
    std::vector<TreeNode*> bereft;
    for (TreeNode* node : order_) {
        if (!isMarked(node))
            continue;
        gone.push_back(node);
        if (!node->parent_ || !isMarked(node->parent_))
            bereft.push_back(node->parent_);
    }
    std::sort(bereft.begin(), bereft.end());
    bereft.erase(std::unique(bereft.begin(), bereft.end()), bereft.end());
    for (TreeNode* parent : bereft) {
        std::vector<TreeNode*>& siblings = parent ? parent->children_ : roots_;
        std::erase_if(siblings, isMarked);
        for (std::size_t i = 0; i < siblings.size(); ++i)
            siblings[i]->nRow_ = static_cast<int>(i);
    }

    lastRelative_ = nullptr;
    std::erase_if(selection_, isMarked);
    std::erase_if(order_, isMarked);
    for (std::size_t i = 0; i < order_.size(); ++i)
        order_[i]->nIndex_ = static_cast<int>(i + 1);
    for (TreeNode* node : gone) {
        if (node->bSelected_)
            --nSelected_;
        if (!node->sKey_.empty())
            byKey_.erase(*node);
        if (node == current_)
            current_ = nullptr;
        storage_->giveBack(node);
    }
    if (!current_)
        current_ = lastSelected();
}

void TreeNodes::clear()
{
    const Bulk bulk(*this);
    byKey_.clear();
    lastRelative_ = nullptr;
    roots_.clear();
    order_.clear();
    selection_.clear();
    nSelected_ = 0;
    current_ = nullptr;
    storage_ = std::make_unique<Storage>();
}

void TreeNodes::setExpanded(TreeNode& node, bool bExpanded)
{
    if (node.bExpanded_ == bExpanded)
        return;
    node.bExpanded_ = bExpanded;
    if (TreeNodesListener* told = toldOneByOne())
        told->expandedChanged(node);
}

void TreeNodes::setSelected(TreeNode& node, bool bSelected)
{
    if (bSelected)
        select(node);
    else
        deselect(node);
}

void TreeNodes::select(TreeNode& node)
{
    if (!bMultiSelect_ && nSelected_ > (node.bSelected_ ? 1U : 0U))
        clearSelection();
    current_ = &node;
    if (node.bSelected_)
        return;
    node.bSelected_ = true;
    ++nSelected_;
    remember(node);
    if (TreeNodesListener* told = toldOneByOne())
        told->selectionChanged(node);
}

void TreeNodes::deselect(TreeNode& node)
{
    if (!node.bSelected_)
        return;
    node.bSelected_ = false;
    --nSelected_;
    if (current_ == &node)
        current_ = lastSelected();
    if (TreeNodesListener* told = toldOneByOne())
        told->selectionChanged(node);
}

/// Deselected nodes stay in the list until it is worth a sweep, so that a deselection costs no search.
void TreeNodes::remember(TreeNode& node)
{
    constexpr std::size_t kSlack = 64;
    selection_.push_back(&node);
    if (selection_.size() <= 2 * nSelected_ + kSlack)
        return;
    // A node that was selected anew stands in the list more than once: its last place counts.
    std::unordered_set<const TreeNode*> seen;
    std::vector<TreeNode*> swept;
    for (auto place = selection_.rbegin(); place != selection_.rend(); ++place)
        if ((*place)->bSelected_ && seen.insert(*place).second)
            swept.push_back(*place);
    selection_.assign(swept.rbegin(), swept.rend());
}

TreeNode* TreeNodes::lastSelected()
{
    while (!selection_.empty() && !selection_.back()->bSelected_)
        selection_.pop_back();
    return selection_.empty() ? nullptr : selection_.back();
}

void TreeNodes::clearSelection()
{
    if (nSelected_ == 0)
        return;
    for (TreeNode* node : selection_)
        node->bSelected_ = false;
    selection_.clear();
    nSelected_ = 0;
    current_ = nullptr;
    if (TreeNodesListener* told = toldOneByOne())
        told->selectionCleared();
}

void TreeNodes::makeCurrent(TreeNode& node)
{
    if (node.bSelected_)
        current_ = &node;
}

void TreeNodes::setMultiSelect(bool bMultiSelect)
{
    if (bMultiSelect_ == bMultiSelect)
        return;
    bMultiSelect_ = bMultiSelect;
    if (listener_)
        listener_->selectionModeChanged();
}

std::vector<TreeNode*> TreeNodes::selectedNodes() const
{
    std::vector<TreeNode*> selected;
    selected.reserve(nSelected_);
    if (nSelected_ > order_.size() / kSortBelowOneIn) {
        appendSelected(roots_, selected);
        return selected;
    }
    std::copy_if(selection_.begin(), selection_.end(), std::back_inserter(selected),
                 [](const TreeNode* node) { return node->bSelected_; });
    std::sort(selected.begin(), selected.end(), standsAbove);
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    return selected;
}

TreeNodesListener* TreeNodes::toldOneByOne() const
{
    return nBulkDepth_ == 0 ? listener_ : nullptr;
}

TreeNodes::Bulk::Bulk(TreeNodes& nodes)
    : nodes_(nodes)
{
    if (nodes_.nBulkDepth_++ == 0 && nodes_.listener_)
        nodes_.listener_->nodesAboutToReset();
}

TreeNodes::Bulk::~Bulk()
{
    if (--nodes_.nBulkDepth_ == 0 && nodes_.listener_)
        nodes_.listener_->nodesReset();
}

} // namespace zorvo
