#include "tests/window/WindowTest.h"
#include "window/DefaultInstance.h"
#include "window/Form.h"
#include "window/IntervalTimer.h"
#include "window/guardedSlot.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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

void fail(int number)
{
    throw RunTimeError(number);
}

/// Once the form is up and active.
void whenActive(Form& form, const std::function<void()>& act)
{
    QTimer::singleShot(0, &form, [&form, act] {
        ASSERT_TRUE(waitUntil([&] { return form.isActiveWindow(); }));
        QCoreApplication::processEvents();
        act();
    });
}

TEST(Form, CarriesItsName)
{
    EXPECT_EQ(SampleForm("frmOptions").objectName(), QStringLiteral("frmOptions"));
}

TEST(Form, LoadsOnce)
{
    SampleForm form;
    EXPECT_FALSE(form.isFormLoaded());
    form.load();
    form.load();
    EXPECT_TRUE(form.isFormLoaded());
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(form.events, ElementsAre("load"));
}

TEST(Form, IsNotLoadedWhenItsLoadEventFails)
{
    SampleForm form;
    form.atLoad = [] { fail(6); };
    const int nBefore = Form::loadedForms();
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 6);
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Form::loadedForms(), nBefore);
}

TEST(Form, GoesThroughItsLife)
{
    SampleForm form;
    form.showModeless();
    ASSERT_TRUE(waitUntil([&] { return form.events.size() == 2; }));
    form.unload();
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(form.events, ElementsAre("load", "activate", "query by code", "unload"));
}

TEST(Form, UnloadsByItsCloseBox)
{
    SampleForm form;
    form.showModeless();
    EXPECT_TRUE(form.close());
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_THAT(form.events, Contains("query by box"));
}

TEST(Form, UnloadsOnce)
{
    SampleForm form;
    form.unload();
    EXPECT_THAT(form.events, IsEmpty());
    form.load();
    form.atUnload = [&] { form.unload(); };
    form.unload();
    form.unload();
    EXPECT_THAT(form.events, ElementsAre("load", "query by code", "unload"));
}

TEST(Form, LoadsAnewAfterItsUnload)
{
    SampleForm form;
    form.load();
    form.unload();
    form.load();
    EXPECT_TRUE(form.isFormLoaded());
    EXPECT_THAT(form.events, ElementsAre("load", "query by code", "unload", "load"));
}

TEST(Form, IsUnloadedThoughItsUnloadEventFails)
{
    SampleForm form;
    form.atQueryUnload = [] { fail(5); };
    form.showModeless();
    EXPECT_EQ(errorNumberOf([&] { form.unload(); }), 5);
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_FALSE(form.isVisible());
}

TEST(Form, MayUnloadInItsLoadEvent)
{
    SampleForm form;
    form.atLoad = [&] { form.unload(); };
    form.showModal();
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_FALSE(form.isVisible());
}

TEST(Form, CountsLoadedFormsAndTellsOfEachUnload)
{
    const int nBefore = Form::loadedForms();
    int nUnloads = 0;
    int nSeen = -1;
    Form::setUnloadListener([&] {
        ++nUnloads;
        nSeen = Form::loadedForms();
    });
    {
        SampleForm first;
        SampleForm second;
        SampleForm dropped;
        first.load();
        second.load();
        dropped.load();
        EXPECT_EQ(Form::loadedForms(), nBefore + 3);
        first.unload();
        EXPECT_EQ(nUnloads, 1);
        EXPECT_EQ(nSeen, nBefore + 2);
    }
    Form::setUnloadListener({});
    EXPECT_EQ(nUnloads, 3);
    EXPECT_EQ(Form::loadedForms(), nBefore);
}

TEST(Form, ActivatesEachTimeItComesToTheFront)
{
    SampleForm back("frmBack");
    SampleForm front("frmFront");
    back.showModeless();
    ASSERT_TRUE(waitUntil([&] { return back.events.size() == 2; }));
    front.showModeless();
    ASSERT_TRUE(waitUntil([&] { return back.events.size() == 3; }));
    back.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return back.events.size() == 4; }));
    EXPECT_THAT(back.events, ElementsAre("load", "activate", "deactivate", "activate"));
    back.unload();
    front.unload();
}

TEST(Form, DeactivatesWhenItHides)
{
    SampleForm form;
    form.showModeless();
    ASSERT_TRUE(waitUntil([&] { return form.events.size() == 2; }));
    form.hide();
    QTest::qWait(20);
    EXPECT_THAT(form.events, ElementsAre("load", "activate", "deactivate"));
    form.unload();
}

TEST(Form, ActivatesInTheEndWhenTheDesktopKeepsTheFocus)
{
    SampleForm form;
    form.setAttribute(Qt::WA_ShowWithoutActivating);
    form.load();
    // The offscreen platform gives the focus at once: stand in for one that doesn't.
    struct FocusKeeper : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::WindowActivate || event->type() == QEvent::ActivationChange)
                return watched->isWidgetType();
            return false;
        }
    } keeper;
    form.installEventFilter(&keeper);
    form.show();
    QTest::qWait(50);
    QApplication::setActiveWindow(nullptr);
    EXPECT_THAT(form.events, ElementsAre("load"));
    EXPECT_TRUE(waitUntil([&] { return form.events.size() == 2; }));
    EXPECT_THAT(form.events, ElementsAre("load", "activate"));
    form.unload();
}

TEST(Form, AModelessFailureIsReported)
{
    const ReportedFailures reported;
    SampleForm form;
    form.atActivate = [] { fail(76); };
    form.showModeless();
    EXPECT_TRUE(waitUntil([&] { return !reported.descriptions.empty(); }));
    EXPECT_THAT(reported.descriptions, ElementsAre("Path not found"));
    EXPECT_EQ(gnErrNumber, 76);
    EXPECT_TRUE(form.isVisible());
    form.unload();
}

TEST(Form, ACloseBoxFailureIsReportedAndTheFormGoes)
{
    const ReportedFailures reported;
    SampleForm form;
    form.atUnload = [] { fail(76); };
    form.showModeless();
    form.close();
    EXPECT_THAT(reported.descriptions, ElementsAre("Path not found"));
    EXPECT_FALSE(form.isFormLoaded());
}

TEST(Form, CannotBeClosedWhileItIsDisabled)
{
    SampleForm form;
    form.showModeless();
    form.setEnabled(false);
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isFormLoaded());
    form.setEnabled(true);
    EXPECT_TRUE(form.close());
}

TEST(Form, GivesTheFocusBackWhenItIsEnabledAgain)
{
    SampleForm form;
    form.showModeless();
    ASSERT_TRUE(waitUntil([&] { return form.isActiveWindow(); }));
    form.cmdOK->setFocus();
    form.setEnabled(false);
    form.setEnabled(true);
    EXPECT_TRUE(form.cmdOK->hasFocus());
    form.unload();
}

TEST(FormKeys, TheFormSeesAKeyFirstAndMaySwallowIt)
{
    SampleForm form;
    std::vector<int> keys;
    form.atKey = [&](int key) {
        keys.push_back(key);
        return key == Qt::Key_V;
    };
    form.showModeless();
    QTest::keyClick(form.txtEdit, Qt::Key_V);
    QTest::keyClick(form.txtEdit, Qt::Key_W);
    EXPECT_EQ(form.txtEdit->text(), QStringLiteral("w"));
    EXPECT_THAT(keys, ElementsAre(Qt::Key_V, Qt::Key_W));
    form.unload();
}

TEST(FormKeys, AKeyThatNoControlTakesIsSeenOnce)
{
    SampleForm form;
    int nSeen = 0;
    form.atKey = [&](int /*key*/) {
        ++nSeen;
        return false;
    };
    form.showModeless();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(form.cmdOK, Qt::Key_F5);
    EXPECT_EQ(nSeen, 3);
    form.unload();
}

TEST(FormKeys, AKeyOfAnotherFormIsNotSeen)
{
    SampleForm form;
    SampleForm other;
    form.atKey = [](int /*key*/) { return true; };
    form.showModeless();
    other.showModeless();
    QTest::keyClick(other.txtEdit, Qt::Key_A);
    EXPECT_EQ(other.txtEdit->text(), QStringLiteral("a"));
    form.unload();
    other.unload();
}

TEST(FormKeys, EnterPressesTheDefaultButtonAndEscapeTheCancelButton)
{
    SampleForm form;
    auto* cmdCancel = new QPushButton(&form);
    std::vector<std::string> pressed;
    QObject::connect(form.cmdOK, &QPushButton::clicked, &form, [&] { pressed.emplace_back("ok"); });
    QObject::connect(cmdCancel, &QPushButton::clicked, &form, [&] { pressed.emplace_back("cancel"); });
    form.setDefaultButton(form.cmdOK);
    form.setCancelButton(cmdCancel);
    form.showModeless();
    ASSERT_TRUE(waitUntil([&] { return form.isActiveWindow(); }));
    form.txtEdit->setFocus();
    QTest::keyClick(form.txtEdit, Qt::Key_Return);
    QTest::keyClick(form.txtEdit, Qt::Key_Escape);
    cmdCancel->setFocus();
    QTest::keyClick(cmdCancel, Qt::Key_Enter);
    form.cmdOK->setEnabled(false);
    form.txtEdit->setFocus();
    QTest::keyClick(form.txtEdit, Qt::Key_Return);
    EXPECT_THAT(pressed, ElementsAre("ok", "cancel", "cancel"));
    form.unload();
}

TEST(FormModal, ReturnsWhenTheFormHidesAndKeepsItLoaded)
{
    SampleForm form;
    whenActive(form, [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
        EXPECT_EQ(form.windowModality(), Qt::ApplicationModal);
        form.txtEdit->setText(QStringLiteral("kept"));
        form.hide();
    });
    form.showModal();
    EXPECT_TRUE(form.isFormLoaded());
    EXPECT_EQ(form.txtEdit->text(), QStringLiteral("kept"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    form.unload();
}

TEST(FormModal, ReturnsWhenTheFormUnloads)
{
    SampleForm form;
    whenActive(form, [&] { form.close(); });
    form.showModal();
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_THAT(form.events, ElementsAre("load", "activate", "query by box", "unload"));
}

TEST(FormModal, CanBeShownAgain)
{
    SampleForm form;
    for (int i = 0; i < 2; ++i) {
        whenActive(form, [&] { form.hide(); });
        form.showModal();
    }
    EXPECT_THAT(form.events, ElementsAre("load", "activate", "deactivate", "activate", "deactivate"));
    form.unload();
}

TEST(FormModal, IsRefusedToAFormOnTheScreen)
{
    SampleForm form;
    form.showModeless();
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 5);
    form.unload();
    whenActive(form, [&] {
        EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 5);
        form.hide();
    });
    form.showModal();
    form.unload();
}

TEST(FormModal, HidingBeforeTheLoopRunsEndsItToo)
{
    SampleForm form;
    struct Hider : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Show)
                qobject_cast<QWidget*>(watched)->hide();
            return false;
        }
    } hider;
    form.installEventFilter(&hider);
    form.showModal();
    EXPECT_FALSE(form.isVisible());
    form.unload();
}

TEST(FormModal, WhatAnEventThrowsReachesTheCaller)
{
    const ReportedFailures reported;
    SampleForm form;
    form.atActivate = [] { fail(6); };
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 6);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(form.isFormLoaded());
    form.unload();
    EXPECT_THAT(reported.descriptions, IsEmpty());
}

TEST(FormModal, WhatAButtonsSlotThrowsReachesTheCaller)
{
    SampleForm form;
    QObject::connect(form.cmdOK, &QPushButton::clicked, &form, guardedSlot(form.cmdOK, [] { fail(13); }));
    whenActive(form, [&] { QTest::mouseClick(form.cmdOK, Qt::LeftButton); });
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 13);
    form.unload();
}

TEST(FormModal, WhatTheCloseBoxThrowsReachesTheCaller)
{
    SampleForm form;
    form.atUnload = [] { fail(70); };
    whenActive(form, [&] { form.close(); });
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 70);
    EXPECT_FALSE(form.isFormLoaded());
}

TEST(FormModal, WhatAKeyThrowsReachesTheCaller)
{
    SampleForm form;
    form.atKey = [](int /*key*/) -> bool { throw RunTimeError(9); };
    whenActive(form, [&] { QTest::keyClick(form.txtEdit, Qt::Key_A); });
    EXPECT_EQ(errorNumberOf([&] { form.showModal(); }), 9);
    form.unload();
}

TEST(FormModal, AnExceptionOfAnyTypeKeepsItsType)
{
    SampleForm form;
    form.atActivate = [] { throw std::bad_alloc(); };
    EXPECT_THROW(form.showModal(), std::bad_alloc);
    form.unload();
}

TEST(FormModal, NestedOnesUnwindLastInFirstOut)
{
    SampleForm outer("frmOuter");
    SampleForm inner("frmInner");
    std::vector<std::string> order;
    whenActive(outer, [&] {
        whenActive(inner, [&] {
            // The outer one ends first, and waits all the same.
            outer.hide();
            order.emplace_back("outer hidden");
            QTest::qWait(20);
            order.emplace_back("inner hides");
            inner.hide();
        });
        inner.showModal();
        order.emplace_back("inner returned");
    });
    outer.showModal();
    order.emplace_back("outer returned");
    EXPECT_THAT(order, ElementsAre("outer hidden", "inner hides", "inner returned", "outer returned"));
    outer.unload();
    inner.unload();
}

TEST(FormModal, AFailureUnwindsToTheFormItBelongsTo)
{
    SampleForm outer("frmOuter");
    SampleForm inner("frmInner");
    int nInner = -1;
    IntervalTimer timer([&] { timer.setInterval(0), fail(53); }, &outer);
    whenActive(outer, [&] {
        whenActive(inner, [&] {
            timer.setInterval(1);
            EXPECT_TRUE(waitUntil([&] { return !outer.isVisible(); }));
            EXPECT_TRUE(inner.isVisible());
            inner.hide();
        });
        nInner = errorNumberOf([&] { inner.showModal(); });
    });
    EXPECT_EQ(errorNumberOf([&] { outer.showModal(); }), 53);
    EXPECT_EQ(nInner, 0);
    outer.unload();
    inner.unload();
}

TEST(FormModal, StandsAboveTheFormInFront)
{
    SampleForm main("frmMain");
    main.showModeless();
    ASSERT_TRUE(waitUntil([&] { return main.isActiveWindow(); }));
    SampleForm dialog("frmDialog");
    whenActive(dialog, [&] {
        EXPECT_EQ(dialog.windowHandle()->transientParent(), main.windowHandle());
        EXPECT_EQ(dialog.windowType(), Qt::Dialog);
        dialog.hide();
    });
    dialog.showModal();
    dialog.unload();
    EXPECT_TRUE(waitUntil([&] { return main.events.back() == "activate"; }));
    EXPECT_THAT(main.events, ElementsAre("load", "activate", "deactivate", "activate"));
    main.unload();
}

TEST(FormModal, TimersRunInItsLoop)
{
    SampleForm form;
    int nTicks = 0;
    IntervalTimer timer(
        [&] {
            if (++nTicks == 3) {
                timer.setInterval(0);
                form.hide();
            }
        },
        &form);
    timer.setInterval(1);
    form.showModal();
    EXPECT_EQ(nTicks, 3);
    form.unload();
}

TEST(FormModal, MayUnloadInsideItsOwnHandler)
{
    SampleForm form;
    bool bFinished = false;
    QObject::connect(form.cmdOK, &QPushButton::clicked, &form, guardedSlot(&form, [&] {
                         form.unload();
                         form.txtEdit->setText(QStringLiteral("still there"));
                         bFinished = true;
                     }));
    whenActive(form, [&] { QTest::mouseClick(form.cmdOK, Qt::LeftButton); });
    form.showModal();
    EXPECT_TRUE(bFinished);
    EXPECT_EQ(form.txtEdit->text(), QStringLiteral("still there"));
}

TEST(FormModal, MayBeDestroyedWhileItIsUp)
{
    auto form = std::make_unique<SampleForm>();
    const int nBefore = Form::loadedForms();
    QTimer::singleShot(0, qApp, [&] { form.reset(); });
    form->showModal();
    EXPECT_EQ(form, nullptr);
    EXPECT_EQ(Form::loadedForms(), nBefore);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(FormModal, MayBeDeletedLaterInItsOwnHandler)
{
    auto* form = new SampleForm;
    const QPointer<SampleForm> watched = form;
    QObject::connect(form->cmdOK, &QPushButton::clicked, form, [form] {
        form->unload();
        form->deleteLater();
    });
    whenActive(*form, [form] { QTest::mouseClick(form->cmdOK, Qt::LeftButton); });
    form->showModal();
    EXPECT_TRUE(waitUntil([&] { return !watched; }));
}

using SampleInstance = DefaultInstance<SampleForm>;

TEST(DefaultInstance, FirstTouchLoads)
{
    SampleInstance instance;
    EXPECT_EQ(instance.ifLoaded(), nullptr);
    SampleForm& form = instance.get();
    EXPECT_TRUE(form.isFormLoaded());
    EXPECT_EQ(&instance.get(), &form);
    EXPECT_EQ(instance.ifLoaded(), &form);
    instance.unload();
}

TEST(DefaultInstance, TheNextTouchAfterAnUnloadMakesANewOne)
{
    SampleInstance instance;
    const QPointer<SampleForm> first = &instance.get();
    first->txtEdit->setText(QStringLiteral("readable"));
    first->unload();
    EXPECT_EQ(instance.ifLoaded(), nullptr);
    EXPECT_EQ(first->txtEdit->text(), QStringLiteral("readable"));
    SampleForm& second = instance.get();
    EXPECT_NE(&second, first.data());
    EXPECT_TRUE(waitUntil([&] { return !first; }));
    instance.unload();
    EXPECT_EQ(instance.ifLoaded(), nullptr);
}

class SelfTouchingForm : public Form {
public:
    SelfTouchingForm()
        : Form("frmSelf")
    {
    }
    static DefaultInstance<SelfTouchingForm> instance;
    static SelfTouchingForm* touched;
    static bool bFail;

protected:
    void onLoad() override
    {
        touched = &instance.get();
        if (bFail)
            fail(6);
    }
};

DefaultInstance<SelfTouchingForm> SelfTouchingForm::instance;
SelfTouchingForm* SelfTouchingForm::touched = nullptr;
bool SelfTouchingForm::bFail = false;

TEST(DefaultInstance, MayBeTouchedWhileItLoads)
{
    SelfTouchingForm& form = SelfTouchingForm::instance.get();
    EXPECT_EQ(SelfTouchingForm::touched, &form);
    SelfTouchingForm::instance.unload();
}

TEST(DefaultInstance, HasNoFormAfterALoadThatFailed)
{
    SelfTouchingForm::bFail = true;
    EXPECT_EQ(errorNumberOf([] { SelfTouchingForm::instance.get(); }), 6);
    SelfTouchingForm::bFail = false;
    EXPECT_EQ(SelfTouchingForm::instance.ifLoaded(), nullptr);
    EXPECT_TRUE(SelfTouchingForm::instance.get().isFormLoaded());
    SelfTouchingForm::instance.unload();
}

TEST(IntervalTimer, IsAtRestUntilItIsWritten)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    EXPECT_EQ(timer.interval(), 0);
    QTest::qWait(20);
    EXPECT_EQ(nTicks, 0);
}

TEST(IntervalTimer, FiresUntilItIsWrittenAgain)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    timer.setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return nTicks >= 3; }));
    EXPECT_EQ(timer.interval(), 1);
    timer.setInterval(0);
    const int nThen = nTicks;
    QTest::qWait(20);
    EXPECT_EQ(nTicks, nThen);
}

TEST(IntervalTimer, AWriteStartsTheWaitAnew)
{
    int nTicks = 0;
    IntervalTimer timer([&] { ++nTicks; });
    timer.setInterval(60);
    for (int i = 0; i < 6; ++i) {
        QTest::qWait(20);
        timer.setInterval(60);
    }
    EXPECT_EQ(nTicks, 0);
    EXPECT_TRUE(waitUntil([&] { return nTicks == 1; }));
}

TEST(IntervalTimer, MayBeDestroyedByItsHandler)
{
    std::unique_ptr<IntervalTimer> timer;
    int nTicks = 0;
    const std::string sCaptured = "a text that lives in the handler, on the heap";
    std::string sSeen;
    timer = std::make_unique<IntervalTimer>([&, sCaptured] {
        timer.reset();
        ++nTicks;
        sSeen = sCaptured;
    });
    timer->setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return nTicks == 1; }));
    EXPECT_EQ(sSeen, sCaptured);
}

TEST(IntervalTimer, AFailureWithoutAFormIsReported)
{
    const ReportedFailures reported;
    IntervalTimer timer([&] {
        timer.setInterval(0);
        fail(53);
    });
    timer.setInterval(1);
    EXPECT_TRUE(waitUntil([&] { return !reported.descriptions.empty(); }));
    EXPECT_THAT(reported.descriptions, ElementsAre("File not found"));
}

TEST(GuardedSlot, HandsOverArgumentsOrNone)
{
    QLineEdit edit;
    QString seen;
    int nCalls = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, &edit,
                     guardedSlot(&edit, [&](const QString& text) { seen = text; }));
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, guardedSlot(&edit, [&] { ++nCalls; }));
    edit.setText(QStringLiteral("x"));
    EXPECT_EQ(seen, QStringLiteral("x"));
    EXPECT_EQ(nCalls, 1);
}

TEST(GuardedSlot, ReportsWhatNoOneForesaw)
{
    const ReportedFailures reported;
    QObject source;
    EXPECT_FALSE(runGuarded(&source, [] { throw std::runtime_error("out of luck"); }));
    EXPECT_FALSE(runGuarded(&source, [] { throw 7; }));
    EXPECT_TRUE(runGuarded(&source, [] {}));
    EXPECT_THAT(reported.descriptions, ElementsAre("out of luck", testing::_));
    EXPECT_EQ(gnErrNumber, 51);
}

} // namespace
} // namespace zorvo
