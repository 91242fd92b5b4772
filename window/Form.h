#pragma once

#include <QEventLoop>
#include <QWidget>

#include <exception>
#include <functional>

namespace zorvo {

/// Why a form unloads.
enum class UnloadMode { closeBox = 0, code = 1 };

/// A window with the life of a form:
///
///   constructed -> load -> [show -> activate ... deactivate -> hide] -> query-unload -> unload
///
/// The events are the virtual functions. `activate` comes each time the form comes to the front. The C++ object
/// outlives its unload, so that its fields can be read until its owner drops it. A modal show returns when the form
/// hides or unloads.
class Form : public QWidget {
    Q_OBJECT

public:
    /// `name` is the form's name: its object name.
    explicit Form(const char* name, QWidget* parent = nullptr);
    ~Form() override;

    /// Runs the load event unless the form is loaded. What the event throws reaches the caller, and the form is
    /// then not loaded.
    void load();
    /// Loads and shows without blocking.
    void showModeless();
    /// Loads, shows, and returns when the form has hidden or unloaded. Calls from other processes and timers are
    /// served meanwhile. What an event of the form throws while it is up is thrown from here.
    void showModal();
    /// query-unload, unload, and the window goes. Nothing happens on a form that isn't loaded.
    void unload(UnloadMode mode = UnloadMode::code);
    bool isFormLoaded() const { return bLoaded_; }

    /// Caption of the form as the title bar shows it.
    QString caption() const { return windowTitle(); }
    void setCaption(const QString& caption) { setWindowTitle(caption); }

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
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Runs an event's work. A failure can't cross the event loop: that of a modal form is thrown from `showModal`,
    /// which then ends, any other is reported.
    void guard(const std::function<void()>& work);
    /// The same as a slot, for connections.
    std::function<void()> guarded(std::function<void()> work);

private:
    void activateOnce();
    void finishUnload();

    bool bLoaded_ = false;
    bool bUnloading_ = false;
    bool bActive_ = false;
    QEventLoop* modalLoop_ = nullptr;
    std::exception_ptr failure_;
};

} // namespace zorvo
