#include "window/Form.h"

#include "base/RunTimeError.h"
#include "window/UiIds.h"
#include "window/guardedSlot.h"
#include "window/windowPosition.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include <utility>

namespace zorvo {

namespace {

/// A desktop that keeps the focus to itself must not keep a form's work from beginning.
constexpr int kActivationWaitMs = 300;

/// As long as Qt waits for the other half of a focus change, and a little more.
constexpr int kFocusMoveMs = 250;

int nLoadedForms = 0;

/// What the last modal form stood above. Until the desktop has given the focus back no window is active; a
/// modal form that follows at once belongs to the same one.
QPointer<QWidget>& ownerJustLeft()
{
    static QPointer<QWidget> owner;
    return owner;
}

QWidget* windowInFront()
{
    QWidget* active = QApplication::activeWindow();
    return active && active->isVisible() ? active : ownerJustLeft().data();
}

std::function<void()>& unloadListener()
{
    static std::function<void()> listener;
    return listener;
}

} // namespace

/// Shows the form the keys that go to its controls, each once.
class Form::KeyPreview : public QObject {
public:
    explicit KeyPreview(Form& form)
        : QObject(&form)
        , form_(form)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyRelease)
            lastReceiver_ = nullptr;
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
            return false;
        auto* receiver = static_cast<QWidget*>(watched);
        if (receiver->window() != &form_ || isPassedOn(*receiver, *event))
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        bool bSwallowed = false;
        runGuarded(&form_, [&] { bSwallowed = form_.onKeyDown(key->key(), key->modifiers()); });
        return bSwallowed;
    }

private:
    /// A key that a control doesn't take goes on to its parents, in the same event.
    bool isPassedOn(const QWidget& receiver, const QEvent& event)
    {
        const bool bPassedOn =
            lastEvent_ == &event && lastReceiver_ && receiver.isAncestorOf(lastReceiver_.data());
        lastEvent_ = &event;
        lastReceiver_ = &receiver;
        return bPassedOn;
    }

    Form& form_;
    const QEvent* lastEvent_ = nullptr;
    QPointer<const QWidget> lastReceiver_;
};

/// Lives in the frame of showModal: the form may be destroyed under it.
struct Form::ModalShow {
    QEventLoop loop;
    std::exception_ptr failure;
    bool bEnded = false;
};

Form::Form(const char* name, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , keyPreview_(new KeyPreview(*this))
{
    setObjectName(QString::fromUtf8(name));
}

Form::~Form()
{
    leaveModalLoop();
    if (bLoaded_)
        endLoaded();
    // Controls go after this, and still speak: the focused one gives the keyboard up. What a derived form
    // connected them to is no more.
    for (QObject* each : findChildren<QObject*>())
        each->disconnect(this);
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
        if (bLoaded_)
            endLoaded();
        throw;
    }
    markUiIds(*this);
}

void Form::showModeless()
{
    load();
    if (!bLoaded_)
        return;
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    comeToFront();
}

void Form::showModal()
{
    if (modal_ || isVisible())
        throw RunTimeError(kInvalidCall, "Form is on the screen already");
    load();
    if (bLoaded_)
        runModalLoop();
}

void Form::runModalLoop()
{
    const QPointer<Form> self = this;
    const QPointer<QWidget> front = windowInFront();
    ModalShow modal;
    modal_ = &modal;
    becomeModalWindow();
    show();
    comeToFront();
    if (!modal.bEnded)
        modal.loop.exec();
    if (self) {
        modal_ = nullptr;
        setWindowModality(Qt::NonModal);
    }
    ownerJustLeft() = front;
    QTimer::singleShot(0, qApp, [] { ownerJustLeft() = nullptr; });
    if (modal.failure)
        std::rethrow_exception(modal.failure);
}

void Form::comeToFront()
{
    activateWindow();
    // A platform that never took the focus from the hidden window has nothing to tell when it shows again.
    if (isVisible() && !isActiveWindow() && QGuiApplication::focusWindow() == windowHandle())
        QApplication::setActiveWindow(this);
}

void Form::leaveModalLoop()
{
    if (!modal_)
        return;
    modal_->bEnded = true;
    modal_->loop.exit();
}

void Form::becomeModalWindow()
{
    setWindowModality(Qt::ApplicationModal);
    // Only a dialog stays above the window that it belongs to.
    if (windowType() == Qt::Window)
        setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
    const QWidget* front = windowInFront();
    if (front && front != this && front->isVisible())
        setOwnerWindow(*this, *front);
}

bool Form::endModalShow(std::exception_ptr failure)
{
    if (!modal_)
        return false;
    if (!modal_->failure)
        modal_->failure = std::move(failure);
    hide();
    leaveModalLoop();
    return true;
}

void Form::unload(UnloadMode mode)
{
    if (!bLoaded_ || bUnloading_)
        return;
    bUnloading_ = true;
    const QPointer<Form> self = this;
    std::exception_ptr failure;
    try {
        onQueryUnload(mode);
        onUnload();
    } catch (...) {
        failure = std::current_exception();
    }
    if (self) {
        bUnloading_ = false;
        bActive_ = false;
        hide();
        leaveModalLoop();
        endLoaded();
    }
    if (failure)
        std::rethrow_exception(failure);
}

void Form::endLoaded()
{
    bLoaded_ = false;
    --nLoadedForms;
    if (unloadListener())
        unloadListener()();
}

void Form::setEnabled(bool bEnabled)
{
    if (!bEnabled && isEnabled())
        focusWhenEnabled_ = focusWidget();
    QWidget::setEnabled(bEnabled);
    if (bEnabled && focusWhenEnabled_ && !focusWidget())
        focusWhenEnabled_->setFocus();
}

void Form::setDefaultButton(QPushButton* button)
{
    if (defaultButton_)
        defaultButton_->setDefault(false);
    defaultButton_ = button;
    if (defaultButton_)
        defaultButton_->setDefault(true);
}

void Form::setCancelButton(QPushButton* button)
{
    cancelButton_ = button;
}

int Form::loadedForms()
{
    return nLoadedForms;
}

void Form::setUnloadListener(std::function<void()> listener)
{
    unloadListener() = std::move(listener);
}

void Form::closeEvent(QCloseEvent* event)
{
    if (!isEnabled()) {
        // Work is under way and holds the form; it can no more be closed than used.
        event->ignore();
        return;
    }
    const QPointer<Form> self = this;
    runGuarded(this, [this] { unload(UnloadMode::closeBox); });
    event->setAccepted(!self || !bLoaded_);
}

void Form::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow())
        becomeActive();
    else if (!bPageHasFocus_)
        becomeInactive();
}

void Form::setPageHasFocus(bool bHasFocus)
{
    bPageHasFocus_ = bHasFocus;
    if (bHasFocus)
        return;
    // Where the keyboard has gone shows only when the desktop has told both windows.
    QTimer::singleShot(kFocusMoveMs, this, [this] {
        if (!bPageHasFocus_ && !isActiveWindow())
            becomeInactive();
    });
}

void Form::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    markUiIds(*this);
    qApp->installEventFilter(keyPreview_);
    QTimer::singleShot(kActivationWaitMs, this, &Form::activateWithoutFocus);
}

void Form::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    // A minimised window is only out of sight.
    if (event->spontaneous())
        return;
    qApp->removeEventFilter(keyPreview_);
    const QPointer<Form> self = this;
    becomeInactive();
    if (self)
        leaveModalLoop();
}

void Form::keyPressEvent(QKeyEvent* event)
{
    QPushButton* pressed = nullptr;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        auto* focused = qobject_cast<QPushButton*>(focusWidget());
        pressed = focused ? focused : defaultButton_;
    } else if (event->key() == Qt::Key_Escape) {
        pressed = cancelButton_;
    }
    if (pressed && pressed->isEnabled() && pressed->isVisible())
        pressed->click();
    else
        QWidget::keyPressEvent(event);
}

void Form::becomeActive()
{
    if (bActive_ || !bLoaded_ || bUnloading_ || !isVisible())
        return;
    bActive_ = true;
    runGuarded(this, [this] { onActivate(); });
}

void Form::becomeInactive()
{
    if (!bActive_)
        return;
    bActive_ = false;
    runGuarded(this, [this] { onDeactivate(); });
}

void Form::activateWithoutFocus()
{
    if (!QApplication::activeWindow())
        becomeActive();
}

} // namespace zorvo
