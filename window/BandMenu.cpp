#include "window/BandMenu.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace zorvo {

void BandMenu::setSideStrip(const QPixmap& picture)
{
    strip_ = picture;
    setContentsMargins(strip_.isNull() ? 0 : strip_.deviceIndependentSize().toSize().width(), 0, 0, 0);
    // A menu measures its lines again only for a new style.
    QEvent styleChange(QEvent::StyleChange);
    changeEvent(&styleChange);
    update();
}

void BandMenu::paintEvent(QPaintEvent* event)
{
    QMenu::paintEvent(event);
    if (strip_.isNull())
        return;
    const int nFrame = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this);
    const QSize size = strip_.deviceIndependentSize().toSize();
    const QRect strip(nFrame, nFrame, size.width(), height() - 2 * nFrame);
    QPainter painter(this);
    painter.setClipRect(strip);
    // A picture is made to stand on the lower edge, whatever the height of the menu.
    painter.drawPixmap(strip.left(), strip.bottom() + 1 - size.height(), strip_);
}

} // namespace zorvo
