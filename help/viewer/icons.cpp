#include "help/viewer/icons.h"

#include "window/PaintedIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace zorvo::help {

namespace {

/// All are drawn on a field of 16 by 16.
constexpr double kField = 16;

QPainterPath arrowBack()
{
    QPainterPath path(QPointF(8.5, 3));
    path.lineTo(3.5, 8);
    path.lineTo(8.5, 13);
    path.moveTo(3.5, 8);
    path.lineTo(13, 8);
    return path;
}

QPainterPath house()
{
    QPainterPath path(QPointF(2, 8));
    path.lineTo(8, 2.5);
    path.lineTo(14, 8);
    path.moveTo(4, 6.7);
    path.lineTo(4, 13.5);
    path.lineTo(12, 13.5);
    path.lineTo(12, 6.7);
    path.moveTo(6.8, 13.2);
    path.lineTo(6.8, 10);
    path.lineTo(9.2, 10);
    path.lineTo(9.2, 13.2);
    return path;
}

QPainterPath panel()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(2, 3, 12, 10), 1, 1);
    path.moveTo(6.5, 3.2);
    path.lineTo(6.5, 12.8);
    for (const double y : {5.6, 8.0, 10.4}) {
        path.moveTo(3.6, y);
        path.lineTo(5, y);
    }
    return path;
}

QPainterPath questionMark()
{
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 6.3, 6.3);
    path.moveTo(6.1, 6.4);
    path.cubicTo(6.1, 3.9, 9.9, 3.9, 9.9, 6.4);
    path.cubicTo(9.9, 7.9, 8, 7.8, 8, 9.4);
    path.addEllipse(QPointF(8, 11.4), 0.25, 0.25);
    return path;
}

QPainterPath drawing(HelpIcon kind)
{
    switch (kind) {
    case HelpIcon::back:
        return arrowBack();
    case HelpIcon::forward:
        return QTransform(-1, 0, 0, 1, 16, 0).map(arrowBack());
    case HelpIcon::home:
        return house();
    case HelpIcon::contents:
        return panel();
    case HelpIcon::help:
        return questionMark();
    }
    return {};
}

/// Draws itself at the size that is asked for, when it is.
class DrawnIcon : public PaintedIcon {
public:
    DrawnIcon(HelpIcon kind, QPalette palette)
        : kind_(kind)
        , palette_(std::move(palette))
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kField, rect.height() / kField);
        painter->setPen(QPen(palette_.color(group, QPalette::WindowText), 1.4, Qt::SolidLine, Qt::RoundCap,
                             Qt::RoundJoin));
        painter->drawPath(drawing(kind_));
        painter->restore();
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        return {{16, 16}, {24, 24}, {32, 32}, {48, 48}};
    }

    QIconEngine* clone() const override { return new DrawnIcon(kind_, palette_); }

private:
    HelpIcon kind_;
    QPalette palette_;
};

} // namespace

QIcon helpIcon(HelpIcon kind, const QPalette& palette)
{
    return QIcon(new DrawnIcon(kind, palette));
}

} // namespace zorvo::help
