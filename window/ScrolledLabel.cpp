#include "window/ScrolledLabel.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace zorvo {

ScrolledLabel::ScrolledLabel(const char* name, QWidget* parent)
    : MnemonicLabel(name, {}, parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize ScrolledLabel::sizeHint() const
{
    return minimumSizeHint();
}

QSize ScrolledLabel::minimumSizeHint() const
{
    return {0, fontMetrics().lineSpacing()};
}

int ScrolledLabel::measuredHeight(int width) const
{
    return std::max(linesFor(width).nHeight, fontMetrics().lineSpacing());
}

ScrolledLabel::Lines& ScrolledLabel::linesFor(int width) const
{
    if (text() != laidOut_ || font() != laidOutFont_) {
        laidOut_ = text();
        laidOutFont_ = font();
        for (Lines& each : lines_)
            each.nWidth = -1;
    }
    for (Lines& each : lines_)
        if (each.nWidth == width)
            return each;
    Lines& oldest = lines_[nOldest_];
    nOldest_ = (nOldest_ + 1) % lines_.size();
    layOut(oldest, width);
    return oldest;
}

void ScrolledLabel::layOut(Lines& lines, int width) const
{
    QString text = laidOut_;
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    lines.nWidth = width;
    lines.layout.setCacheEnabled(true); // or the letters are put together once more to be painted
    lines.layout.setText(text);
    lines.layout.setFont(laidOutFont_);
    QTextOption option(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
    option.setTextDirection(layoutDirection());
    // A word that is too long for a line goes on in the next one.
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines.layout.setTextOption(option);
    qreal height = 0;
    lines.layout.beginLayout();
    for (QTextLine line = lines.layout.createLine(); line.isValid(); line = lines.layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    lines.layout.endLayout();
    lines.nHeight = static_cast<int>(std::ceil(height));
}

void ScrolledLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    linesFor(width()).layout.draw(&painter, {});
}

} // namespace zorvo
