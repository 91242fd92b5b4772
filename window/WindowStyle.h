#pragma once

#include <QProxyStyle>

namespace zorvo {

/// The desktop's style, with what Qt's own style does badly done otherwise:
/// - check boxes and radio buttons have a visible edge on dark windows, where it draws them darker than the
///   window at any lightness, which leaves an empty box that nobody sees;
/// - the frames of groups look the same and are painted many times as fast: it stretches a picture over them
///   with a pool of threads, at the start and with every text that changes in a frame;
/// - the double arrow of a bar with too little room can be seen on every desktop, and is drawn when it shows.
class WindowStyle : public QProxyStyle {
public:
    /// `style` is taken over; the desktop's when there is none.
    explicit WindowStyle(QStyle* style = nullptr);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;

private:
    void drawGroupFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
    static void drawIndicatorEdge(PrimitiveElement element, const QStyleOption& option, QPainter& painter);
};

} // namespace zorvo
