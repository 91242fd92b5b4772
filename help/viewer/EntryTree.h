#pragma once

#include "help/viewer/Book.h"

#include <QTreeWidget>

namespace zorvo::help {

/// The contents or the index of a book as a tree: an entry that is chosen asks for its page.
class EntryTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit EntryTree(QWidget* parent = nullptr);

    /// An entry with several pages has them below it.
    void fill(const Book& book, const std::vector<SiteMapEntry>& entries);
    /// Selects the first entry of that page, if there is one, without asking for it.
    void follow(const QString& page);
    /// Shows only the entries that hold the text, with what they stand below; all for an empty text.
    void filter(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

Q_SIGNALS:
    void pageChosen(const QString& target);
    /// Look under that word instead.
    void wordChosen(const QString& word);

private:
    QTreeWidgetItem* newItem(QTreeWidgetItem* parent, const QString& text, const QString& target);
    void choose(const QTreeWidgetItem* item);

    const Book* book_ = nullptr;
};

} // namespace zorvo::help
