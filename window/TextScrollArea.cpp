#include "window/TextScrollArea.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <utility>

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

/// Each change of a text asks for a new layout, though few change anything but the height of the contents, if
/// that; the base class would break the lines anew to find out.
bool TextScrollArea::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::LayoutRequest)
        return QScrollArea::viewportEvent(event);
    const Wish before = std::exchange(wish_, {width(), heightForWidth(width()), widget()->minimumSizeHint()});
    const bool bSame = wish_ == before;
    // The base class keeps it to itself; but what takes all the room there is takes it for any text.
    if (!bSame && !(sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag))
        updateGeometry();
    // No scroll bar comes or goes.
    const bool bFits = verticalScrollBar()->maximum() == 0 && wish_.nHeight <= viewport()->height() &&
                       wish_.least.width() <= viewport()->width();
    if (!bFits)
        return QScrollArea::viewportEvent(event);
    if (!bSame && widget()->sizePolicy().verticalPolicy() == QSizePolicy::Maximum) {
        const QScopedValueRollback fitting(bFitting_, true);
        widget()->resize(viewport()->width(), wish_.nHeight);
    }
    return true;
}

bool TextScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    return !bFitting_ && QScrollArea::eventFilter(watched, event);
}

} // namespace zorvo
