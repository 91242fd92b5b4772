#include "help/viewer/HelpDesk.h"
#include "help/viewer/HelpService.h"
#include "platform/linux/FontListAhead.h"
#include "platform/linux/SettingsFile.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

/// Says so and ends the process when all of the window that counts has been painted.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QStringList names)
        : names_(std::move(names))
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !names_.isEmpty()) {
            names_.removeAll(watched->objectName());
            if (watched->parent())
                names_.removeAll(watched->parent()->objectName());
            // Behind the paint itself.
            if (names_.isEmpty())
                QMetaObject::invokeMethod(qApp, &FirstPaint::tell, Qt::QueuedConnection);
        }
        return false;
    }

private:
    static void tell()
    {
        std::puts("painted");
        std::fflush(stdout);
        std::_Exit(0);
    }

    QStringList names_;
};

int showBareWindow()
{
    QWidget window;
    window.setObjectName(QStringLiteral("bare"));
    window.resize(980, 680);
    window.show();
    return QApplication::exec();
}

/// As the viewer's own main does it.
int showHelp(const QString& file)
{
    using namespace zorvo::help;
    zorvo::SettingsFile settings;
    HelpDesk desk(
        QCoreApplication::applicationDirPath() + QStringLiteral("/brendle-help-reader"),
        [](const QString&) {}, settings);
    HelpService service(desk, QDBusConnection::sessionBus(), {});
    service.start();
    desk.show(0, file, zorvo::HelpViewer::kDisplayContents, 0, {});
    return QApplication::exec();
}

} // namespace

/// `bench_help bare` or `bench_help viewer FILE`: prints "painted" when the window is first painted, the
/// viewer's with its contents and its page, and ends.
int main(int argc, char** argv)
{
    const bool bViewer = argc > 2 && QByteArrayView(argv[1]) == "viewer";
    std::optional<zorvo::FontListAhead> fonts;
    if (bViewer)
        fonts.emplace();
    QApplication application(argc, argv);
    if (fonts)
        fonts->wait();
    QApplication::setQuitOnLastWindowClosed(false);
    FirstPaint firstPaint(bViewer ? QStringList{QStringLiteral("Contents"), QStringLiteral("Page")}
                                  : QStringList{QStringLiteral("bare")});
    application.installEventFilter(&firstPaint);
    return bViewer ? showHelp(QString::fromLocal8Bit(argv[2])) : showBareWindow();
}
