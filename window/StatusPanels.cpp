#include "window/StatusPanels.h"

#include "base/RunTimeError.h"
#include "window/KeyboardLocks.h"
#include "window/UiIds.h"
#include "window/twips.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace zorvo {

namespace {

/// The clock looks again when its text changes, but not later than this, in case the machine's time was set.
constexpr int kLongestClockWaitMs = 10000;

int msToNextClockText()
{
    const QTime now = QTime::currentTime();
    const int nToNextSecond = 1000 - now.msec();
    if (QLocale::system().timeFormat(QLocale::ShortFormat).contains(u's'))
        return nToNextSecond;
    return std::min((59 - now.second()) * 1000 + nToNextSecond, kLongestClockWaitMs);
}

bool isLockStyle(PanelStyle style)
{
    return style == PanelStyle::caps || style == PanelStyle::num || style == PanelStyle::insert;
}

} // namespace

StatusPanels::StatusPanels(const char* name, QWidget* parent)
    : QStatusBar(parent)
{
    setObjectName(QString::fromUtf8(name));
    clock_.setSingleShot(true);
    connect(&clock_, &QTimer::timeout, this, &StatusPanels::showClock);
    addPanel();
}

int StatusPanels::addPanel()
{
    auto* panel = new StatusPanel(this);
    panel->setObjectName(QStringLiteral("%1.%2").arg(objectName()).arg(count() + 1));
    panels_.push_back({panel, {}});
    addWidget(panel, 1);
    markUiId(*panel);
    showEntry(panels_.back());
    return count();
}

const StatusPanels::Entry& StatusPanels::entry(int nPanel) const
{
    if (nPanel < 1 || nPanel > count())
        throw RunTimeError(kIndexOutOfRange);
    return panels_[static_cast<std::size_t>(nPanel - 1)];
}

StatusPanel& StatusPanels::panel(int nPanel) const
{
    return *entry(nPanel).panel;
}

void StatusPanels::setPanelStyle(int nPanel, PanelStyle style)
{
    panel(nPanel).setPanelStyle(style);
    if (isLockStyle(style) && !locks_) {
        locks_ = new KeyboardLocks(this);
        connect(locks_, &KeyboardLocks::changed, this, &StatusPanels::showAll);
    }
    if (style == PanelStyle::time || style == PanelStyle::date)
        showClock();
    showEntry(entry(nPanel));
}

void StatusPanels::setAlignment(int nPanel, Qt::Alignment alignment)
{
    panel(nPanel).setAlignment(alignment | Qt::AlignVCenter);
}

void StatusPanels::setAutoSize(int nPanel, PanelAutoSize autoSize)
{
    StatusPanel& changed = panel(nPanel);
    changed.setAutoSize(autoSize);
    // The bar takes a new stretch only with the widget.
    removeWidget(&changed);
    insertWidget(nPanel - 1, &changed, autoSize == PanelAutoSize::spring ? 1 : 0);
    changed.show();
}

void StatusPanels::setWidth(int nPanel, int nTwips)
{
    if (panel(nPanel).autoSize() == PanelAutoSize::spring)
        setAutoSize(nPanel, PanelAutoSize::none);
    panel(nPanel).setPanelWidth(toPixels(nTwips));
}

int StatusPanels::panelWidth(int nPanel) const
{
    return toTwips(panel(nPanel).panelWidth());
}

QString StatusPanels::text(int nPanel) const
{
    return entry(nPanel).text;
}

void StatusPanels::setText(int nPanel, const QString& text)
{
    entry(nPanel);
    Entry& changed = panels_[static_cast<std::size_t>(nPanel - 1)];
    changed.text = text;
    if (nPanel == 1 && !text.isEmpty())
        hint_.clear();
    showEntry(changed);
}

void StatusPanels::showHint(const QString& hint)
{
    hint_ = hint;
    showEntry(panels_.front());
}

void StatusPanels::showAll()
{
    for (const Entry& each : panels_)
        showEntry(each);
}

void StatusPanels::showEntry(const Entry& entry)
{
    StatusPanel& panel = *entry.panel;
    const QLocale locale = QLocale::system();
    switch (panel.panelStyle()) {
    case PanelStyle::text:
        return showText(entry);
    case PanelStyle::caps:
        return showLock(panel, tr("CAPS"), tr("Caps Lock"), locks_->isCapsOn());
    case PanelStyle::num:
        return showLock(panel, tr("NUM"), tr("Num Lock"), locks_->isNumOn());
    case PanelStyle::insert:
        return showLock(panel, tr("INS"), tr("Insert"), locks_->isInsertOn());
    case PanelStyle::time:
        return showPlain(panel, locale.toString(QTime::currentTime(), QLocale::ShortFormat));
    case PanelStyle::date:
        return showPlain(panel, locale.toString(QDate::currentDate(), QLocale::ShortFormat));
    }
}

void StatusPanels::showText(const Entry& entry)
{
    const bool bHint = entry.panel == panels_.front().panel && !hint_.isEmpty();
    const QString& shown = bHint ? hint_ : entry.text;
    showPlain(*entry.panel, shown);
    if (shown.isEmpty())
        entry.panel->setAccessibleName(tr("Status"));
}

void StatusPanels::showPlain(StatusPanel& panel, const QString& text)
{
    panel.setText(text);
    panel.setAccessibleName(text);
    panel.setForegroundRole(QPalette::WindowText);
}

void StatusPanels::showLock(StatusPanel& panel, const QString& shown, const QString& name, bool bOn)
{
    panel.setText(shown);
    panel.setAccessibleName((bOn ? tr("%1 on") : tr("%1 off")).arg(name));
    // Dimmed by half from the text's own colour: a dark desktop may have no colour for placeholders.
    QPalette colours;
    if (!bOn) {
        QColor dimmed = palette().color(QPalette::Active, QPalette::WindowText);
        dimmed.setAlphaF(0.5F);
        colours.setColor(QPalette::WindowText, dimmed);
    }
    panel.setPalette(colours);
}

void StatusPanels::showClock()
{
    showAll();
    if (locks_)
        locks_->refresh();
    clock_.start(msToNextClockText());
}

} // namespace zorvo
