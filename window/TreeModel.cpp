#include "window/TreeModel.h"

#include <QIcon>

namespace zorvo {

TreeModel::TreeModel(TreeNodes& nodes, QObject* parent)
    : QAbstractItemModel(parent)
    , nodes_(nodes)
{
    nodes_.setListener(this);
}

TreeModel::~TreeModel()
{
    nodes_.setListener(nullptr);
}

TreeNode* TreeModel::nodeAt(const QModelIndex& index)
{
    return static_cast<TreeNode*>(index.internalPointer());
}

QModelIndex TreeModel::indexOf(const TreeNode& node) const
{
    return bResetting_ ? QModelIndex() : createIndex(node.row(), 0, &node);
}

const std::vector<TreeNode*>& TreeModel::childrenOf(const QModelIndex& parent) const
{
    static const std::vector<TreeNode*> none;
    if (bResetting_ || parent.column() > 0)
        return none;
    return parent.isValid() ? nodeAt(parent)->children() : nodes_.roots();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const auto& children = childrenOf(parent);
    if (row < 0 || column != 0 || row >= static_cast<int>(children.size()))
        return {};
    return createIndex(row, column, children[static_cast<std::size_t>(row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& child) const
{
    const TreeNode* above = child.isValid() ? nodeAt(child)->parent() : nullptr;
    return above ? indexOf(*above) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(childrenOf(parent).size());
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const
{
    return !childrenOf(parent).empty();
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const TreeNode& node = *nodeAt(index);
    if (role == Qt::DisplayRole)
        return QString::fromStdString(node.text());
    if (role != Qt::DecorationRole || node.image() < 1 || node.image() > nodes_.images().count())
        return {};
    const PicturePtr& picture = nodes_.images().item(node.image()).picture;
    return picture ? QVariant(picture->icon()) : QVariant();
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

/// A view may paint while the nodes are exchanged, so it gets an empty tree until they all are there.
void TreeModel::nodesAboutToReset()
{
    beginResetModel();
    bResetting_ = true;
    endResetModel();
}

void TreeModel::nodesReset()
{
    beginResetModel();
    bResetting_ = false;
    endResetModel();
}

void TreeModel::nodeAboutToBeAdded(TreeNode* parent, int row)
{
    parentOfAdded_ = parent;
    beginInsertRows(parent ? indexOf(*parent) : QModelIndex(), row, row);
}

void TreeModel::nodeAdded()
{
    endInsertRows();
    // A node may have been expanded ahead of its first child, when there was nothing to show yet.
    if (parentOfAdded_ && parentOfAdded_->expanded() && parentOfAdded_->children().size() == 1)
        Q_EMIT nodeExpandedChanged(parentOfAdded_);
}

void TreeModel::nodeAboutToBeRemoved(const TreeNode& node)
{
    beginRemoveRows(node.parent() ? indexOf(*node.parent()) : QModelIndex(), node.row(), node.row());
}

void TreeModel::nodeRemoved()
{
    endRemoveRows();
}

void TreeModel::expandedChanged(TreeNode& node)
{
    Q_EMIT nodeExpandedChanged(&node);
}

void TreeModel::selectionChanged(TreeNode& node)
{
    Q_EMIT nodeSelectionChanged(&node);
}

void TreeModel::selectionCleared()
{
    Q_EMIT nodeSelectionCleared();
}

void TreeModel::selectionModeChanged()
{
    Q_EMIT multiSelectChanged();
}

} // namespace zorvo
