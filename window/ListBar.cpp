#include "window/ListBar.h"

#include "window/ListBarEntry.h"
#include "window/UiIds.h"
#include "window/spacing.h"

#include <QIcon>
#include <QScrollBar>
#include <QVBoxLayout>

namespace zorvo {

ListBar::ListBar(const char* name, QWidget* parent)
    : QScrollArea(parent)
{
    setObjectName(QString::fromUtf8(name));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setBackgroundRole(QPalette::Base);
    auto* contents = new QWidget(this);
    entries_ = new QVBoxLayout(contents);
    entries_->setContentsMargins(kSpacing / 2, kSpacing / 2, kSpacing / 2, kSpacing / 2);
    entries_->setSpacing(kSpacing / 2);
    entries_->addStretch();
    setWidget(contents);
    groups_.setListener([this] { showGroups(); });
}

ListBar::~ListBar()
{
    groups_.setListener({});
}

QSize ListBar::sizeHint() const
{
    const int nWidth = widget()->sizeHint().width() + 2 * frameWidth();
    return {nWidth + verticalScrollBar()->sizeHint().width(),
            widget()->sizeHint().height() + 2 * frameWidth()};
}

QWidget* ListBar::lastEntry() const
{
    const int nLast = entries_->count() - 2; // the stretch stands behind it
    return nLast < 0 ? nullptr : entries_->itemAt(nLast)->widget();
}

void ListBar::showGroups()
{
    while (entries_->count() > 1) {
        const std::unique_ptr<QLayoutItem> item(entries_->takeAt(0));
        item->widget()->hide();
        // Its own click may be what changes the groups.
        item->widget()->deleteLater();
    }
    for (int i = 1; i <= groups_.count(); ++i)
        addEntry(i);
    updateGeometry();
}

void ListBar::addEntry(int index)
{
    const ListBarGroups::Group& group = groups_.item(index);
    QIcon icon;
    if (group.nImage >= 1 && group.nImage <= groups_.images().count())
        if (const PicturePtr& picture = groups_.images().item(group.nImage).picture)
            icon = picture->icon();
    auto* entry = new ListBarEntry(icon, QString::fromStdString(group.sCaption), widget());
    entry->setObjectName(QString::fromStdString(group.sKey));
    connect(entry, &ListBarEntry::clicked, this, [this, index] { Q_EMIT clicked(index); });
    entries_->insertWidget(entries_->count() - 1, entry);
    entry->setVisible(true);
    markUiId(*entry);
}

} // namespace zorvo
