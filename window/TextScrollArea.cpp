#include "window/TextScrollArea.h"

#include <QScrollBar>

namespace zorvo {

namespace {
constexpr int kFewestLines = 2;
} // namespace

TextScrollArea::TextScrollArea(QWidget* contents, QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setWidget(contents);
    // The window's own colour behind the texts.
    viewport()->setAutoFillBackground(false);
    contents->setAutoFillBackground(false);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int /*nLeast*/, int nMost) { setFocusPolicy(nMost > 0 ? Qt::StrongFocus : Qt::NoFocus); });
}

int TextScrollArea::heightForWidth(int width) const
{
    return widget()->hasHeightForWidth() ? widget()->heightForWidth(width) : widget()->sizeHint().height();
}

QSize TextScrollArea::sizeHint() const
{
    return widget()->sizeHint();
}

QSize TextScrollArea::minimumSizeHint() const
{
    return {0, kFewestLines * fontMetrics().lineSpacing()};
}

} // namespace zorvo
