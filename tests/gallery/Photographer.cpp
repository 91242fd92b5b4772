#include "tests/gallery/Photographer.h"

#include <QApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

#include <cstdio>

namespace zorvo {

namespace {

constexpr int kEveryMs = 25;
constexpr int kPatienceMs = 30000;
constexpr int kFrameMs = 2000;

bool isWanted(const QWidget& window, const Sight& sight)
{
    if (!window.isVisible() || !window.windowHandle() || !window.windowHandle()->isExposed())
        return false;
    return sight.window.isEmpty() ? qobject_cast<const QMessageBox*>(&window) != nullptr
                                  : window.objectName() == sight.window;
}

bool isFramed(const QWidget& window)
{
    const QRect screen = window.screen()->geometry();
    const bool bNeedsNone = window.windowFlags().testFlag(Qt::FramelessWindowHint);
    return screen.intersects(window.geometry()) &&
           (bNeedsNone || window.frameGeometry() != window.geometry());
}

QWidget* findWindow(const Sight& sight)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (isWanted(*window, sight))
            return window;
    return nullptr;
}

} // namespace

Photographer::Photographer(QString folder)
    : folder_(std::move(folder))
{
    connect(&timer_, &QTimer::timeout, this, [this] { look(); });
}

void Photographer::take(std::deque<Sight> sights, const std::function<void()>& open)
{
    sights_ = std::move(sights);
    nWaitedMs_ = 0;
    timer_.start(kEveryMs);
    try {
        open();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "gallery: %s\n", failure.what());
    }
    while (!sights_.empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    timer_.stop();
    // What the last one left behind.
    QCoreApplication::processEvents();
}

void Photographer::look()
{
    if (sights_.empty())
        return;
    nWaitedMs_ += kEveryMs;
    if (nWaitedMs_ > kPatienceMs) {
        giveUp();
        return;
    }
    QWidget* window = findWindow(sights_.front());
    const QRect at = window ? window->frameGeometry() : QRect();
    if (window != seen_ || at != seenAt_) {
        seen_ = window;
        seenAt_ = at;
        nStillMs_ = 0;
        return;
    }
    // The window manager's frame and place may come a moment after the window.
    if (window && !isFramed(*window) && nWaitedMs_ < kFrameMs)
        return;
    if (!window || (sights_.front().isReady && !sights_.front().isReady(*window)))
        return;
    nStillMs_ += kEveryMs;
    if (nStillMs_ >= sights_.front().nStillMs)
        finishSight(*window);
}

void Photographer::finishSight(QWidget& window)
{
    const Sight sight = sights_.front();
    if (!sight.picture.isEmpty() && !save(window, sight.picture))
        ++nMissing_;
    sights_.pop_front();
    seen_ = nullptr;
    nWaitedMs_ = 0;
    // Outside the timer's own call: what follows may be a modal show, in which the timer is needed.
    QMetaObject::invokeMethod(
        this,
        [then = sight.then, at = QPointer<QWidget>(&window)] {
            if (!at)
                return;
            if (then)
                then(*at);
            else
                at->close();
        },
        Qt::QueuedConnection);
}

void Photographer::giveUp()
{
    for (const Sight& sight : sights_) {
        std::fprintf(stderr, "gallery: %s didn't come up\n", qPrintable(sight.picture));
        ++nMissing_;
    }
    sights_.clear();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows)
        if (window->isVisible())
            std::fprintf(stderr, "gallery: there is %s, \"%s\"\n", qPrintable(window->objectName()),
                         qPrintable(window->windowTitle()));
    // Whatever is up instead ends the wait of those who opened it.
    if (QWidget* modal = QApplication::activeModalWidget())
        modal->close();
}

bool Photographer::save(const QWidget& window, const QString& picture)
{
    const QRect area = window.frameGeometry() & window.screen()->geometry();
    if (area.isEmpty()) {
        std::fprintf(stderr, "gallery: %s is off the screen\n", qPrintable(picture));
        return false;
    }
    const QPixmap pixmap = window.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height());
    const QString file = folder_ + QLatin1Char('/') + picture + QLatin1String(".png");
    if (pixmap.isNull() || !pixmap.save(file)) {
        std::fprintf(stderr, "gallery: %s can't be written\n", qPrintable(file));
        return false;
    }
    ++nPictures_;
    return true;
}

} // namespace zorvo
