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
    OpenContactUs();
    EXPECT_EQ(lastOpened(), "http://contact.example|1|1");
}

TEST_F(WebPagesTest, TourAndAccountOpenFromTheRoot)
{
    xmlCaptionLoader();
    ZorvoQuickTour();
    EXPECT_EQ(lastOpened(), "http://tour.example||C:\\");
    ZorvoMyAccount();
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
    ZorvoQuickTour();
    setFailureReporter(before);
    EXPECT_FALSE(bReported);
}

} // namespace
} // namespace zorvo
