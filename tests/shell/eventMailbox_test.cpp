#include "shell/eventMailbox.h"

#include "base/RunTimeError.h"
#include "tests/shell/RecordingForms.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

class EventMailboxTest : public testing::Test {
protected:
    EventMailboxTest()
    {
        shellState() = ShellState();
        shellState().forms = &forms;
    }
    ~EventMailboxTest() override { shellState() = ShellState(); }

    void fire(int nInterval)
    {
        forms.bSplashUp = true;
        forms.nInterval = nInterval;
        handleEventTimer(forms);
    }

    RecordingForms forms;
};

TEST_F(EventMailboxTest, RaiseMakesTheWindowTopMostAndAsksForTheEndOfIt)
{
    fire(252);
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 0", "topmost", "tmEvent 250"));
}

TEST_F(EventMailboxTest, TheEndOfARaiseTakesTopMostOff)
{
    fire(250);
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 0", "not topmost"));
}

TEST_F(EventMailboxTest, FifteenHundredUnloadsTheMainForm)
{
    fire(1500);
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 0", "unload"));
}

TEST_F(EventMailboxTest, AnyOtherNumberUnloadsTheSplash)
{
    fire(2000);
    fire(1);
    EXPECT_THAT(forms.journal, ElementsAre("tmEvent 0", "unload splash", "tmEvent 0", "unload splash"));
}

TEST_F(EventMailboxTest, AFailureToUnloadTheSplashIsIgnored)
{
    forms.splashFailure = [] { throw RunTimeError(kObjectNotSet); };
    EXPECT_NO_THROW(fire(2000));
}

} // namespace
} // namespace zorvo
