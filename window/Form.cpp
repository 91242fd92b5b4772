#include "window/Form.h"

#include "base/failure.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace zorvo {

namespace {

/// A desktop without a window manager activates no window by itself; after this time a shown form is taken as active.
constexpr int kActivationWaitMs = 400;

int nLoadedForms = 0;

std::function<void()>& unloadListener()
{
    static std::function<void()> listener;
    return listener;
}

} // namespace

Form::Form(const char* name, QWidget* parent)
    : QWidget(parent, Qt::Window)
{
    setObjectName(QString::fromLatin1(name));
    setAttribute(Qt::WA_QuitOnClose, false);
}

Form::~Form()
{
    if (bLoaded_)
        --nLoadedForms;
    if (modalLoop_)
        modalLoop_->quit();
}

void Form::load()
{
    if (bLoaded_)
        return;
    bLoaded_ = true;
    ++nLoadedForms;
    try {
        onLoad();
    } catch (...) {
        bLoaded_ = false;
        --nLoadedForms;
        throw;
    }
    QApplication::instance()->installEventFilter(this);
}

void Form::showModeless()
{
    load();
    show();
    raise();
    activateWindow();
}

void Form::showModal()
{
    load();
    setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    QEventLoop* const outer = std::exchange(modalLoop_, &loop);
    const QPointer<Form> self(this);
    showModeless();
    // An activate event may have hidden or unloaded the form before the loop began.
    if (isVisible())
        loop.exec();
    if (!self)
        return;
    modalLoop_ = outer;
    setWindowModality(Qt::NonModal);
    if (failure_)
        std::rethrow_exception(std::exchange(failure_, nullptr));
}

void Form::unload(UnloadMode mode)
{
    if (!bLoaded_ || bUnloading_)
        return;
    bUnloading_ = true;
    try {
        onQueryUnload(mode);
        onUnload();
    } catch (...) {
        finishUnload();
        throw;
    }
    finishUnload();
}

void Form::finishUnload()
{
    bLoaded_ = false;
    bUnloading_ = false;
    --nLoadedForms;
    QApplication::instance()->removeEventFilter(this);
    hide();
    if (unloadListener())
        unloadListener()();
}

int Form::loadedForms()
{
    return nLoadedForms;
}

void Form::setUnloadListener(std::function<void()> listener)
{
    unloadListener() = std::move(listener);
}

void Form::guard(const std::function<void()>& work)
{
    const QPointer<Form> self(this);
    try {
        work();
    } catch (const RunTimeError& error) {
        if (self && modalLoop_) {
            failure_ = std::current_exception();
            hide();
            return;
        }
        recordFailure(error);
        ReportError(self ? objectName().toStdString() : std::string("Form"));
    }
}

std::function<void()> Form::guarded(std::function<void()> work)
{
    return [this, work = std::move(work)] { guard(work); };
}

void Form::activateOnce()
{
    if (bActive_ || !bLoaded_ || !isVisible())
        return;
    bActive_ = true;
    guard([this] { onActivate(); });
}

void Form::closeEvent(QCloseEvent* event)
{
    if (!bLoaded_)
        return;
    event->ignore(); // the unload itself hides the window
    guard([this] { unload(UnloadMode::closeBox); });
}

void Form::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow()) {
        activateOnce();
    } else if (bActive_) {
        bActive_ = false;
        if (bLoaded_)
            guard([this] { onDeactivate(); });
    }
}

void Form::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(kActivationWaitMs, this, [this] { activateOnce(); });
}

void Form::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous())
        return;
    bActive_ = false;
    if (modalLoop_)
        modalLoop_->quit();
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        const auto* key = static_cast<QKeyEvent*>(event);
        if (widget->window() == this && onKeyDown(key->key(), key->modifiers()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace zorvo
