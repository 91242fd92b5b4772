#pragma once

#include "window/TreeNodes.h"

#include <QAbstractItemModel>

namespace zorvo {

/// A node collection as Qt's views see it: one column, with text and image. An index holds its node's
/// address, so that no step of a view costs more than a look at the node.
class TreeModel : public QAbstractItemModel, private TreeNodesListener {
    Q_OBJECT

public:
    /// `nodes` lives longer than the model.
    explicit TreeModel(TreeNodes& nodes, QObject* parent = nullptr);
    ~TreeModel() override;

    static TreeNode* nodeAt(const QModelIndex& index);
    QModelIndex indexOf(const TreeNode& node) const;
    /// The nodes are being changed as a whole; the model shows none meanwhile.
    bool isResetting() const { return bResetting_; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// No node can be edited, dragged or dropped on.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    void nodeExpandedChanged(zorvo::TreeNode* node);
    void nodeSelectionChanged(zorvo::TreeNode* node);
    void nodeSelectionCleared();
    void multiSelectChanged();

private:
    void nodesAboutToReset() override;
    void nodesReset() override;
    void nodeAboutToBeAdded(TreeNode* parent, int row) override;
    void nodeAdded() override;
    void nodeAboutToBeRemoved(const TreeNode& node) override;
    void nodeRemoved() override;
    void expandedChanged(TreeNode& node) override;
    void selectionChanged(TreeNode& node) override;
    void selectionCleared() override;
    void selectionModeChanged() override;

    const std::vector<TreeNode*>& childrenOf(const QModelIndex& parent) const;

    TreeNodes& nodes_;
    TreeNode* parentOfAdded_ = nullptr;
    bool bResetting_ = false;
};

} // namespace zorvo
