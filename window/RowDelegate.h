#pragma once

#include <QCache>
#include <QPixmap>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <array>

namespace zorvo {

/// Draws rows of one height, with or without an image, and with some air. They look as the style's own; but
/// what makes up most of their cost isn't done anew each time that the selection goes one on: the letters of
/// a text are put together once, and the frame around the current row, which is smoothed, is kept.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    struct Line {
        int nWidth = -1;
        QTextLayout layout;
    };

    const QTextLayout& lineOf(const QStyleOptionViewItem& row, int width) const;
    void drawFocus(QPainter& painter, const QStyleOptionViewItem& row, const QRect& place) const;

    /// The frame around the current row, with what the style has drawn it by.
    struct FocusFrame {
        QPixmap picture;
        QStyleOptionFocusRect option;
        const QStyle* style = nullptr;

        bool isOf(const QStyleOptionFocusRect& other, const QStyle& otherStyle, qreal ratio) const;
        void draw(const QStyleOptionFocusRect& other, const QWidget& widget, qreal ratio);
    };

    /// A little more than a screen holds.
    static constexpr int kMostLines = 256;
    mutable QCache<QString, Line> lines_{kMostLines};
    mutable QFont font_;
    mutable QTextOption option_;
    /// A row of each level has a width of its own.
    mutable std::array<FocusFrame, 4> frames_;
    mutable std::size_t nOldestFrame_ = 0;
};

} // namespace zorvo
