#include "companions/ProfileForm.h"

#include "companions/profileDialog.h"
#include "companions/profileStore.h"
#include "tests/fakes/installFakePlatform.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

const ProfileData kFirst = {{kClientName, "Alder Ltd."},
                            {kPeriodEnd, "June 30, 2026"},
                            {kEngagementType, "Review"},
                            {kPreparedBy, "P. Moss"},
                            {kReviewedBy, "R. Fern"}};
const ProfileData kSecond = {{kClientName, "Birch Inc."}};

template <typename Control>
Control& control(QWidget& form, const char* name)
{
    return *form.findChild<Control*>(QString::fromLatin1(name));
}

std::string textOf(QWidget& form, const char* name)
{
    return control<QLineEdit>(form, name).text().toStdString();
}

TEST(ProfileForm, BeginsWithTheProfileThatWasUsedLast)
{
    ProfileForm form({kFirst, kSecond}, "/home/user/out");
    EXPECT_EQ(form.profile(), kFirst);
    EXPECT_EQ(control<QLabel>(form, "lblFolderPath").text(), QStringLiteral("/home/user/out"));
    EXPECT_TRUE(control<QPushButton>(form, "cmdOK").isEnabled());
    EXPECT_TRUE(control<QPushButton>(form, "cmdOK").isDefault());
    EXPECT_EQ(form.focusWidget(), &control<QLineEdit>(form, "txtClientName"));
    EXPECT_EQ(control<QLineEdit>(form, "txtClientName").selectedText(), QStringLiteral("Alder Ltd."));
}

TEST(ProfileForm, ShowsALongFolderWhole)
{
    for (const std::string sFolder :
         {"/home/user/Documents", "/home/somebody/Documents/Clients and their files/Larkspur Orchards "
                                  "Limited/2007/Audit/Planning/Documents made"}) {
        ProfileForm form({}, sFolder);
        form.show();
        const auto& folder = control<QLabel>(form, "lblFolderPath");
        EXPECT_GE(folder.height(), folder.heightForWidth(folder.width()));
        EXPECT_EQ(folder.width(), control<QLineEdit>(form, "txtClientName").width());
    }
}

TEST(ProfileForm, TakesAnotherRememberedProfileWhole)
{
    ProfileForm form({kFirst, kSecond}, "");
    auto& list = control<QComboBox>(form, "cboProfile");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.itemText(0), QStringLiteral("Alder Ltd., June 30, 2026"));
    EXPECT_EQ(list.itemText(1), QStringLiteral("Birch Inc."));
    list.setCurrentIndex(1);
    Q_EMIT list.activated(1);
    EXPECT_EQ(form.profile(), kSecond);
    EXPECT_EQ(textOf(form, "txtReviewedBy"), "");
}

TEST(ProfileForm, HasNoListWhileNothingIsRemembered)
{
    ProfileForm form({}, "");
    form.show();
    EXPECT_FALSE(control<QComboBox>(form, "cboProfile").isVisible());
    EXPECT_TRUE(control<QLineEdit>(form, "txtClientName").hasFocus() || !form.isActiveWindow());
}

TEST(ProfileForm, CannotBeConfirmedWithoutAClient)
{
    ProfileForm form({}, "");
    auto& ok = control<QPushButton>(form, "cmdOK");
    EXPECT_FALSE(ok.isEnabled());
    control<QLineEdit>(form, "txtClientName").setText(QStringLiteral("  "));
    EXPECT_FALSE(ok.isEnabled());
    control<QLineEdit>(form, "txtClientName").setText(QStringLiteral(" Alder "));
    EXPECT_TRUE(ok.isEnabled());
    EXPECT_EQ(form.profile(), (ProfileData{{kClientName, "Alder"}}));
}

TEST(ProfileForm, TakesAnyTypeOfEngagement)
{
    ProfileForm form({kSecond}, "");
    auto& type = control<QComboBox>(form, "cboEngagementType");
    EXPECT_GE(type.findText(QStringLiteral("Audit")), 0);
    type.setCurrentText(QStringLiteral("Special purpose"));
    EXPECT_EQ(profileValue(form.profile(), kEngagementType), "Special purpose");
}

TEST(ProfileForm, GivesEveryFieldANameThatIsRead)
{
    ProfileForm form({kFirst}, "");
    for (const char* name : {"cboProfile", "txtClientName", "txtPeriodEnd", "cboEngagementType",
                             "txtPreparedBy", "txtReviewedBy", "cmdOK", "cmdCancel"})
        EXPECT_FALSE(control<QWidget>(form, name).accessibleName().isEmpty()) << name;
}

TEST(ProfileForm, StandsWhereItIsToldAndAlwaysOnTheScreen)
{
    ProfileForm form({}, "");
    form.moveToTwips(300, 600);
    EXPECT_EQ(form.pos(), QPoint(40, 20));
    form.moveToTwips(1'000'000, -1'000'000);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(form.pos()));
    form.moveToTwips(-15, 1'000'000);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(form.pos()));
}

class AskProfile : public testing::Test {
protected:
    /// Asks, and does something with the form once it is up.
    static ProfileAnswer ask(const std::function<void(ProfileForm&)>& act)
    {
        QTimer::singleShot(0, qApp, [act] {
            auto* form = qobject_cast<ProfileForm*>(QApplication::activeModalWidget());
            if (form) {
                act(*form);
                return;
            }
            ADD_FAILURE() << "the form is not modal";
            for (QWidget* window : QApplication::topLevelWidgets())
                window->close();
        });
        return askProfile({"C:\\Out", 150, 300});
    }

    FakePlatform fakes;
};

TEST_F(AskProfile, OkGivesTheDataAndTheFolderReadyForAName)
{
    const ProfileAnswer answer = ask([](ProfileForm& form) {
        EXPECT_EQ(control<QLabel>(form, "lblFolderPath").text(), QStringLiteral("/fake/drive_c/Out"));
        control<QLineEdit>(form, "txtClientName").setText(QStringLiteral("Alder"));
        control<QPushButton>(form, "cmdOK").click();
    });
    EXPECT_EQ(answer.sProfile, "ClientName=Alder\n");
    EXPECT_EQ(answer.sFolder, "C:\\Out\\");
    EXPECT_EQ(answer.nTop, 150);
    EXPECT_EQ(answer.nLeft, 300);
    EXPECT_THAT(storedProfiles(*fakes.settings), testing::ElementsAre(ProfileData{{kClientName, "Alder"}}));
}

TEST_F(AskProfile, CancelGivesNothingAndRemembersNothing)
{
    const ProfileAnswer answer = ask([](ProfileForm& form) {
        control<QLineEdit>(form, "txtClientName").setText(QStringLiteral("Alder"));
        control<QPushButton>(form, "cmdCancel").click();
    });
    EXPECT_EQ(answer.sProfile, "");
    EXPECT_EQ(answer.sFolder, "C:\\Out");
    EXPECT_EQ(answer.nTop, 150);
    EXPECT_EQ(answer.nLeft, 300);
    EXPECT_THAT(storedProfiles(*fakes.settings), testing::IsEmpty());
}

TEST_F(AskProfile, RemembersAcrossBatches)
{
    storeProfile(*fakes.settings, kFirst);
    const ProfileAnswer answer = ask([](ProfileForm& form) { control<QPushButton>(form, "cmdOK").click(); });
    EXPECT_EQ(parseProfile(answer.sProfile), kFirst);
}

TEST_F(AskProfile, SettingsThatCannotBeWrittenCostNoProfile)
{
    fakes.settings->nFailWrites = 75;
    const ProfileAnswer answer = ask([](ProfileForm& form) {
        control<QLineEdit>(form, "txtClientName").setText(QStringLiteral("Alder"));
        control<QPushButton>(form, "cmdOK").click();
    });
    EXPECT_EQ(answer.sProfile, "ClientName=Alder\n");
}

} // namespace
} // namespace zorvo
