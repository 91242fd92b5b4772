#pragma once

#include "window/ListBarGroups.h"

#include <QScrollArea>

class QVBoxLayout;

namespace zorvo {

/// A vertical bar of entries with large icons. It scrolls when the window is small; Tab and the arrow keys go
/// from entry to entry, Space and Enter press one.
class ListBar : public QScrollArea {
    Q_OBJECT

public:
    explicit ListBar(const char* name, QWidget* parent = nullptr);
    ~ListBar() override;

    ListBarGroups& groups() { return groups_; }
    const ListBarGroups& groups() const { return groups_; }

    /// The last one that Tab comes to; null in an empty bar.
    QWidget* lastEntry() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// `index` from 1, of the entry pressed.
    void clicked(int index);

private:
    void showGroups();
    void addEntry(int index);

    ListBarGroups groups_;
    QVBoxLayout* entries_;
};

} // namespace zorvo
