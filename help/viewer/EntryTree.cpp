#include "help/viewer/EntryTree.h"

#include "help/viewer/plainToolTip.h"
#include "window/RoomyItems.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

namespace zorvo::help {

namespace {

enum ItemRole : int { kTarget = Qt::UserRole, kPage, kSeeAlso };

bool matches(QTreeWidgetItem* item, const QString& text)
{
    bool bBelow = false;
    const bool bSelf = text.isEmpty() || item->text(0).contains(text, Qt::CaseInsensitive);
    for (int i = 0; i < item->childCount(); ++i) {
        // What stands below a word that is found comes with it.
        if (matches(item->child(i), bSelf ? QString() : text))
            bBelow = true;
    }
    item->setHidden(!bSelf && !bBelow);
    return bSelf || bBelow;
}

} // namespace

EntryTree::EntryTree(QWidget* parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new RoomyItems(this));
    setTextElideMode(Qt::ElideNone);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) { choose(item); });
    connect(this, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) { choose(item); });
}

QTreeWidgetItem* EntryTree::newItem(QTreeWidgetItem* parent, const QString& text, const QString& target)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setText(0, text);
    item->setToolTip(0, plainToolTip(text));
    if (!target.isEmpty()) {
        item->setData(0, kTarget, target);
        const BookLink link = book_->resolve(target);
        if (link.kind == BookLink::Kind::page)
            item->setData(0, kPage, QString::fromStdString(link.target));
    }
    return item;
}

void EntryTree::fill(const Book& book, const std::vector<SiteMapEntry>& entries)
{
    const QSignalBlocker quiet(this);
    book_ = &book;
    clear();
    std::vector<QTreeWidgetItem*> above;
    for (const SiteMapEntry& entry : entries) {
        above.resize(static_cast<std::size_t>(entry.depth));
        const bool bOnePage = entry.topics.size() == 1;
        auto* item =
            newItem(above.empty() ? nullptr : above.back(), QString::fromStdString(entry.name).simplified(),
                    bOnePage ? QString::fromStdString(entry.topics.front().target) : QString());
        item->setData(0, kSeeAlso, QString::fromStdString(entry.seeAlso));
        if (!bOnePage)
            for (const SiteMapTopic& topic : entry.topics)
                newItem(item, QString::fromStdString(topic.title).simplified(),
                        QString::fromStdString(topic.target));
        above.push_back(item);
    }
    // A short list is easier to take in as a whole.
    constexpr std::size_t kShort = 60;
    if (entries.size() <= kShort)
        expandAll();
}

void EntryTree::follow(const QString& page)
{
    const QTreeWidgetItem* current = currentItem();
    if (current && current->data(0, kPage).toString().compare(page, Qt::CaseInsensitive) == 0)
        return;
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItemIterator each(this); *each; ++each) {
        if ((*each)->data(0, kPage).toString().compare(page, Qt::CaseInsensitive) != 0)
            continue;
        setCurrentItem(*each);
        scrollToItem(*each);
        return;
    }
}

void EntryTree::filter(const QString& text)
{
    for (int i = 0; i < topLevelItemCount(); ++i)
        matches(topLevelItem(i), text.trimmed());
}

void EntryTree::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    // As wide as its longest entry, and a selected entry reaches to the edge.
    header()->setMinimumSectionSize(viewport()->width());
}

void EntryTree::choose(const QTreeWidgetItem* item)
{
    if (!item)
        return;
    const QString target = item->data(0, kTarget).toString();
    const QString word = item->data(0, kSeeAlso).toString();
    if (!target.isEmpty())
        Q_EMIT pageChosen(target);
    else if (!word.isEmpty())
        Q_EMIT wordChosen(word);
}

} // namespace zorvo::help
