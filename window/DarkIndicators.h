#pragma once

#include <QProxyStyle>

namespace zorvo {

/// The desktop's style with a visible edge of check boxes and radio buttons on dark windows: Qt's own style
/// draws it darker than the window at any lightness, which leaves an empty box that nobody sees.
class DarkIndicators : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace zorvo
