#include "tests/window/WindowTest.h"
#include "window/StatusPanels.h"

#include <QDateTime>
#include <QLocale>
#include <QVBoxLayout>
#include <QWindow>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

class StatusPanelsTest : public testing::Test {
protected:
    StatusPanelsTest()
        : bar_("sbZorvoBrendle", &window_)
    {
        auto* layout = new QVBoxLayout(&window_);
        layout->addWidget(&bar_);
        window_.resize(800, 100);
    }

    void buildSix()
    {
        for (int i = 0; i < 5; ++i)
            bar_.addPanel();
        const PanelStyle styles[] = {PanelStyle::date, PanelStyle::time, PanelStyle::caps, PanelStyle::num,
                                     PanelStyle::insert};
        for (int nPanel = 2; nPanel <= 6; ++nPanel) {
            bar_.setPanelStyle(nPanel, styles[nPanel - 2]);
            bar_.setAlignment(nPanel, Qt::AlignHCenter);
            bar_.setAutoSize(nPanel, PanelAutoSize::contents);
            bar_.setWidth(nPanel, 240);
        }
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    /// As a desktop sends it: to the window, not to a widget.
    void pressKey(Qt::Key key) { QTest::keyClick(window_.windowHandle(), key); }

    QWidget window_;
    StatusPanels bar_;
};

TEST_F(StatusPanelsTest, ComesWithOneTextPanel)
{
    EXPECT_EQ(bar_.count(), 1);
    EXPECT_EQ(bar_.addPanel(), 2);
    EXPECT_EQ(errorNumberOf([&] { bar_.panel(0); }), 9);
    EXPECT_EQ(errorNumberOf([&] { bar_.setText(3, {}); }), 9);
}

TEST_F(StatusPanelsTest, TheFirstPanelTakesAllTheRoomUntilItHasAWidth)
{
    buildSix();
    QCoreApplication::processEvents();
    EXPECT_GT(bar_.panel(1).width(), 300);
    bar_.setWidth(1, 3000);
    EXPECT_TRUE(waitUntil([&] { return bar_.panel(1).width() == 200; }));
    EXPECT_EQ(bar_.panelWidth(1), 3000);
    window_.resize(1200, 100);
    QCoreApplication::processEvents();
    EXPECT_EQ(bar_.panel(1).width(), 200);
}

TEST_F(StatusPanelsTest, PanelsStandInOrderAndFitTheirContents)
{
    buildSix();
    QCoreApplication::processEvents();
    for (int nPanel = 2; nPanel <= 6; ++nPanel) {
        EXPECT_GT(bar_.panel(nPanel).x(), bar_.panel(nPanel - 1).x());
        EXPECT_GE(bar_.panel(nPanel).width(),
                  bar_.panel(nPanel).fontMetrics().horizontalAdvance(bar_.panel(nPanel).text()));
        EXPECT_TRUE(bar_.panel(nPanel).isVisible());
    }
}

TEST_F(StatusPanelsTest, ALongTextDoesNotWidenTheWindow)
{
    buildSix();
    const int nLeast = window_.minimumSizeHint().width();
    bar_.setText(QString(500, u'x'));
    EXPECT_EQ(window_.minimumSizeHint().width(), nLeast);
    EXPECT_LT(bar_.panel(6).geometry().right(), bar_.width());
}

TEST_F(StatusPanelsTest, KeepsTextAsGiven)
{
    bar_.setText(QStringLiteral(" Please wait . ."));
    EXPECT_EQ(bar_.text(), QStringLiteral(" Please wait . ."));
    EXPECT_EQ(bar_.panel(1).text(), QStringLiteral(" Please wait . ."));
}

TEST_F(StatusPanelsTest, AHintStandsInPlaceOfTheTextForATime)
{
    bar_.setText(QStringLiteral("own"));
    bar_.showHint(QStringLiteral("hint"));
    EXPECT_EQ(bar_.panel(1).text(), QStringLiteral("hint"));
    EXPECT_EQ(bar_.text(), QStringLiteral("own"));
    bar_.showHint({});
    EXPECT_EQ(bar_.panel(1).text(), QStringLiteral("own"));
}

TEST_F(StatusPanelsTest, ANewTextTakesTheHintsPlaceAndAnEmptyOneLeavesIt)
{
    bar_.showHint(QStringLiteral("hint"));
    bar_.setText(QStringLiteral("new"));
    EXPECT_EQ(bar_.panel(1).text(), QStringLiteral("new"));
    bar_.showHint(QStringLiteral("hint"));
    bar_.setText({});
    EXPECT_EQ(bar_.panel(1).text(), QStringLiteral("hint"));
}

TEST_F(StatusPanelsTest, EveryPanelHasANameOfItsOwn)
{
    buildSix();
    EXPECT_EQ(accessibleText(bar_.panel(1)), "Status");
    bar_.setText(QStringLiteral("Ready"));
    EXPECT_EQ(accessibleText(bar_.panel(1)), "Ready");
    EXPECT_THAT(accessibleText(bar_.panel(4)), testing::HasSubstr("Caps"));
    EXPECT_THAT(accessibleText(bar_.panel(5)), testing::HasSubstr("Num"));
    EXPECT_THAT(accessibleText(bar_.panel(6)), testing::HasSubstr("Ins"));
    EXPECT_NE(accessibleText(bar_.panel(2)), "");
    EXPECT_NE(accessibleText(bar_.panel(3)), "");
    EXPECT_EQ(accessibleRole(bar_), QAccessible::StatusBar);
}

TEST_F(StatusPanelsTest, ShowsDateAndTimeInTheLocalesShortForm)
{
    buildSix();
    const QLocale locale = QLocale::system();
    const auto timeNow = [&] { return locale.toString(QTime::currentTime(), QLocale::ShortFormat); };
    EXPECT_TRUE(waitUntil([&] { return bar_.panel(3).text() == timeNow(); }));
    EXPECT_EQ(bar_.panel(2).text(), locale.toString(QDate::currentDate(), QLocale::ShortFormat));
}

TEST_F(StatusPanelsTest, TheClockGoesOn)
{
    buildSix();
    if (!QLocale::system().timeFormat(QLocale::ShortFormat).contains(u's'))
        GTEST_SKIP() << "the locale's short time has no seconds, so its next text is up to a minute away";
    const QString before = bar_.panel(3).text();
    EXPECT_TRUE(waitUntil([&] { return bar_.panel(3).text() != before; }));
}

TEST_F(StatusPanelsTest, ALockThatIsOffIsDimmedByHalfAlsoWhileTheWindowIsLocked)
{
    QPalette desktop;
    desktop.setColor(QPalette::Active, QPalette::WindowText, QColor(0xEF, 0xF0, 0xF1));
    desktop.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x40, 0x40, 0x40));
    bar_.setPalette(desktop);
    bar_.setEnabled(false);
    const int nPanel = bar_.addPanel();
    bar_.setPanelStyle(nPanel, PanelStyle::insert);
    QColor shown = bar_.panel(nPanel).palette().color(QPalette::Active, QPalette::WindowText);
    EXPECT_NEAR(shown.alphaF(), 0.5, 0.01);
    shown.setAlpha(255);
    EXPECT_EQ(shown, QColor(0xEF, 0xF0, 0xF1));
}

TEST_F(StatusPanelsTest, LocksFollowTheKeys)
{
    buildSix();
    EXPECT_EQ(accessibleText(bar_.panel(4)), "Caps Lock off");
    pressKey(Qt::Key_CapsLock);
    EXPECT_EQ(accessibleText(bar_.panel(4)), "Caps Lock on");
    EXPECT_EQ(accessibleText(bar_.panel(5)), "Num Lock off");
    pressKey(Qt::Key_NumLock);
    pressKey(Qt::Key_Insert);
    EXPECT_EQ(accessibleText(bar_.panel(5)), "Num Lock on");
    EXPECT_EQ(accessibleText(bar_.panel(6)), "Insert on");
    pressKey(Qt::Key_CapsLock);
    EXPECT_EQ(accessibleText(bar_.panel(4)), "Caps Lock off");
}

} // namespace
} // namespace zorvo
