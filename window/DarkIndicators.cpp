#include "window/DarkIndicators.h"

#include <QPainter>
#include <QStyleOption>

namespace zorvo {

namespace {
constexpr int kDarkBelow = 128;
constexpr int kEdgeAlpha = 128;
} // namespace

void DarkIndicators::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if ((element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton) ||
        option->palette.color(QPalette::Window).lightness() >= kDarkBelow)
        return;
    QColor edge = option->palette.color(QPalette::WindowText);
    edge.setAlpha(kEdgeAlpha);
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(edge);
    painter->setBrush(Qt::NoBrush);
    if (element == PE_IndicatorCheckBox)
        painter->drawRect(outline);
    else
        painter->drawEllipse(outline);
    painter->restore();
}

} // namespace zorvo
