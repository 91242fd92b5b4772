#pragma once

#include "window/Picture.h"
#include "window/TreeModel.h"

#include <QTreeView>

namespace zorvo {

/// The tree control. A click selects, Ctrl and click adds, Right expands, a double click or Enter activates,
/// typing goes to the node that begins so. No node can be changed in place or moved. What the user selects
/// and expands stands in the nodes, and what the program sets there shows here.
class TreeView : public QTreeView {
    Q_OBJECT

public:
    explicit TreeView(const char* name, QWidget* parent = nullptr);
    ~TreeView() override;

    TreeNodes& nodes() { return nodes_; }
    const TreeNodes& nodes() const { return nodes_; }

    /// Stands behind the nodes; null takes it away.
    void setBackgroundPicture(const PicturePtr& picture);

Q_SIGNALS:
    /// The user or the program has changed the selection; `node` is the one selected last. Not told when none
    /// is left, nor when the nodes are exchanged as a whole.
    void nodeSelected(zorvo::TreeNode* node);
    /// The user has taken the last node out of the selection, or the program has.
    void nothingSelected();
    void nodeDoubleClicked(zorvo::TreeNode* node);
    void focusGained();
    void focusLost();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void takeSelection(const QItemSelection& ranges, bool bSelected);
    void followExpanded(TreeNode& node);
    void followSelected(TreeNode& node);
    void followCleared();
    void followMode();
    void reveal(TreeNode& node);
    void showNodesState();
    void showSelectedNodes();
    void tellSelected();

    TreeNodes nodes_;
    TreeModel* model_;
    /// Expansions that the program made in this turn of the event loop.
    int nFollowed_ = 0;
    bool bFollowing_ = false;
    bool bTaking_ = false;
};

} // namespace zorvo
