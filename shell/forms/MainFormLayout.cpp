#include "shell/forms/MainFormLayout.h"

#include "window/spacing.h"
#include "window/twips.h"

#include <QWidget>

#include <algorithm>

namespace zorvo {

namespace {

constexpr int kGaugeWidth = 240;
constexpr int kGaugeMargin = 2;
/// Of the description: a few lines, the rest scrolls.
constexpr int kSmallestDescription = 72;

int heightOf(const QLayoutItem& item, int width)
{
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

/// Of the right column, whatever the width of the form.
constexpr int kColumnWidth = (kInstructionsFromRight + kTwipsPerPixel - 1) / kTwipsPerPixel - kSpacing;

} // namespace

MainFormLayout::MainFormLayout(QWidget* form)
    : QLayout(form)
{
}

MainFormLayout::~MainFormLayout() = default;

void MainFormLayout::setPart(Part part, QWidget* widget)
{
    addChildWidget(widget);
    // This kind of item keeps the sizes of its widget until that one says that they have changed: a tool that
    // is enabled makes a new layout, for which the other parts needn't be measured again.
    items_[static_cast<std::size_t>(part)] = std::make_unique<QWidgetItemV2>(widget);
}

/// Parts come by setPart alone.
void MainFormLayout::addItem(QLayoutItem* item)
{
    delete item;
}

int MainFormLayout::count() const
{
    return static_cast<int>(
        std::count_if(items_.begin(), items_.end(), [](const auto& each) { return each != nullptr; }));
}

QLayoutItem* MainFormLayout::itemAt(int index) const
{
    return index >= 0 && index < static_cast<int>(kParts) ? items_[static_cast<std::size_t>(index)].get()
                                                          : nullptr;
}

QLayoutItem* MainFormLayout::takeAt(int index)
{
    return itemAt(index) ? items_[static_cast<std::size_t>(index)].release() : nullptr;
}

QLayoutItem& MainFormLayout::item(Part part) const
{
    return *items_[static_cast<std::size_t>(part)];
}

void MainFormLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    if (count() < static_cast<int>(kParts)) // a part is on its way out with the form
        return;
    const int nBands = heightOf(item(Part::bands), area.width());
    const int nStatus = item(Part::status).sizeHint().height();
    item(Part::bands).setGeometry({area.left(), area.top(), area.width(), nBands});
    const QRect status(area.left(), area.bottom() + 1 - nStatus, area.width(), nStatus);
    item(Part::status).setGeometry(status);
    placeMiddle(area.adjusted(kSpacing, nBands + kSpacing, -kSpacing, -(nStatus + kSpacing)), area);
    const int nGauge = std::min(kGaugeWidth, toPixels(parts_.nPanel1Width) - kSpacing);
    item(Part::gauge)
        .setGeometry(
            {status.left() + kSpacing / 2, status.top() + kGaugeMargin, nGauge, nStatus - 2 * kGaugeMargin});
    if (listener_)
        listener_(parts_);
}

void MainFormLayout::placeMiddle(const QRect& middle, const QRect& form)
{
    const int nListBar = item(Part::listBar).sizeHint().width();
    const int nTreeLeft = middle.left() + nListBar + kSpacing;
    const int nLeftForInstructions = middle.height() - kSpacing - kSmallestDescription;
    const int nInstructions =
        std::min(heightOf(item(Part::instructions), kColumnWidth), nLeftForInstructions);
    const int nDescTop = middle.top() + nInstructions + kSpacing;
    resizeMainForm(parts_,
                   {.nTreeLeft = toTwips(nTreeLeft - form.left()),
                    .nInstructionsHeight = toTwips(nInstructions),
                    .nForTree = toTwips(middle.height()),
                    .nForDesc = toTwips(middle.bottom() + 1 - nDescTop)},
                   toTwips(form.width()), toTwips(form.height()));

    item(Part::listBar).setGeometry({middle.left(), middle.top(), nListBar, middle.height()});
    item(Part::tree)
        .setGeometry({nTreeLeft, middle.top(), toPixels(parts_.nTreeWidth), toPixels(parts_.nTreeHeight)});
    item(Part::instructions)
        .setGeometry(
            {form.left() + toPixels(parts_.nInstructionsLeft), middle.top(), kColumnWidth, nInstructions});
    item(Part::description)
        .setGeometry(
            {form.left() + toPixels(parts_.nDescLeft), nDescTop, kColumnWidth, toPixels(parts_.nDescHeight)});
}

QSize MainFormLayout::wholeSize(const std::function<QSize(const QLayoutItem&)>& sizeOf) const
{
    if (count() < static_cast<int>(kParts))
        return {};
    const int nColumn = sizeOf(item(Part::instructions)).height() + kSpacing +
                        std::max(kSmallestDescription, sizeOf(item(Part::description)).height());
    const int nMiddle =
        std::max({nColumn, sizeOf(item(Part::tree)).height(), sizeOf(item(Part::listBar)).height()});
    const int nSides = 4 * kSpacing + item(Part::listBar).sizeHint().width() + kColumnWidth;
    return {std::max(nSides + sizeOf(item(Part::tree)).width(), sizeOf(item(Part::bands)).width()),
            sizeOf(item(Part::bands)).height() + 2 * kSpacing + nMiddle +
                item(Part::status).sizeHint().height()};
}

QSize MainFormLayout::sizeHint() const
{
    return wholeSize([](const QLayoutItem& each) { return each.sizeHint(); });
}

QSize MainFormLayout::minimumSize() const
{
    return wholeSize([](const QLayoutItem& each) { return each.minimumSize(); });
}

} // namespace zorvo
