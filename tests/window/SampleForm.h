#pragma once

#include "base/RunTimeError.h"
#include "tests/window/WindowTest.h"
#include "window/Form.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace zorvo {

/// Takes down its events; a hook per event does more.
class SampleForm : public Form {
public:
    explicit SampleForm(const char* name = "frmSample")
        : Form(name)
        , cmdOK(new QPushButton(QStringLiteral("OK"), this))
        , txtEdit(new QLineEdit(this))
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(txtEdit);
        layout->addWidget(cmdOK);
    }

    QPushButton* cmdOK;
    QLineEdit* txtEdit;
    std::vector<std::string> events;
    std::function<void()> atLoad;
    std::function<void()> atActivate;
    std::function<void()> atDeactivate;
    std::function<void()> atQueryUnload;
    std::function<void()> atUnload;
    std::function<bool(int)> atKey;

protected:
    void onLoad() override { record("load", atLoad); }
    void onActivate() override { record("activate", atActivate); }
    void onDeactivate() override { record("deactivate", atDeactivate); }
    void onQueryUnload(UnloadMode mode) override
    {
        record(mode == UnloadMode::closeBox ? "query by box" : "query by code", atQueryUnload);
    }
    void onUnload() override { record("unload", atUnload); }
    bool onKeyDown(int key, Qt::KeyboardModifiers /*modifiers*/) override { return atKey && atKey(key); }

private:
    void record(const char* event, const std::function<void()>& hook)
    {
        events.emplace_back(event);
        if (hook)
            hook();
    }
};

inline void fail(int number)
{
    throw RunTimeError(number);
}

/// Once the form is up and active.
inline void whenActive(Form& form, const std::function<void()>& act)
{
    QTimer::singleShot(0, &form, [&form, act] {
        ASSERT_TRUE(waitUntil([&] { return form.isActiveWindow(); }));
        QCoreApplication::processEvents();
        act();
    });
}

} // namespace zorvo
