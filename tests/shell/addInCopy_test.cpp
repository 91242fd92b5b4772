#include "shell/addInCopy.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const char* kSource = "C:\\Zorvo\\Qbk.xla";
constexpr const char* kTarget = "C:\\AppData\\Microsoft\\AddIns\\Qbk.xla";

class AddInCopyTest : public testing::Test {
protected:
    AddInCopyTest() { fakes.registry->setText(HKEY_CURRENT_USER, kShellFolders, "AppData", "C:\\AppData"); }

    void addCopies(std::int64_t nSourceTime, std::int64_t nTargetTime)
    {
        fakes.files->addFile(kSource, "new");
        fakes.files->setLastModified(kSource, nSourceTime);
        fakes.files->addFile(kTarget, "old");
        fakes.files->setLastModified(kTarget, nTargetTime);
    }

    const FakePlatform fakes;
};

TEST_F(AddInCopyTest, ANewerSourceReplacesTheCopyEvenWhenItIsReadOnly)
{
    addCopies(2000, 1000);
    fakes.files->setReadOnly(kTarget, true);
    RefreshAddInCopy();
    EXPECT_EQ(fakes.files->content(kTarget), "new");
}

TEST_F(AddInCopyTest, ASourceOfTheSameAgeLeavesTheCopy)
{
    addCopies(1000, 1000);
    RefreshAddInCopy();
    EXPECT_EQ(fakes.files->content(kTarget), "old");
}

TEST_F(AddInCopyTest, AnOlderSourceLeavesTheCopy)
{
    addCopies(999, 1000);
    RefreshAddInCopy();
    EXPECT_EQ(fakes.files->content(kTarget), "old");
}

TEST_F(AddInCopyTest, ACopyThatIsNotThereIsNotMade)
{
    fakes.files->addFile(kSource, "new");
    RefreshAddInCopy();
    EXPECT_FALSE(fakes.files->content(kTarget).has_value());
}

TEST_F(AddInCopyTest, NothingHappensWithoutASource)
{
    fakes.files->addFile(kTarget, "old");
    RefreshAddInCopy();
    EXPECT_EQ(fakes.files->content(kTarget), "old");
}

TEST_F(AddInCopyTest, NothingHappensWithoutAnApplicationDataFolder)
{
    addCopies(2000, 1000);
    fakes.registry->setText(HKEY_CURRENT_USER, kShellFolders, "AppData", "");
    RefreshAddInCopy();
    EXPECT_EQ(fakes.files->content(kTarget), "old");
}

TEST_F(AddInCopyTest, AFailedCopyGoesToTheCaller)
{
    addCopies(2000, 1000);
    fakes.files->failOn(FakeFiles::Operation::copy, "", kPermissionDenied);
    EXPECT_THROW(RefreshAddInCopy(), RunTimeError);
}

} // namespace
} // namespace zorvo
