#include "tests/window/SampleForm.h"
#include "window/Form.h"
#include "window/IntervalTimer.h"
#include "window/guardedSlot.h"

#include <QApplication>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST(FormModal, OneThatFollowsAtOnceStandsAboveTheSameForm)
{
    SampleForm main("frmMain");
    main.showModeless();
    ASSERT_TRUE(waitUntil([&] { return main.isActiveWindow(); }));
    SampleForm first("frmFirst");
    whenActive(first, [&] { first.hide(); });
    first.showModal();
    for (int i = 0; i < 2; ++i) {
        SampleForm next("frmNext");
        whenActive(next, [&] {
            EXPECT_EQ(next.windowHandle()->transientParent(), main.windowHandle());
            next.hide();
        });
        next.showModal();
        next.unload();
    }
    first.unload();
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

} // namespace
} // namespace zorvo
