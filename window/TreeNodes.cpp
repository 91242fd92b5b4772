#include "window/TreeNodes.h"

#include "base/RunTimeError.h"

#include <algorithm>
#include <deque>

namespace zorvo {

namespace {
constexpr int kRelativeNotFound = 35601;
} // namespace

/// Nodes lie in blocks: a hundred thousand of them cost few allocations and never move. The place of a removed node
/// is taken again.
struct TreeNodes::Storage {
    std::deque<TreeNode> nodes;
    std::vector<TreeNode*> free;

    TreeNode* take()
    {
        if (free.empty())
            return &nodes.emplace_back();
        TreeNode* node = free.back();
        free.pop_back();
        return node;
    }
    void giveBack(TreeNode* node)
    {
        *node = TreeNode();
        free.push_back(node);
    }
};

TreeNodes::TreeNodes()
    : storage_(std::make_unique<Storage>())
{
}

TreeNodes::~TreeNodes() = default;

TreeNode& TreeNodes::add(const std::string& sRelative, const std::string& sKey, const std::string& sText, int nImage,
                         int nTag)
{
    TreeNode* parent = nullptr;
    if (!sRelative.empty()) {
        parent = find(sRelative);
        if (!parent)
            throw RunTimeError(kRelativeNotFound, "Element not found");
    }
    if (!sKey.empty() && byKey_.contains(sKey))
        throw RunTimeError(kKeyAlreadyUsed);

    std::vector<TreeNode*>& siblings = parent ? parent->children_ : roots_;
    const int nRow = static_cast<int>(siblings.size());
    const bool bTell = listener_ && nBulkDepth_ == 0;
    if (bTell)
        listener_->nodeAboutToBeAdded(parent, nRow);
    TreeNode* node = storage_->take();
    node->sKey_ = sKey;
    node->sText_ = sText;
    node->parent_ = parent;
    node->nImage_ = nImage;
    node->nRow_ = nRow;
    node->nTag_ = static_cast<short>(nTag);
    order_.push_back(node);
    node->nIndex_ = count();
    siblings.push_back(node);
    if (!sKey.empty())
        byKey_.emplace(node->sKey_, node);
    if (bTell)
        listener_->nodeAdded();
    return *node;
}

TreeNode& TreeNodes::item(int index)
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return *order_[static_cast<std::size_t>(index - 1)];
}

const TreeNode& TreeNodes::item(int index) const
{
    if (index < 1 || index > count())
        throw RunTimeError(kIndexOutOfRange);
    return *order_[static_cast<std::size_t>(index - 1)];
}

TreeNode* TreeNodes::find(std::string_view sKey) const
{
    const auto found = byKey_.find(sKey);
    return found == byKey_.end() ? nullptr : found->second;
}

void TreeNodes::remove(TreeNode& node)
{
    std::vector<bool> marked(order_.size(), false);
    std::vector<TreeNode*> below{&node};
    while (!below.empty()) {
        const TreeNode* next = below.back();
        below.pop_back();
        marked[static_cast<std::size_t>(next->index() - 1)] = true;
        below.insert(below.end(), next->children().begin(), next->children().end());
    }
    removeMarked(marked);
}

void TreeNodes::removeMarked(const std::vector<bool>& marked)
{
    if (std::find(marked.begin(), marked.end(), true) == marked.end())
        return;
    const Bulk bulk(*this);
    std::vector<TreeNode*> gone;
    std::vector<TreeNode*> kept;
    kept.reserve(order_.size());
    for (std::size_t i = 0; i < order_.size(); ++i)
        (marked[i] ? gone : kept).push_back(order_[i]);

    const auto isGone = [&marked](const TreeNode* node) {
        return static_cast<bool>(marked[static_cast<std::size_t>(node->index() - 1)]);
    };
    const auto thin = [&isGone](std::vector<TreeNode*>& siblings) {
        std::erase_if(siblings, isGone);
        int nRow = 0;
        for (TreeNode* sibling : siblings)
            sibling->nRow_ = nRow++;
    };
    bool bRootGone = false;
    std::vector<TreeNode*> parents;
    for (const TreeNode* node : gone) {
        if (!node->parent())
            bRootGone = true;
        else if (!isGone(node->parent()))
            parents.push_back(node->parent());
        if (node->bSelected_)
            --nSelected_;
        if (current_ == node)
            current_ = nullptr;
        byKey_.erase(node->sKey_);
    }
    std::sort(parents.begin(), parents.end());
    parents.erase(std::unique(parents.begin(), parents.end()), parents.end());
    for (TreeNode* parent : parents)
        thin(parent->children_);
    if (bRootGone)
        thin(roots_);
    for (TreeNode* node : gone)
        storage_->giveBack(node);
    order_ = std::move(kept);
    int nIndex = 0;
    for (TreeNode* node : order_)
        node->nIndex_ = ++nIndex;
}

void TreeNodes::clear()
{
    const Bulk bulk(*this);
    byKey_.clear();
    order_.clear();
    roots_.clear();
    current_ = nullptr;
    nSelected_ = 0;
    storage_ = std::make_unique<Storage>();
}

void TreeNodes::setExpanded(TreeNode& node, bool bExpanded)
{
    if (node.bExpanded_ == bExpanded)
        return;
    node.bExpanded_ = bExpanded;
    if (listener_ && nBulkDepth_ == 0)
        listener_->expandedChanged(node);
}

void TreeNodes::setSelected(TreeNode& node, bool bSelected)
{
    if (bSelected && !bMultiSelect_) {
        for (TreeNode* other : selectedNodes()) {
            if (other != &node)
                setSelected(*other, false);
        }
    }
    if (bSelected)
        current_ = &node;
    else if (current_ == &node)
        current_ = nullptr;
    if (node.bSelected_ == bSelected)
        return;
    node.bSelected_ = bSelected;
    if (bSelected)
        ++nSelected_;
    else
        --nSelected_;
    if (!current_ && nSelected_ > 0) {
        const auto remaining = selectedNodes();
        current_ = remaining.back();
    }
    if (listener_ && nBulkDepth_ == 0)
        listener_->selectionChanged(node);
}

void TreeNodes::clearSelection()
{
    const auto selected = selectedNodes();
    current_ = nullptr;
    nSelected_ = 0;
    for (TreeNode* node : selected) {
        node->bSelected_ = false;
        if (listener_ && nBulkDepth_ == 0)
            listener_->selectionChanged(*node);
    }
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
    if (nSelected_ == 0)
        return selected;
    selected.reserve(nSelected_);
    // From top to bottom as the tree shows them, which need not be the order in which they were added.
    std::vector<TreeNode*> pending(roots_.rbegin(), roots_.rend());
    while (!pending.empty() && selected.size() < nSelected_) {
        TreeNode* node = pending.back();
        pending.pop_back();
        if (node->bSelected_)
            selected.push_back(node);
        pending.insert(pending.end(), node->children_.rbegin(), node->children_.rend());
    }
    return selected;
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
