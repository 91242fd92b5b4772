#include "window/messageBoxHelp.h"

#include "platform/HelpViewer.h"
#include "platform/Platform.h"
#include "window/messageBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace zorvo {

namespace {

/// Answers F1 while a box is up.
class HelpKeyFilter : public QObject {
public:
    explicit HelpKeyFilter(const MessageBoxHelp& help)
        : help_(help)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
            static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
            return false;
        platform().help->show(0, help_.sFile, HelpViewer::kContext,
                              static_cast<std::uint32_t>(help_.nContext));
        return true;
    }

private:
    const MessageBoxHelp& help_;
};

} // namespace

int showMessageBoxWithHelp(const std::string& sPrompt, int nStyle, const std::string& sTitle,
                           const MessageBoxHelp& help)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return showMessageBox(sPrompt, nStyle, sTitle);
    const HelpKeyFilter filter(help);
    return showMessageBox(sPrompt, nStyle, sTitle);
}

} // namespace zorvo
