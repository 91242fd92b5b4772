#include "window/SliderScrollBar.h"

#include <QStyle>
#include <QStyleOptionSlider>

namespace zorvo {

namespace {
/// A style's edge or shadow may lie outside the slider.
constexpr int kEdge = 2;
} // namespace

QRect SliderScrollBar::sliderRect() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

void SliderScrollBar::sliderChange(SliderChange change)
{
    // At an end the arrow there may look different.
    const bool bInside = value() > minimum() && value() < maximum();
    if (change == SliderValueChange && bInside && bInside_ && !isSliderDown() && !painted_.isEmpty())
        update(painted_.united(sliderRect()).adjusted(-kEdge, -kEdge, kEdge, kEdge));
    else
        QScrollBar::sliderChange(change);
    bInside_ = bInside;
}

void SliderScrollBar::paintEvent(QPaintEvent* event)
{
    painted_ = sliderRect();
    QScrollBar::paintEvent(event);
}

} // namespace zorvo
