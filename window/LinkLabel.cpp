#include "window/LinkLabel.h"

#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace zorvo {

namespace {
constexpr int kFocusMargin = 2;
constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic;
} // namespace

LinkLabel::LinkLabel(const char* name, const QString& caption, QWidget* parent)
    : QAbstractButton(parent)
{
    setObjectName(QString::fromUtf8(name));
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
}

QSize LinkLabel::sizeHint() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text()) + QSize(2 * kFocusMargin, 2 * kFocusMargin);
}

void LinkLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void LinkLabel::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    const QRect area = rect().adjusted(kFocusMargin, kFocusMargin, -kFocusMargin, -kFocusMargin);
    painter.drawItemText(area, kTextFlags, palette(), isEnabled(), text(), QPalette::Link);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

} // namespace zorvo
