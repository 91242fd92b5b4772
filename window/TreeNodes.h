#pragma once

#include "window/ImageList.h"
#include "window/KeyIndex.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The contents of a tree control, free of any widget: a view shows them through a model that listens here.
namespace zorvo {

class TreeNodes;

class TreeNode {
public:
    const std::string& key() const { return sKey_; }
    const std::string& text() const { return sText_; }
    /// Index in the image list; -1 shows none. The selected image is always equal to the image.
    int image() const { return nImage_; }
    int tag() const { return nTag_; }

    TreeNode* parent() const { return parent_; }
    const std::vector<TreeNode*>& children() const { return children_; }
    /// Place among its siblings, from 0.
    int row() const { return nRow_; }
    /// Place in the collection, from 1: the order in which nodes were added.
    int index() const { return nIndex_; }

    bool expanded() const { return bExpanded_; }
    bool selected() const { return bSelected_; }

private:
    friend class TreeNodes;

    std::string sKey_;
    std::string sText_;
    TreeNode* parent_ = nullptr;
    std::vector<TreeNode*> children_;
    int nImage_ = -1;
    int nRow_ = 0;
    int nIndex_ = 0;
    short nTag_ = 0;
    bool bExpanded_ = false;
    bool bSelected_ = false;
};

/// Told what changes, so that a view can follow. Changes between `nodesAboutToReset` and `nodesReset` are not
/// told one by one.
class TreeNodesListener {
public:
    virtual ~TreeNodesListener() = default;
    virtual void nodesAboutToReset() = 0;
    virtual void nodesReset() = 0;
    virtual void nodeAboutToBeAdded(TreeNode* parent, int row) = 0;
    virtual void nodeAdded() = 0;
    virtual void nodeAboutToBeRemoved(const TreeNode& node) = 0;
    virtual void nodeRemoved() = 0;
    virtual void expandedChanged(TreeNode& node) = 0;
    /// The node is selected now, or no longer is.
    virtual void selectionChanged(TreeNode& node) = 0;
    /// No node is selected any more.
    virtual void selectionCleared() = 0;
    virtual void selectionModeChanged() = 0;
};

/// The node collection of one tree control. Keys are exact: they differ by case.
class TreeNodes {
public:
    TreeNodes();
    ~TreeNodes();
    TreeNodes(const TreeNodes&) = delete;
    TreeNodes& operator=(const TreeNodes&) = delete;

    ImageList& images() { return images_; }
    const ImageList& images() const { return images_; }

    /// Appends a node as the last child of the node with key `sRelative` (empty: a root). Throws RunTimeError
    /// 457 when `sKey` is in the tree already, 35601 when there is no such relative. An empty key is allowed
    /// any number of times and is never found.
    TreeNode& add(const std::string& sRelative, const std::string& sKey, const std::string& sText, int nImage,
                  int nTag);

    int count() const { return static_cast<int>(order_.size()); }
    /// `index` from 1. Throws RunTimeError 9 outside the collection.
    TreeNode& item(int index);
    const TreeNode& item(int index) const;
    TreeNode* find(std::string_view sKey) const;
    const std::vector<TreeNode*>& roots() const { return roots_; }

    /// Removes the node and all below it; the nodes behind it move up in the collection.
    void remove(TreeNode& node);
    /// Removes every node that has no children and for which `unwanted` holds, again and again until none is
    /// left: the result of a walk from the last node to the first that restarts at each removal, in one pass.
    template <typename Predicate>
    void removeChildless(Predicate unwanted);
    void clear();

    void setExpanded(TreeNode& node, bool bExpanded);
    /// With multiple selection off, selecting one node deselects all others.
    void setSelected(TreeNode& node, bool bSelected);
    void clearSelection();
    /// Makes a node that is selected the one with the focus, as if it had been selected last.
    void makeCurrent(TreeNode& node);
    bool multiSelect() const { return bMultiSelect_; }
    /// Leaves the selection as it is.
    void setMultiSelect(bool bMultiSelect);
    /// The selected nodes, in tree order from top to bottom.
    std::vector<TreeNode*> selectedNodes() const;
    /// The node that has the focus in the selection: the one selected last of those that still are, or null.
    TreeNode* selectedNode() const { return current_; }

    /// One listener at most (the view's model); null takes it off.
    void setListener(TreeNodesListener* listener) { listener_ = listener; }

    /// Holds back the listener while many nodes are added; ends with one reset.
    class Bulk {
    public:
        explicit Bulk(TreeNodes& nodes);
        ~Bulk();
        Bulk(const Bulk&) = delete;
        Bulk& operator=(const Bulk&) = delete;

    private:
        TreeNodes& nodes_;
    };

private:
    struct Storage;

    void removeMarked(const std::vector<bool>& marked);
    void drop(const std::vector<bool>& marked);
    void select(TreeNode& node);
    void deselect(TreeNode& node);
    void remember(TreeNode& node);
    TreeNode* lastSelected();
    TreeNode* relative(const std::string& sRelative);
    TreeNodesListener* toldOneByOne() const;

    ImageList images_;
    std::vector<TreeNode*> order_;
    std::vector<TreeNode*> roots_;
    KeyIndex byKey_;
    /// The relative of the last node: its siblings mostly come right behind it.
    TreeNode* lastRelative_ = nullptr;
    std::unique_ptr<Storage> storage_;
    /// In the order of selection. A node may stand there more than once, and after its deselection.
    std::vector<TreeNode*> selection_;
    TreeNode* current_ = nullptr;
    TreeNodesListener* listener_ = nullptr;
    int nBulkDepth_ = 0;
    std::size_t nSelected_ = 0;
    bool bMultiSelect_ = true;
};

template <typename Predicate>
void TreeNodes::removeChildless(Predicate unwanted)
{
    // A parent stands ahead of its children in the collection, so that one walk from the end sees every node
    // after all that could still be taken away below it.
    std::vector<bool> marked(order_.size(), false);
    std::vector<std::size_t> gone(order_.size(), 0);
    for (std::size_t i = order_.size(); i-- > 0;) {
        const TreeNode& node = *order_[i];
        if (node.children().size() != gone[i] || !unwanted(node))
            continue;
        marked[i] = true;
        if (node.parent())
            ++gone[static_cast<std::size_t>(node.parent()->index() - 1)];
    }
    removeMarked(marked);
}

} // namespace zorvo
