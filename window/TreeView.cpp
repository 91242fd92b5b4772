#include "window/TreeView.h"

#include "window/RowDelegate.h"
#include "window/SliderScrollBar.h"

#include <QImage>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QTimer>

namespace zorvo {

namespace {

/// Above this many expansions at a time one layout of the whole tree is cheaper than one for each.
constexpr int kExpandOneByOne = 8;

bool isDark(const QPixmap& picture)
{
    constexpr int kMiddle = 128;
    return qGray(
               picture.toImage().scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0)) <
           kMiddle;
}

} // namespace

TreeView::TreeView(const char* name, QWidget* parent)
    : QTreeView(parent)
    , model_(new TreeModel(nodes_, this))
{
    setObjectName(QString::fromUtf8(name));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(NoDragDrop);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setItemDelegate(new RowDelegate(this));
    setVerticalScrollBar(new SliderScrollBar(Qt::Vertical, this));
    setModel(model_);

    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { nodes_.setExpanded(*TreeModel::nodeAt(index), true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { nodes_.setExpanded(*TreeModel::nodeAt(index), false); });
    connect(this, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT nodeDoubleClicked(TreeModel::nodeAt(index)); });
    // Comes after the view's and the selection's own answers to a reset, which were connected by setModel.
    connect(model_, &TreeModel::modelReset, this, &TreeView::showNodesState);
    connect(model_, &TreeModel::nodeExpandedChanged, this, [this](TreeNode* node) { followExpanded(*node); });
    connect(model_, &TreeModel::nodeSelectionChanged, this,
            [this](TreeNode* node) { followSelected(*node); });
    connect(model_, &TreeModel::nodeSelectionCleared, this, &TreeView::followCleared);
    connect(model_, &TreeModel::multiSelectChanged, this, &TreeView::followMode);
}

TreeView::~TreeView()
{
    // The nodes go before the base class that looks at them. No one is told of their end as of a selection.
    bFollowing_ = true;
    setModel(nullptr);
    delete model_;
}

void TreeView::setBackgroundPicture(const PicturePtr& picture)
{
    if (!picture) {
        setPalette(QPalette());
        return;
    }
    const QPixmap pixmap = picture->pixmap();
    QPalette colours = palette();
    colours.setBrush(QPalette::Base, QBrush(pixmap));
    colours.setColor(QPalette::Text, isDark(pixmap) ? Qt::white : Qt::black);
    setPalette(colours);
}

void TreeView::showNodesState()
{
    if (model_->isResetting())
        return;
    const QScopedValueRollback following(bFollowing_, true);
    for (int i = 1; i <= nodes_.count(); ++i) {
        const TreeNode& node = nodes_.item(i);
        if (node.expanded() && !node.children().empty())
            expand(model_->indexOf(node));
    }
    showSelectedNodes();
}

void TreeView::showSelectedNodes()
{
    // Neighbours make one range: a selection model is slow with many.
    QItemSelection selection;
    const TreeNode* first = nullptr;
    const TreeNode* last = nullptr;
    for (const TreeNode* node : nodes_.selectedNodes()) {
        const bool bNext = last && node->parent() == last->parent() && node->row() == last->row() + 1;
        if (!bNext) {
            if (first)
                selection.append({model_->indexOf(*first), model_->indexOf(*last)});
            first = node;
        }
        last = node;
    }
    if (first)
        selection.append({model_->indexOf(*first), model_->indexOf(*last)});
    selectionModel()->select(selection, QItemSelectionModel::Select);
    if (nodes_.selectedNode())
        selectionModel()->setCurrentIndex(model_->indexOf(*nodes_.selectedNode()),
                                          QItemSelectionModel::NoUpdate);
}

void TreeView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (bFollowing_)
        return;
    takeSelection(deselected, false);
    takeSelection(selected, true);
    if (currentIndex().isValid())
        nodes_.makeCurrent(*TreeModel::nodeAt(currentIndex()));
    tellSelected();
}

void TreeView::takeSelection(const QItemSelection& ranges, bool bSelected)
{
    const QScopedValueRollback taking(bTaking_, true);
    for (const QItemSelectionRange& range : ranges) {
        if (!range.isValid())
            continue;
        const TreeNode* above = TreeModel::nodeAt(range.topLeft())->parent();
        const auto& siblings = above ? above->children() : nodes_.roots();
        for (int row = range.top(); row <= range.bottom(); ++row)
            nodes_.setSelected(*siblings[static_cast<std::size_t>(row)], bSelected);
    }
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (bFollowing_ || !current.isValid())
        return;
    TreeNode* node = TreeModel::nodeAt(current);
    if (!node->selected() || node == nodes_.selectedNode())
        return;
    nodes_.makeCurrent(*node);
    tellSelected();
}

void TreeView::tellSelected()
{
    if (TreeNode* node = nodes_.selectedNode())
        Q_EMIT nodeSelected(node);
    else
        Q_EMIT nothingSelected();
}

void TreeView::followExpanded(TreeNode& node)
{
    if (node.expanded() && node.children().empty())
        return;
    if (nFollowed_++ == 0)
        QTimer::singleShot(0, this, [this] { nFollowed_ = 0; });
    if (nFollowed_ > kExpandOneByOne)
        scheduleDelayedItemsLayout();
    setExpanded(model_->indexOf(node), node.expanded());
}

void TreeView::followSelected(TreeNode& node)
{
    if (bTaking_)
        return;
    {
        const QScopedValueRollback following(bFollowing_, true);
        const QModelIndex index = model_->indexOf(node);
        if (node.selected()) {
            selectionModel()->select(index, QItemSelectionModel::Select);
            reveal(node);
        } else {
            selectionModel()->select(index, QItemSelectionModel::Deselect);
        }
    }
    tellSelected();
}

/// As the current node it is scrolled to at once, or when the view comes up.
void TreeView::reveal(TreeNode& node)
{
    for (TreeNode* above = node.parent(); above; above = above->parent())
        nodes_.setExpanded(*above, true);
    selectionModel()->setCurrentIndex(model_->indexOf(node), QItemSelectionModel::NoUpdate);
}

void TreeView::followCleared()
{
    if (bTaking_)
        return;
    {
        const QScopedValueRollback following(bFollowing_, true);
        selectionModel()->clearSelection();
    }
    tellSelected();
}

void TreeView::followMode()
{
    setSelectionMode(nodes_.multiSelect() ? ExtendedSelection : SingleSelection);
}

void TreeView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    Q_EMIT focusGained();
}

void TreeView::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    Q_EMIT focusLost();
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    const bool bEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Where nothing waits for it, Enter is the form's.
    if (bEnter && currentIndex().isValid() &&
        isSignalConnected(QMetaMethod::fromSignal(&TreeView::nodeDoubleClicked))) {
        Q_EMIT nodeDoubleClicked(TreeModel::nodeAt(currentIndex()));
        return;
    }
    QTreeView::keyPressEvent(event);
}

} // namespace zorvo
