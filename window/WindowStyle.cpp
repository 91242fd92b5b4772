#include "window/WindowStyle.h"

#include "window/moreArrow.h"

#include <QGroupBox>
#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace zorvo {

namespace {

constexpr int kDarkBelow = 128;
constexpr int kEdgeAlpha = 128;

/// Qt's own picture of a group's frame: all rows and columns between its edges are alike.
const QString kFramePicture =
    QStringLiteral(":/qt-project.org/styles/commonstyle/images/fusion_groupbox.png");
constexpr int kFrameEdge = 6;
constexpr int kFrameTop = 3;
/// Up to about four times that many lines of the device are painted without other threads.
constexpr int kBand = 24;

/// Paints `frame` with the picture's edges at its edges and the middle colours in between.
class FramePainter {
public:
    explicit FramePainter(QPainter& painter)
        : painter_(painter)
    {
    }

    void paint(const QRect& frame)
    {
        const QRect inner = frame.adjusted(kFrameEdge, kFrameEdge, -kFrameEdge, -kFrameEdge);
        paintCorners(frame);
        for (int i = 0; i < kFrameEdge; ++i) {
            painter_.fillRect(inner.left(), frame.top() + i, inner.width(), 1, colour(middleX(), i));
            painter_.fillRect(inner.left(), frame.bottom() - i, inner.width(), 1,
                              colour(middleX(), image().height() - 1 - i));
        }
        for (int top = inner.top(); top <= inner.bottom(); top += kBand)
            paintBand(frame, inner, top, std::min(kBand, inner.bottom() + 1 - top));
    }

private:
    static const QImage& image()
    {
        static const QImage picture =
            QImage(kFramePicture).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        return picture;
    }
    static int middleX() { return image().width() / 2; }
    static QColor colour(int x, int y) { return image().pixelColor(x, y); }

    void paintCorners(const QRect& frame)
    {
        const QSize size(kFrameEdge, kFrameEdge);
        const int right = image().width() - kFrameEdge;
        const int bottom = image().height() - kFrameEdge;
        const int frameRight = frame.right() + 1 - kFrameEdge;
        const int frameBottom = frame.bottom() + 1 - kFrameEdge;
        painter_.drawImage(frame.topLeft(), image(), QRect(QPoint(0, 0), size));
        painter_.drawImage(QPoint(frameRight, frame.top()), image(), QRect(QPoint(right, 0), size));
        painter_.drawImage(QPoint(frame.left(), frameBottom), image(), QRect(QPoint(0, bottom), size));
        painter_.drawImage(QPoint(frameRight, frameBottom), image(), QRect(QPoint(right, bottom), size));
    }

    void paintBand(const QRect& frame, const QRect& inner, int top, int height)
    {
        const int y = image().height() / 2;
        for (int i = 0; i < kFrameEdge; ++i) {
            painter_.fillRect(frame.left() + i, top, 1, height, colour(i, y));
            painter_.fillRect(frame.right() - i, top, 1, height, colour(image().width() - 1 - i, y));
        }
        painter_.fillRect(inner.left(), top, inner.width(), height, colour(middleX(), y));
    }

    QPainter& painter_;
};

} // namespace

WindowStyle::WindowStyle(QStyle* style)
    : QProxyStyle(style)
{
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    if (element == PE_FrameGroupBox && baseStyle()->name() == QStringLiteral("fusion")) {
        drawGroupFrame(*option, *painter, widget);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
        drawIndicatorEdge(element, *option, *painter);
}

QIcon WindowStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    if (icon == SP_ToolBarHorizontalExtensionButton)
        return moreArrow(Qt::Horizontal);
    if (icon == SP_ToolBarVerticalExtensionButton)
        return moreArrow(Qt::Vertical);
    return QProxyStyle::standardIcon(icon, option, widget);
}

void WindowStyle::drawGroupFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) const
{
    // The title stands above the frame, as the style that is replaced here has it.
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    const bool bNoTitle = group && !group->isCheckable() && group->title().isEmpty();
    const int nTitle =
        bNoTitle ? 0 : std::max(proxy()->pixelMetric(PM_IndicatorHeight), option.fontMetrics.height());
    FramePainter(painter).paint(option.rect.adjusted(0, nTitle + kFrameTop, 0, 0));
}

void WindowStyle::drawIndicatorEdge(PrimitiveElement element, const QStyleOption& option, QPainter& painter)
{
    if (option.palette.color(QPalette::Window).lightness() >= kDarkBelow)
        return;
    QColor edge = option.palette.color(QPalette::WindowText);
    edge.setAlpha(kEdgeAlpha);
    const QRectF outline = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(Qt::NoBrush);
    if (element == PE_IndicatorCheckBox)
        painter.drawRect(outline);
    else
        painter.drawEllipse(outline);
    painter.restore();
}

} // namespace zorvo
