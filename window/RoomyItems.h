#pragma once

#include <QStyledItemDelegate>

namespace zorvo {

/// Items of a tree or a list with some room above and below. A style sheet would say the same, and make the
/// window come up later.
class RoomyItems : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        constexpr int kRoom = 3;
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * kRoom);
    }
};

} // namespace zorvo
