#include "creation/forms/FolderTree.h"

#include "creation/forms/FolderModel.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <QScopedValueRollback>

namespace zorvo {

FolderTree::FolderTree(const char* name, QWidget* parent)
    : QTreeView(parent)
    , model_(new FolderModel(this))
{
    setObjectName(QString::fromUtf8(name));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setDragDropMode(NoDragDrop);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setModel(model_);
    const QScopedValueRollback moving(bMoving_, true);
    expand(model_->index(0, 0));
    connect(this, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT folderClicked(pathAt(index)); });
}

void FolderTree::refresh()
{
    const QScopedValueRollback moving(bMoving_, true);
    model_->refresh();
}

void FolderTree::expandFolder(const std::string& sPath)
{
    for (QModelIndex index = model_->indexOf(platform().files->toNative(sPath)); index.isValid();
         index = index.parent())
        expand(index);
}

void FolderTree::selectFolder(const std::string& sPath)
{
    const QModelIndex index = model_->indexOf(platform().files->toNative(sPath));
    if (!index.isValid())
        return;
    const QScopedValueRollback moving(bMoving_, true);
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        expand(above);
    setCurrentIndex(index);
    scrollTo(index, PositionAtCenter);
}

std::string FolderTree::selectedFolder() const
{
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? std::string() : pathAt(selected.front());
}

std::string FolderTree::pathAt(const QModelIndex& index) const
{
    return platform().files->fromNative(model_->nativePath(index));
}

void FolderTree::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (!bMoving_ && current.isValid())
        Q_EMIT folderClicked(pathAt(current));
}

void FolderTree::focusInEvent(QFocusEvent* event)
{
    {
        // The first focus makes the root the current folder, which nobody has chosen.
        const QScopedValueRollback moving(bMoving_, true);
        QTreeView::focusInEvent(event);
    }
    Q_EMIT focusGained();
}

void FolderTree::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    Q_EMIT focusLost();
}

} // namespace zorvo
