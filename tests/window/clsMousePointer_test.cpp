#include "tests/window/WindowTest.h"
#include "window/MainFormGate.h"
#include "window/clsMousePointer.h"

#include <QApplication>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingGate : public MainFormGate {
public:
    bool isEnabled() override
    {
        ++nAsked;
        return bEnabled;
    }
    void setEnabled(bool b) override
    {
        bEnabled = b;
        calls.push_back(b ? "enabled" : "disabled");
        pointerThen.push_back(screenPointer());
    }

    std::vector<std::string> calls;
    std::vector<int> pointerThen;
    int nAsked = 0;
    bool bEnabled = true;
};

class MousePointer : public testing::Test {
protected:
    MousePointer() { mainFormGate() = &gate_; }
    ~MousePointer() override { mainFormGate() = nullptr; }

    static Qt::CursorShape shape()
    {
        return QGuiApplication::overrideCursor() ? QGuiApplication::overrideCursor()->shape()
                                                 : Qt::ArrowCursor;
    }

    RecordingGate gate_;
    clsMousePointer pointer_;
};

TEST_F(MousePointer, ShowsTheHourglassAndDisablesTheMainForm)
{
    pointer_.setMousePointer(11);
    EXPECT_EQ(pointer_.MousePointer(), 11);
    EXPECT_EQ(screenPointer(), 11);
    EXPECT_EQ(shape(), Qt::WaitCursor);
    EXPECT_THAT(gate_.calls, ElementsAre("disabled"));
}

TEST_F(MousePointer, ShowsTheArrowWithHourglass)
{
    pointer_.setMousePointer(13);
    EXPECT_EQ(pointer_.MousePointer(), 13);
    EXPECT_EQ(shape(), Qt::BusyCursor);
}

TEST_F(MousePointer, DisablesTheMainFormAheadOfThePointer)
{
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(0);
    EXPECT_THAT(gate_.calls, ElementsAre("disabled", "enabled"));
    EXPECT_THAT(gate_.pointerThen, ElementsAre(0, 0));
}

TEST_F(MousePointer, KeepsTheHourglassUntilTheLastRelease)
{
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(0);
    EXPECT_EQ(pointer_.MousePointer(), 11);
    EXPECT_FALSE(gate_.bEnabled);
    pointer_.setMousePointer(0);
    EXPECT_EQ(pointer_.MousePointer(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(gate_.bEnabled);
}

TEST_F(MousePointer, KeepsThePointerOfTheFirstRequest)
{
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(13);
    EXPECT_EQ(pointer_.MousePointer(), 11);
    EXPECT_EQ(shape(), Qt::WaitCursor);
}

TEST_F(MousePointer, TakesEveryOtherValueAsARelease)
{
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(99);
    EXPECT_EQ(pointer_.MousePointer(), 0);
}

TEST_F(MousePointer, IgnoresReleasesBeyondTheCount)
{
    pointer_.setMousePointer(0);
    pointer_.setMousePointer(0);
    EXPECT_THAT(gate_.calls, IsEmpty());
    EXPECT_EQ(gate_.nAsked, 0);
    pointer_.setMousePointer(11);
    EXPECT_EQ(pointer_.MousePointer(), 11);
}

TEST_F(MousePointer, ClearReleasesAll)
{
    for (int i = 0; i < 3; ++i)
        pointer_.setMousePointer(11);
    pointer_.ClearMousePointer();
    EXPECT_EQ(pointer_.MousePointer(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(gate_.bEnabled);
}

TEST_F(MousePointer, LeavesTheMainFormAloneInTheModalState)
{
    pointer_.SetModalDialogState(true);
    pointer_.setMousePointer(11);
    pointer_.setMousePointer(0);
    EXPECT_EQ(gate_.nAsked, 0);
    pointer_.SetModalDialogState(false);
    pointer_.setMousePointer(11);
    EXPECT_EQ(gate_.nAsked, 1);
}

TEST_F(MousePointer, SetsNoStateThatTheMainFormHas)
{
    gate_.bEnabled = false;
    pointer_.setMousePointer(11);
    EXPECT_THAT(gate_.calls, IsEmpty());
}

TEST_F(MousePointer, WorksWithoutAMainForm)
{
    mainFormGate() = nullptr;
    pointer_.setMousePointer(11);
    EXPECT_EQ(screenPointer(), 11);
    pointer_.setMousePointer(0);
    EXPECT_EQ(screenPointer(), 0);
}

TEST_F(MousePointer, GoesBackToTheDefaultWithItsOwner)
{
    {
        clsMousePointer other;
        other.setMousePointer(11);
    }
    EXPECT_EQ(screenPointer(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(MousePointer, IsOneForTheWholeProgram)
{
    EXPECT_EQ(&goMousePointer(), &goMousePointer());
}

TEST_F(MousePointer, TheScreenKeepsAValueThatIsNoBusyOne)
{
    setScreenPointer(99);
    EXPECT_EQ(screenPointer(), 99);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    setScreenPointer(11);
    setScreenPointer(13);
    setScreenPointer(0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace zorvo
