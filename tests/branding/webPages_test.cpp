#include "branding/webPages.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

class WebPagesTest : public testing::Test {
protected:
    WebPagesTest()
    {
        sessionState() = SessionState();
        ReleaseCaptions();
        fakes.files->addFile("C:\\Zorvo\\xmlCaptions.xml", R"(<Captions><Web>
            <ContactUs>http://contact.example</ContactUs><OnTheWeb1>http://faq.example</OnTheWeb1>
            <OnTheWeb2>http://first.example</OnTheWeb2><OnTheWeb3>http://second.example</OnTheWeb3>
            <QuickTour>http://tour.example</QuickTour><MyAccount>http://account.example</MyAccount>
            </Web></Captions>)");
    }
    ~WebPagesTest() override { ReleaseCaptions(); }

    /// What the launcher was asked last: address|parameters|directory.
    std::string lastOpened() const
    {
        const auto& opened = fakes.launcher->opened.back();
        return opened.sTarget + "|" + opened.sParameters + "|" + opened.sDirectory;
    }

    const FakePlatform fakes;
};

TEST_F(WebPagesTest, TheContactLinkGivesItsOwnParametersAndFolder)
{
    xmlCaptionLoader();
    OpenContactUs(7);
    EXPECT_EQ(lastOpened(), "http://contact.example|1|1");
}

TEST_F(WebPagesTest, TourAndAccountOpenFromTheRoot)
{
    xmlCaptionLoader();
    ZorvoQuickTour(7);
    EXPECT_EQ(lastOpened(), "http://tour.example||C:\\");
    ZorvoMyAccount(7);
    EXPECT_EQ(lastOpened(), "http://account.example||C:\\");
    EXPECT_EQ(fakes.launcher->opened.back().show, Launcher::Show::normal);
}

TEST_F(WebPagesTest, WithNeitherArgumentTheFirstPageOpens)
{
    xmlCaptionLoader();
    ZorvoOnTheWeb();
    EXPECT_EQ(lastOpened(), "http://first.example||C:\\");
}

TEST_F(WebPagesTest, OnlyThePresenceOfTheFirstArgumentCounts)
{
    xmlCaptionLoader();
    ZorvoOnTheWeb(true);
    EXPECT_EQ(lastOpened(), "http://second.example||C:\\");
    ZorvoOnTheWeb(false);
    EXPECT_EQ(lastOpened(), "http://second.example||C:\\");
}

TEST_F(WebPagesTest, AnAddressWinsWhateverTheFirstArgument)
{
    xmlCaptionLoader();
    ZorvoOnTheWeb({}, "http://faq.example");
    EXPECT_EQ(lastOpened(), "http://faq.example||C:\\");
    ZorvoOnTheWeb(true, "http://faq.example");
    EXPECT_EQ(lastOpened(), "http://faq.example||C:\\");
}

TEST_F(WebPagesTest, AnEmptyAddressIsAGivenOne)
{
    xmlCaptionLoader();
    ZorvoOnTheWeb({}, "");
    EXPECT_EQ(lastOpened(), "||C:\\");
}

TEST_F(WebPagesTest, WithNoCaptionDocumentTheAddressIsEmptyAndNothingIsReported)
{
    bool bReported = false;
    const FailureReporter before =
        setFailureReporter([&bReported](const auto&, const auto&, const auto&) { bReported = true; });
    ZorvoOnTheWeb();
    setFailureReporter(before);
    EXPECT_EQ(lastOpened(), "||C:\\");
    EXPECT_FALSE(bReported);
}

TEST_F(WebPagesTest, ACodeOfFailureFromTheLauncherIsNotLookedAt)
{
    fakes.launcher->nOpenResult = 2;
    bool bReported = false;
    const FailureReporter before =
        setFailureReporter([&bReported](const auto&, const auto&, const auto&) { bReported = true; });
    ZorvoQuickTour(7);
    setFailureReporter(before);
    EXPECT_FALSE(bReported);
}

TEST_F(WebPagesTest, TheMainWindowAsksForItsOwnPagesAndNoWindowForTheOthers)
{
    OpenContactUs(7);
    ZorvoQuickTour(7);
    ZorvoMyAccount(7);
    ZorvoOnTheWeb();
    std::vector<std::uintptr_t> windows;
    for (const auto& each : fakes.launcher->opened)
        windows.push_back(each.ownerWindow);
    EXPECT_EQ(windows, (std::vector<std::uintptr_t>{7, 7, 7, 0}));
}

TEST_F(WebPagesTest, AFailureOfTheLauncherIsReportedWithEachLaunchersOwnTag)
{
    fakes.launcher->nFailOpen = kPermissionDenied;
    std::vector<std::string> tags;
    const FailureReporter before = setFailureReporter([&tags](const auto& sTag, const auto&, const auto&) {
        tags.push_back(sTag.value_or("") + " " + std::to_string(gnErrNumber));
    });
    OpenContactUs(7);
    ZorvoQuickTour(7);
    ZorvoMyAccount(7);
    ZorvoOnTheWeb();
    setFailureReporter(before);
    EXPECT_EQ(tags, (std::vector<std::string>{
                        "TemplateTree.linkContactUs_Click 70", "TemplateTree.ZorvoQuickTour 70",
                        "TemplateTree.ZorvoMyAccount 70", "basZorvoBrendle.ZorvoOnTheWeb 70"}));
}

} // namespace
} // namespace zorvo
