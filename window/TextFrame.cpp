#include "window/TextFrame.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

namespace zorvo {

void TextFrame::paintEvent(QPaintEvent* event)
{
    const qreal ratio = devicePixelRatioF();
    const bool bWholePixels = ratio == static_cast<int>(ratio);
    // Letters of the title may be smoothed for what lies behind them, so they are drawn where they stand.
    if (!bWholePixels || !contentsRect().contains(event->rect()))
        return QGroupBox::paintEvent(event);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    if (!isBehindFor(option))
        drawBehind(option);
    const QRect part = event->rect().translated(-place_.topLeft());
    QPainter(this).drawPixmap(QRectF(event->rect()), behind_,
                              QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
}

void TextFrame::drawBehind(const QStyleOptionGroupBox& option)
{
    place_ = contentsRect();
    drawn_ = option;
    style_ = style();
    behind_ = QPixmap(place_.size() * devicePixelRatioF());
    behind_.setDevicePixelRatio(devicePixelRatioF());
    behind_.fill(Qt::transparent);
    QPainter painter(&behind_);
    painter.translate(-place_.topLeft());
    style()->drawComplexControl(QStyle::CC_GroupBox, &option, &painter, this);
}

/// Whether all that the style draws by is as it was.
bool TextFrame::isBehindFor(const QStyleOptionGroupBox& option) const
{
    return !behind_.isNull() && behind_.devicePixelRatio() == devicePixelRatioF() &&
           place_ == contentsRect() && style_ == style() && drawn_.rect == option.rect &&
           drawn_.state == option.state && drawn_.direction == option.direction &&
           drawn_.features == option.features && drawn_.text == option.text &&
           drawn_.palette.cacheKey() == option.palette.cacheKey();
}

} // namespace zorvo
