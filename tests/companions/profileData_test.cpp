#include "companions/profileData.h"

#include "companions/profileDialog.h"
#include "companions/profileStore.h"
#include "tests/fakes/FakeSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

ProfileData client(const std::string& sName, const std::string& sReviewer = "R")
{
    return {{kClientName, sName}, {kReviewedBy, sReviewer}};
}

TEST(ProfileText, ComesBackAsItWent)
{
    const ProfileData profile = {{kClientName, "Fröhlich & Co = Söhne"}, {kPeriodEnd, "31.12.2026"}};
    EXPECT_EQ(profileText(profile), "ClientName=Fröhlich & Co = Söhne\nPeriodEnd=31.12.2026\n");
    EXPECT_EQ(parseProfile(profileText(profile)), profile);
}

TEST(ProfileText, HoldsNoFieldWithoutAValueAndNoBreakInsideOne)
{
    EXPECT_EQ(profileText({{kClientName, " a\r\nb "}, {kPeriodEnd, ""}, {kPreparedBy, "  "}}),
              "ClientName=a  b\n");
}

TEST(ProfileText, PassesOverWhatIsNoField)
{
    EXPECT_EQ(parseProfile("\r\n# ClientName=no\r\nno pair\r\n =value\r\n  ClientName =  A \r\n"),
              (ProfileData{{kClientName, "A"}}));
    EXPECT_THAT(parseProfile(""), IsEmpty());
}

TEST(ProfileText, AnEmptyValueIsAField)
{
    EXPECT_EQ(parseProfile("PeriodEnd="), (ProfileData{{kPeriodEnd, ""}}));
}

TEST(ProfileText, TheLastValueOfAFieldHolds)
{
    EXPECT_EQ(parseProfile("ClientName=A\nPeriodEnd=P\nclient name=B"),
              (ProfileData{{kClientName, "B"}, {kPeriodEnd, "P"}}));
}

TEST(ProfileText, KnowsTheFieldsByOtherWaysOfWritingThem)
{
    EXPECT_EQ(parseProfile("CLIENT_NAME=1\nperiod-end=2\nPreparer=3\nreviewer=4\nengagement type=5"),
              (ProfileData{{kClientName, "1"},
                           {kPeriodEnd, "2"},
                           {kPreparedBy, "3"},
                           {kReviewedBy, "4"},
                           {kEngagementType, "5"}}));
}

TEST(ProfileText, AnotherNameStaysAsItIs)
{
    EXPECT_EQ(parseProfile("File No.=17"), (ProfileData{{"File No.", "17"}}));
    EXPECT_EQ(profileValue(parseProfile("File No.=17"), "File No."), "17");
    EXPECT_EQ(profileValue({}, kClientName), "");
}

TEST(ProfileStore, GivesTheLastOneFirst)
{
    FakeSettings settings;
    EXPECT_THAT(storedProfiles(settings), IsEmpty());
    storeProfile(settings, client("A"));
    storeProfile(settings, client("B"));
    EXPECT_THAT(storedProfiles(settings), ElementsAre(client("B"), client("A")));
}

TEST(ProfileStore, KeepsOneProfileOfAClient)
{
    FakeSettings settings;
    storeProfile(settings, client("A"));
    storeProfile(settings, client("B"));
    storeProfile(settings, client("A", "new"));
    EXPECT_THAT(storedProfiles(settings), ElementsAre(client("A", "new"), client("B")));
}

TEST(ProfileStore, ForgetsTheOldest)
{
    FakeSettings settings;
    for (int n = 0; n <= kMostProfiles; ++n)
        storeProfile(settings, client(std::to_string(n)));
    const auto stored = storedProfiles(settings);
    ASSERT_THAT(stored, SizeIs(kMostProfiles));
    EXPECT_EQ(stored.front(), client(std::to_string(kMostProfiles)));
    EXPECT_EQ(stored.back(), client("1"));
    EXPECT_EQ(settings.get("ZorvoTSR", "Profiles", "Profile" + std::to_string(kMostProfiles + 1)),
              std::nullopt);
}

TEST(ProfileStore, WritesOnlyWhatHasChanged)
{
    FakeSettings settings;
    storeProfile(settings, client("A"));
    settings.written.clear();
    storeProfile(settings, client("A"));
    EXPECT_THAT(settings.written, IsEmpty());
}

TEST(ProfileDialogJson, CarriesQuestionAndAnswer)
{
    const ProfileQuestion question = profileQuestion(toJson(ProfileQuestion{"C:\\Öl \"x\"", 15, -30}));
    EXPECT_EQ(question.sFolder, "C:\\Öl \"x\"");
    EXPECT_EQ(question.nTop, 15);
    EXPECT_EQ(question.nLeft, -30);
    const ProfileAnswer answer = profileAnswer(toJson(ProfileAnswer{"ClientName=Ä\n", "C:\\x\\", 1, 2}));
    EXPECT_EQ(answer.sProfile, "ClientName=Ä\n");
    EXPECT_EQ(answer.sFolder, "C:\\x\\");
    EXPECT_EQ(answer.nTop, 1);
    EXPECT_EQ(answer.nLeft, 2);
}

TEST(ProfileDialogJson, OfNonsenseIsAnAnswerWithoutAProfile)
{
    EXPECT_EQ(profileAnswer("nonsense").sProfile, "");
    EXPECT_EQ(profileAnswer("").sProfile, "");
}

} // namespace
} // namespace zorvo
