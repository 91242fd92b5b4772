#pragma once

#include "window/StatusPanel.h"

#include <QStatusBar>
#include <QTimer>

#include <vector>

namespace zorvo {

class KeyboardLocks;

/// The status bar control: numbered panels, from 1. It comes with one text panel that takes all the room.
/// All calls with a number throw RunTimeError 9 when there is no such panel.
class StatusPanels : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusPanels(const char* name, QWidget* parent = nullptr);

    /// Gives the new panel's number.
    int addPanel();
    int count() const { return static_cast<int>(panels_.size()); }

    void setPanelStyle(int nPanel, PanelStyle style);
    void setAlignment(int nPanel, Qt::Alignment alignment);
    void setAutoSize(int nPanel, PanelAutoSize autoSize);
    /// In twips. A panel that took all the room no longer does; one that fits its contents gets no smaller
    /// than that.
    void setWidth(int nPanel, int nTwips);
    int panelWidth(int nPanel) const;

    /// Of a text panel.
    QString text(int nPanel = 1) const;
    void setText(int nPanel, const QString& text);
    void setText(const QString& text) { setText(1, text); }
    /// Stands in the first panel in place of its text until it is empty again or there is a new text: the
    /// mouse may rest on a tool for as long as its work takes.
    void showHint(const QString& hint);

    StatusPanel& panel(int nPanel) const;

private:
    struct Entry {
        StatusPanel* panel;
        QString text;
    };

    const Entry& entry(int nPanel) const;
    void showAll();
    void showEntry(const Entry& entry);
    void showText(const Entry& entry);
    void showPlain(StatusPanel& panel, const QString& text);
    void showLock(StatusPanel& panel, const QString& shown, const QString& name, bool bOn);
    void showClock();

    std::vector<Entry> panels_;
    QString hint_;
    KeyboardLocks* locks_ = nullptr;
    QTimer clock_;
};

} // namespace zorvo
