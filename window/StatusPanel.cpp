#include "window/StatusPanel.h"

#include "window/spacing.h"

#include <QPainter>

#include <algorithm>

namespace zorvo {

StatusPanel::StatusPanel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setContentsMargins(kSpacing, 0, kSpacing, 0);
    setAutoSize(PanelAutoSize::spring);
}

void StatusPanel::setAutoSize(PanelAutoSize autoSize)
{
    autoSize_ = autoSize;
    const auto horizontal =
        autoSize == PanelAutoSize::spring ? QSizePolicy::Expanding : QSizePolicy::Preferred;
    setSizePolicy(autoSize == PanelAutoSize::contents ? QSizePolicy::Fixed : horizontal,
                  QSizePolicy::Preferred);
    updateGeometry();
}

void StatusPanel::setPanelWidth(int width)
{
    if (nWidth_ == width)
        return;
    nWidth_ = width;
    updateGeometry();
}

QSize StatusPanel::sizeHint() const
{
    const QSize contents = QLabel::sizeHint();
    const int nWidth = autoSize_ == PanelAutoSize::contents ? std::max(contents.width(), nWidth_) : nWidth_;
    return {nWidth, contents.height()};
}

QSize StatusPanel::minimumSizeHint() const
{
    // A long text is cut; it must not widen the window.
    const QSize contents = sizeHint();
    return autoSize_ == PanelAutoSize::contents ? contents : QSize(0, contents.height());
}

void StatusPanel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    // Nothing stands before the first one.
    if (x() < kSpacing)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, kSpacing / 2, 0, height() - kSpacing / 2);
}

} // namespace zorvo
