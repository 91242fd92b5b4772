#include "window/RowDelegate.h"

#include "window/spacing.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace zorvo {

namespace {

QPalette::ColorGroup colourGroup(const QStyleOptionViewItem& row)
{
    if (!(row.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return row.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
}

QStyleOptionFocusRect focusOption(const QStyleOptionViewItem& row, const QRect& place)
{
    const bool bSelected = row.state & QStyle::State_Selected;
    QStyleOptionFocusRect frame;
    static_cast<QStyleOption&>(frame) = row;
    frame.rect = place;
    frame.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    frame.backgroundColor =
        row.palette.color(colourGroup(row), bSelected ? QPalette::Highlight : QPalette::Window);
    return frame;
}

QColor textColour(const QStyleOptionViewItem& row)
{
    const bool bSelected = row.state & QStyle::State_Selected;
    return row.palette.color(colourGroup(row), bSelected ? QPalette::HighlightedText : QPalette::Text);
}

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int nContents = std::max(option.fontMetrics.height(), option.decorationSize.height());
    return {QStyledItemDelegate::sizeHint(option, index).width(), nContents + kSpacing / 2};
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    QStyleOptionViewItem blank = row;
    blank.text.clear();
    blank.state &= ~QStyle::State_HasFocus;
    const QStyle& style = *row.widget->style();
    const int nMargin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, row.widget) + 1;
    const QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &blank, row.widget)
                            .adjusted(nMargin, 0, -nMargin, 0);
    const QTextLayout& line = lineOf(row, place.width());
    const QSize size = line.boundingRect().size().toSize();
    // A text that is cut, or whose own size decides on its place, is the style's.
    const bool bPlain = row.showDecorationSelected && !(row.features & QStyleOptionViewItem::WrapText) &&
                        line.lineCount() == 1 && line.lineAt(0).naturalTextWidth() <= place.width() &&
                        size.height() <= place.height();
    if (!bPlain) {
        style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        return;
    }
    style.drawControl(QStyle::CE_ItemViewItem, &blank, painter, row.widget);
    const QRect lineRect = QStyle::alignedRect(Qt::LayoutDirectionAuto,
                                               row.displayAlignment & Qt::AlignVertical_Mask, size, place);
    painter->save();
    painter->setPen(textColour(row));
    line.draw(painter, QPointF(place.left(), lineRect.top()));
    painter->restore();
    if (row.state & QStyle::State_HasFocus)
        drawFocus(*painter, blank,
                  style.subElementRect(QStyle::SE_ItemViewItemFocusRect, &blank, row.widget));
}

void RowDelegate::drawFocus(QPainter& painter, const QStyleOptionViewItem& row, const QRect& place) const
{
    const QStyleOptionFocusRect option = focusOption(row, place);
    const QStyle& style = *row.widget->style();
    const qreal ratio = painter.deviceTransform().m11();
    if (ratio != static_cast<int>(ratio)) {
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, row.widget);
        return;
    }
    auto found = std::find_if(frames_.begin(), frames_.end(),
                              [&](const FocusFrame& each) { return each.isOf(option, style, ratio); });
    if (found == frames_.end()) {
        found = frames_.begin() + static_cast<std::ptrdiff_t>(nOldestFrame_);
        nOldestFrame_ = (nOldestFrame_ + 1) % frames_.size();
        found->draw(option, *row.widget, ratio);
    }
    painter.drawPixmap(place.topLeft(), found->picture);
}

bool RowDelegate::FocusFrame::isOf(const QStyleOptionFocusRect& other, const QStyle& otherStyle,
                                   qreal ratio) const
{
    return style == &otherStyle && picture.devicePixelRatio() == ratio &&
           option.rect.size() == other.rect.size() && option.state == other.state &&
           option.direction == other.direction && option.backgroundColor == other.backgroundColor &&
           option.palette.cacheKey() == other.palette.cacheKey();
}

void RowDelegate::FocusFrame::draw(const QStyleOptionFocusRect& other, const QWidget& widget, qreal ratio)
{
    option = other;
    option.rect.moveTo(0, 0);
    style = widget.style();
    picture = QPixmap(option.rect.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}

const QTextLayout& RowDelegate::lineOf(const QStyleOptionViewItem& row, int width) const
{
    QTextOption option(QStyle::visualAlignment(row.direction, row.displayAlignment));
    option.setWrapMode(QTextOption::ManualWrap);
    option.setTextDirection(row.direction);
    if (row.font != font_ || option.alignment() != option_.alignment() ||
        option.textDirection() != option_.textDirection()) {
        lines_.clear();
        font_ = row.font;
        option_ = option;
    }
    Line* line = lines_.object(row.text);
    if (!line) {
        line = new Line;
        line->layout.setText(row.text);
        line->layout.setFont(row.font);
        line->layout.setTextOption(option);
        line->layout.setCacheEnabled(true);
        lines_.insert(row.text, line);
    }
    if (line->nWidth == width)
        return line->layout;
    line->nWidth = width;
    line->layout.beginLayout();
    qreal height = 0;
    for (QTextLine each = line->layout.createLine(); each.isValid(); each = line->layout.createLine()) {
        each.setLineWidth(width);
        each.setPosition({0, height});
        height += each.height();
    }
    line->layout.endLayout();
    return line->layout;
}

} // namespace zorvo
