#pragma once

#include "window/ToolPool.h"

#include <QWidget>

#include <map>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

namespace zorvo {

class BandMenu;

/// The toolbar and menu band control: shows the bands of a pool, the menu bar over the toolbar, and follows
/// the pool's changes. Menus and tools are reached by Alt and by Tab.
class ToolBands : public QWidget {
    Q_OBJECT

public:
    /// Shows the bands that the pool has now. `pool` lives longer.
    ToolBands(const char* name, ToolPool& pool, QWidget* parent = nullptr);
    ~ToolBands() override;

    QMenuBar* menuBar() const { return menuBar_; }
    QToolBar* toolBar() const { return toolBar_; }
    /// The tools as they stand, those in no band too.
    const ToolPool& pool() const { return pool_; }

Q_SIGNALS:
    /// A tool was chosen; the id as the pool spells it. Not told of tools of type 7.
    void toolClicked(const QString& sId);
    /// What the tool under the mouse does; empty when there is none.
    void statusTextChanged(const QString& sText);

protected:
    bool event(QEvent* event) override;

private:
    void fillMenuBar(const ToolBand& band);
    void fillMenu(QMenu& menu, const ToolBand& band);
    void fillToolBar(const ToolBand& band);
    QAction* newAction(const Tool& tool);
    void showTool(const Tool& tool);
    void showMenuTool(const Tool& tool);
    void showToolbarTool(const Tool& tool);
    void tidySeparators();
    void showSideStrip();

    ToolPool& pool_;
    QMenuBar* menuBar_;
    QToolBar* toolBar_;
    std::vector<BandMenu*> menus_;
    std::map<std::string, QAction*> menuActions_;
    std::map<std::string, QAction*> toolbarActions_;
};

} // namespace zorvo
