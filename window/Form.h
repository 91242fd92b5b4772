#pragma once

#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>

class QPushButton;

namespace zorvo {

/// Why a form unloads.
enum class UnloadMode { closeBox = 0, code = 1 };

/// A window with the life of a form:
///
///   constructed -> load -> [show -> activate ... deactivate -> hide] -> query-unload -> unload
///
/// The events are the virtual functions. `activate` comes each time the form comes to the front. The C++
/// object outlives its unload, so that its fields can be read until its owner drops it. A modal show returns
/// when the form hides or unloads.
class Form : public QWidget {
    Q_OBJECT

public:
    /// `name` is the form's name: its object name.
    explicit Form(const char* name, QWidget* parent = nullptr);
    ~Form() override;

    /// Runs the load event unless the form is loaded. What the event throws reaches the caller, and the form
    /// is then not loaded.
    void load();
    /// Loads and shows without blocking.
    void showModeless();
    /// Loads, shows, and returns when the form has hidden or unloaded. Calls from other processes and timers
    /// are served meanwhile. What an event of the form throws while it is up is thrown from here, with the
    /// form hidden. Throws RunTimeError 5 when the form is on the screen already.
    void showModal();
    /// query-unload, unload, and the window goes. Nothing happens on a form that isn't loaded. What the
    /// events throw reaches the caller, and the form is unloaded all the same.
    void unload(UnloadMode mode = UnloadMode::code);
    /// True from the beginning of the load event to the end of the unload event.
    bool isFormLoaded() const { return bLoaded_; }

    /// Caption of the form as the title bar shows it.
    QString caption() const { return windowTitle(); }
    void setCaption(const QString& caption) { setWindowTitle(caption); }

    /// As QWidget's, and the focus comes back to the control that had it.
    void setEnabled(bool bEnabled);

    /// The button that Enter presses when no other button has the focus, and the one that Escape presses.
    void setDefaultButton(QPushButton* button);
    void setCancelButton(QPushButton* button);

    /// A page inside the form has taken the keyboard or given it back. The page is another process's window,
    /// for which the form's own loses the focus, and yet the form stays in front.
    void setPageHasFocus(bool bHasFocus);

    /// For guardedSlot: ends a modal show with that failure. False when the form isn't shown modally.
    bool endModalShow(std::exception_ptr failure);

    /// Forms loaded now, in the whole process, and what is called each time one unloads.
    static int loadedForms();
    static void setUnloadListener(std::function<void()> listener);

protected:
    virtual void onLoad() {}
    virtual void onActivate() {}
    virtual void onDeactivate() {}
    virtual void onQueryUnload(UnloadMode /*mode*/) {}
    virtual void onUnload() {}
    /// The form sees keys ahead of its controls; true swallows the key.
    virtual bool onKeyDown(int /*key*/, Qt::KeyboardModifiers /*modifiers*/) { return false; }

    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    class KeyPreview;
    struct ModalShow;

    void runModalLoop();
    void leaveModalLoop();
    void comeToFront();
    void becomeModalWindow();
    void becomeActive();
    void becomeInactive();
    void activateWithoutFocus();
    void endLoaded();

    KeyPreview* keyPreview_;
    ModalShow* modal_ = nullptr;
    QPushButton* defaultButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPointer<QWidget> focusWhenEnabled_;
    bool bLoaded_ = false;
    bool bUnloading_ = false;
    bool bActive_ = false;
    bool bPageHasFocus_ = false;
};

} // namespace zorvo
