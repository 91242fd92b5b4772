#include "window/Form.h"

#include "tests/window/SampleForm.h"

#include <QApplication>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
} // namespace zorvo
