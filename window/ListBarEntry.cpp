#include "window/ListBarEntry.h"

#include "window/accessKey.h"
#include "window/spacing.h"

#include <QKeyEvent>
#include <QStyleOptionFocusRect>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace zorvo {

namespace {

constexpr int kIconSize = 32;
constexpr int kWidth = 96;
constexpr int kTextFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

ListBarEntry::ListBarEntry(const QIcon& icon, const QString& caption, QWidget* parent)
    : QAbstractButton(parent)
    , caption_(caption)
{
    setIcon(icon);
    setText(asCaption(caption));
    setAccessibleName(caption);
    setIconSize({kIconSize, kIconSize});
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QRect ListBarEntry::captionArea(int width) const
{
    constexpr int kTop = kSpacing + kIconSize + kSpacing / 2;
    constexpr int kUnlimited = 10000;
    if (font() != font_) {
        font_ = font();
        heights_.forget();
    }
    const int nHeight = heights_.at(width - kSpacing, [this](int nWidth) {
        return fontMetrics().boundingRect(QRect(0, 0, nWidth, kUnlimited), kTextFlags, caption_).height();
    });
    return {kSpacing / 2, kTop, width - kSpacing, nHeight};
}

int ListBarEntry::heightForWidth(int width) const
{
    return captionArea(width).bottom() + 1 + kSpacing;
}

QSize ListBarEntry::sizeHint() const
{
    return {kWidth, heightForWidth(kWidth)};
}

QSize ListBarEntry::minimumSizeHint() const
{
    return {kIconSize + 2 * kSpacing, kIconSize + 2 * kSpacing};
}

void ListBarEntry::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void ListBarEntry::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void ListBarEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ListBarEntry::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionToolButton panel;
    panel.initFrom(this);
    panel.state |= QStyle::State_AutoRaise;
    const bool bUnderMouse = underMouse() && isEnabled();
    if (bUnderMouse || isDown()) {
        panel.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
        painter.drawPrimitive(QStyle::PE_PanelButtonTool, panel);
    }
    const QRect iconArea((width() - kIconSize) / 2, kSpacing, kIconSize, kIconSize);
    icon().paint(&painter, iconArea, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawItemText(captionArea(width()), kTextFlags, palette(), isEnabled(), caption_, QPalette::Text);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(1, 1, -1, -1);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

} // namespace zorvo
