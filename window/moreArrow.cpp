#include "window/moreArrow.h"

#include "window/PaintedIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace zorvo {

namespace {

class MoreArrow : public PaintedIcon {
public:
    explicit MoreArrow(Qt::Orientation orientation)
        : orientation_(orientation)
    {
    }

    QIconEngine* clone() const override { return new MoreArrow(*this); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        constexpr int kUnits = 16; // the drawing's width and height
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = QGuiApplication::palette().color(group, QPalette::ButtonText);
        const double scale = static_cast<double>(std::min(rect.width(), rect.height())) / kUnits;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->scale(scale, scale);
        if (orientation_ == Qt::Vertical)
            painter->rotate(90);
        painter->translate(-kUnits / 2.0, -kUnits / 2.0);
        painter->setPen(QPen(colour, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const double left : {4.0, 8.5})
            painter->drawPolyline(QPolygonF({QPointF(left, 4), QPointF(left + 4, 8), QPointF(left, 12)}));
        painter->restore();
    }

private:
    Qt::Orientation orientation_;
};

} // namespace

QIcon moreArrow(Qt::Orientation orientation)
{
    return QIcon(new MoreArrow(orientation));
}

} // namespace zorvo
