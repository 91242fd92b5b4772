#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace zorvo {

/// The base of icons that are drawn by code, at the size and time that they are asked for: a picture of one
/// is what its `paint` draws on nothing.
class PaintedIcon : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
};

} // namespace zorvo
