#include "window/ToolBands.h"

#include "base/text.h"
#include "window/BandMenu.h"
#include "window/UiIds.h"
#include "window/accessKey.h"
#include "window/drawnIcon.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>
#include <QMenuBar>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zorvo {

namespace {

void showCommonParts(QAction& action, const Tool& tool)
{
    action.setStatusTip(QString::fromStdString(tool.sStatusText));
    action.setCheckable(tool.state.has_value());
    action.setChecked(tool.state == 1);
    action.setEnabled(tool.bEnabled);
    action.setVisible(tool.bVisible);
}

QToolButton* moreButton(const QToolBar& toolBar)
{
    return toolBar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
}

/// A desktop's global menu would take the menus out of the window. Said before the bar is made, the desktop
/// isn't even asked for one.
QMenuBar* newMenuBar(QWidget* parent)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    return new QMenuBar(parent);
}

} // namespace

ToolBands::ToolBands(const char* name, ToolPool& pool, QWidget* parent)
    : QWidget(parent)
    , pool_(pool)
    , menuBar_(newMenuBar(this))
    , toolBar_(new QToolBar(this))
{
    setObjectName(QString::fromUtf8(name));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    toolBar_->setMovable(false);
    toolBar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(menuBar_);
    layout->addWidget(toolBar_);
    for (const ToolBand& band : pool_.bands()) {
        if (band.kind == BandKind::menuBar)
            fillMenuBar(band);
        else if (band.kind == BandKind::toolbar)
            fillToolBar(band);
    }
    showSideStrip();
    pool_.setListener([this](const Tool* tool) {
        if (tool)
            showTool(*tool);
        else
            showSideStrip();
    });
}

ToolBands::~ToolBands()
{
    pool_.setListener({});
}

void ToolBands::fillMenuBar(const ToolBand& band)
{
    menuBar_->setObjectName(QString::fromStdString(band.sName));
    menuBar_->setAccessibleName(QString::fromStdString(band.sName));
    for (const std::string& sId : band.toolIds) {
        const Tool& tool = pool_.tool(sId);
        auto* menu = new BandMenu(menuBar_);
        menu->setObjectName(QString::fromStdString(tool.sId));
        menu->setToolTipsVisible(true);
        menus_.push_back(menu);
        menuActions_[upperCase(tool.sId)] = menuBar_->addMenu(menu);
        fillMenu(*menu, pool_.band(tool.sSubBand));
        showTool(tool);
    }
}

void ToolBands::fillMenu(QMenu& menu, const ToolBand& band)
{
    for (const std::string& sId : band.toolIds) {
        if (sId == ToolBand::kSeparator) {
            menu.addSeparator();
            continue;
        }
        const Tool& tool = pool_.tool(sId);
        QAction* action = newAction(tool);
        menu.addAction(action);
        menuActions_[upperCase(tool.sId)] = action;
        showTool(tool);
    }
}

void ToolBands::fillToolBar(const ToolBand& band)
{
    toolBar_->setObjectName(QString::fromStdString(band.sName));
    toolBar_->setWindowTitle(QString::fromStdString(band.sName));
    toolBar_->setAccessibleName(QString::fromStdString(band.sName));
    for (const std::string& sId : band.toolIds) {
        if (sId == ToolBand::kSeparator) {
            toolBar_->addSeparator();
            continue;
        }
        const Tool& tool = pool_.tool(sId);
        QAction* action = newAction(tool);
        toolBar_->addAction(action);
        auto* button = qobject_cast<QToolButton*>(toolBar_->widgetForAction(action));
        button->setObjectName(QString::fromStdString(tool.sId));
        button->setFocusPolicy(Qt::TabFocus);
        markUiId(*button);
        toolbarActions_[upperCase(tool.sId)] = action;
        showTool(tool);
    }
    // The tools that don't fit are behind this one.
    if (QToolButton* more = moreButton(*toolBar_)) {
        more->setFocusPolicy(Qt::TabFocus);
        more->setAccessibleName(tr("More tools"));
    }
}

QAction* ToolBands::newAction(const Tool& tool)
{
    auto* action = new QAction(this);
    action->setObjectName(QString::fromStdString(tool.sId));
    if (!tool.sIcon.empty())
        action->setIcon(drawnIcon(QString::fromStdString(tool.sIcon)));
    connect(action, &QAction::triggered, this, [this, sId = tool.sId] {
        // The program says what is checked; the click alone changes nothing.
        showTool(pool_.tool(sId));
        Q_EMIT toolClicked(QString::fromStdString(sId));
    });
    return action;
}

void ToolBands::showTool(const Tool& tool)
{
    showMenuTool(tool);
    showToolbarTool(tool);
}

void ToolBands::showMenuTool(const Tool& tool)
{
    const auto found = menuActions_.find(upperCase(tool.sId));
    if (found == menuActions_.end())
        return;
    QAction& action = *found->second;
    action.setText(QString::fromStdString(tool.sMenuCaption));
    showCommonParts(action, tool);
}

void ToolBands::showToolbarTool(const Tool& tool)
{
    const auto found = toolbarActions_.find(upperCase(tool.sId));
    if (found == toolbarActions_.end())
        return;
    QAction& action = *found->second;
    QString caption = QString::fromStdString(tool.sToolbarCaption);
    const QString read = withoutAccessKey(caption);
    // A key that opens a menu can't press a tool as well.
    const QChar key = accessKeyOf(caption);
    for (const QAction* title : menuBar_->actions())
        if (!key.isNull() && accessKeyOf(title->text()) == key)
            caption = asCaption(read);
    action.setText(caption);
    action.setIconText(caption);
    action.setToolTip(tool.sToolTip.empty() ? read : QString::fromStdString(tool.sToolTip));
    showCommonParts(action, tool);
    toolBar_->widgetForAction(&action)->setAccessibleName(read);
    tidySeparators();
}

/// A separator stands between tools that show, once.
void ToolBands::tidySeparators()
{
    QAction* waiting = nullptr;
    bool bToolBefore = false;
    for (QAction* action : toolBar_->actions()) {
        if (action->isSeparator()) {
            action->setVisible(false);
            waiting = bToolBefore ? action : nullptr;
            bToolBefore = bToolBefore && waiting;
        } else if (action->isVisible()) {
            if (waiting)
                waiting->setVisible(true);
            waiting = nullptr;
            bToolBefore = true;
        }
    }
}

void ToolBands::showSideStrip()
{
    for (BandMenu* menu : menus_)
        menu->setSideStrip(pool_.sideStrip() ? pool_.sideStrip()->pixmap() : QPixmap());
}

bool ToolBands::event(QEvent* event)
{
    if (event->type() != QEvent::StatusTip)
        return QWidget::event(event);
    Q_EMIT statusTextChanged(static_cast<QStatusTipEvent*>(event)->tip());
    return true;
}

} // namespace zorvo
