#include "platform/linux/PageProcess.h"

#include "tests/support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <gmock/gmock.h>

#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <vector>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecordingListener : public PageListener {
public:
    void pageFinished(const std::string& sAddress) override { events.push_back("finished " + sAddress); }
    void pageFailed(const std::string& sAddress) override { events.push_back("failed " + sAddress); }
    void pageStopped() override { events.emplace_back("stopped"); }
    void pageFocusChanged(bool bHasFocus) override
    {
        events.emplace_back(bHasFocus ? "focus in" : "focus out");
    }
    void pageLeft(bool bForward) override { events.emplace_back(bForward ? "left forward" : "left back"); }
    void pageGone(bool bEverUp) override { events.emplace_back(bEverUp ? "gone" : "never up"); }

    std::vector<std::string> events;
};

/// A stand-in for the engine: a script that speaks its part.
class PageProcessTest : public testing::Test {
protected:
    /// `sBody` runs with the standard streams of the page process.
    std::unique_ptr<Page> start(const std::string& sBody)
    {
        const std::string sProgram = folder / "engine";
        putFile(sProgram, "#!/bin/bash\necho $$ > '" + (folder / "pid") + "'\n" + sBody);
        chmod(sProgram.c_str(), 0755);
        return PageProcesses(DosPaths(folder / "data"), sProgram).open(listener, bAccessible);
    }
    /// Echoes every line that comes in to a file, and answers as `sCase` (a case of the word) says.
    std::unique_ptr<Page> speak(const std::string& sCase = {})
    {
        return start("echo hello 1\nwhile read -r word number rest; do echo \"$word $number $rest\" >> '" +
                     (folder / "heard") + "'\ncase $word in\n" + sCase + "\nesac\ndone\n");
    }
    bool waitUntil(const std::function<bool()>& condition)
    {
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.hasExpired(10000))
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return true;
    }
    bool waitForEvents(std::size_t nCount)
    {
        return waitUntil([&] { return listener.events.size() >= nCount; });
    }
    std::string heard() const { return fileBytes(folder / "heard"); }
    int pid()
    {
        waitUntil([this] { return !fileBytes(folder / "pid").empty(); });
        return std::stoi(fileBytes(folder / "pid"));
    }

    TemporaryFolder folder;
    RecordingListener listener;
    bool bAccessible = false;
};

TEST_F(PageProcessTest, WithoutTheProgramThereIsNoPage)
{
    EXPECT_EQ(PageProcesses(DosPaths(folder / "data"), folder / "none").open(listener, bAccessible), nullptr);
    putFile(folder / "engine", "no program");
    EXPECT_EQ(PageProcesses(DosPaths(folder / "data"), folder / "engine").open(listener, bAccessible),
              nullptr);
}

TEST_F(PageProcessTest, AssistiveProgramsAreServedWhenThereAreAny)
{
    const auto arguments = [this] {
        const std::string sFile = folder / "arguments";
        std::filesystem::remove(sFile);
        const auto page = start("echo \"<$*>\" > '" + sFile + "'\nread -r line\n");
        waitUntil([&] { return fileBytes(sFile).ends_with("\n"); });
        return fileBytes(sFile);
    };
    EXPECT_EQ(arguments(), "<>\n");
    bAccessible = true;
    EXPECT_EQ(arguments(), "<--accessible>\n");
}

TEST_F(PageProcessTest, APageOfTheMachineTravelsAsANativeAddressAndComesBackAsGiven)
{
    std::filesystem::create_directories(folder / "HTML");
    putFile(folder / "HTML/Audit One.htm", "x");
    const auto page = speak("navigate) echo finished $number $rest;;");
    const std::string sAddress = "file://Z:" + (folder / "html") + "\\audit one.HTM";
    page->navigate(sAddress);
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_EQ(heard(), "navigate 1 file://" + (folder / "HTML") + "/Audit%20One.htm\n");
    EXPECT_THAT(listener.events, ElementsAre("finished " + sAddress));
}

TEST_F(PageProcessTest, AnAddressThatALinkLedToComesBackInTheProgramsForm)
{
    const auto page = speak("navigate) echo finished $number file:///usr/share/B%20b.htm;\n"
                            "echo failed $number https://www.zorvo.example/%C3%A9?a=b%20c;;");
    page->navigate("https://www.zorvo.example/");
    ASSERT_TRUE(waitForEvents(2));
    EXPECT_THAT(listener.events, ElementsAre("finished file://Z:\\usr\\share\\B b.htm",
                                             "failed https://www.zorvo.example/%C3%A9?a=b%20c"));
}

TEST_F(PageProcessTest, WhatBecomesOfAPageThatIsNoLongerAskedForIsntTold)
{
    const auto page =
        speak("navigate) if [ $number = 2 ]; then echo finished 1 http://old/; echo stopped 1;\n"
              "echo failed 1 http://old/; echo finished 2 http://new/; fi;;");
    page->navigate("http://old/");
    page->navigate("http://new/");
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_THAT(listener.events, ElementsAre("finished http://new/"));
}

TEST_F(PageProcessTest, EverythingElseIsPassedOn)
{
    const auto page = speak("block) echo focus-in; echo focus-out; echo leave next; echo leave previous;\n"
                            "echo stopped 0; echo nonsense; echo; echo finished;;");
    page->showIn(4711);
    page->resize(30, 40);
    page->takeFocus(Page::Enter::first);
    page->takeFocus(Page::Enter::last);
    page->takeFocus(Page::Enter::same);
    page->setBlocked(false);
    page->setBlocked(true);
    ASSERT_TRUE(waitForEvents(5));
    EXPECT_EQ(heard(), "show-in 4711 \nsize 30 40\ntake-focus first \ntake-focus last \ntake-focus same "
                       "\nunblock  \nblock  \n");
    EXPECT_THAT(listener.events,
                ElementsAre("focus in", "focus out", "left forward", "left back", "stopped"));
}

TEST_F(PageProcessTest, AProcessOfAnotherVersionIsEndedAndWasNeverUp)
{
    const auto page = start("echo hello 2\nread -r line\n");
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_THAT(listener.events, ElementsAre("never up"));
}

TEST_F(PageProcessTest, AProcessThatEndsAtOnceWasNeverUp)
{
    const auto page = start("exit 1\n");
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_THAT(listener.events, ElementsAre("never up"));
}

TEST_F(PageProcessTest, ACrashIsTold)
{
    const auto page = speak("navigate) kill -SEGV $$;;");
    page->navigate("http://a/");
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_THAT(listener.events, ElementsAre("gone"));
    page->navigate("http://b/"); // nobody is there
}

TEST_F(PageProcessTest, AnEndlessLineEndsTheProcess)
{
    const auto page = start("echo hello 1\nhead -c 200000 /dev/zero | tr '\\0' x\nread -r line\n");
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_THAT(listener.events, ElementsAre("gone"));
}

TEST_F(PageProcessTest, TheProcessEndsWithThePageAndNothingIsToldOfIt)
{
    auto page = speak();
    const int nProcess = pid();
    page.reset();
    EXPECT_NE(kill(nProcess, 0), 0);
    EXPECT_THAT(listener.events, IsEmpty());
}

TEST_F(PageProcessTest, AProcessThatDoesntWantToEndIsEnded)
{
    auto page = start("trap '' TERM\necho hello 1\nwhile true; do sleep 0.1; done\n");
    const int nProcess = pid();
    page.reset();
    EXPECT_NE(kill(nProcess, 0), 0);
}

} // namespace
} // namespace zorvo
