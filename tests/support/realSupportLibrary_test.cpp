#include "base/sessionState.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxLibraryLoader.h"
#include "support/SupportHost.h"
#include "support/forms/frmAbout.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

/// Real files and a real library, which notes what happens to it.
class RealSupportLibrary : public testing::Test {
protected:
    RealSupportLibrary()
    {
        sessionState() = SessionState();
        const DosPaths paths(folder / "data");
        platform().files = std::make_shared<LinuxFiles>(paths);
        platform().libraries = std::make_shared<LinuxLibraryLoader>(paths);
        fs::create_directories(folder / "program");
        fakes.folders->sProgram = paths.fromNative(folder / "program");
        fakes.folders->sDocuments = paths.fromNative(folder / "documents");
        supportHost().mainCaption = [] { return std::string("The caption"); };
    }
    ~RealSupportLibrary() override
    {
        supportHost() = SupportHost();
        sessionState() = SessionState();
    }

    void click(frmAbout& form) { form.findChild<QPushButton*>(QStringLiteral("cmdSupport"))->click(); }
    std::string notes() const { return fileBytes(folder / "notes"); }

    TemporaryFolder folder;
    ScopedEnvironment notesFile{"SUPPORT_LIBRARY_NOTES", folder / "notes"};
    FakePlatform fakes;
    RecordingMessages messages;
};

TEST_F(RealSupportLibrary, IsLoadedAtTheFirstClickCalledAtEachAndFreedWithTheBox)
{
    fs::copy_file(SUPPORT_LIBRARY_FILE, folder / "program/ZorvoSys32.dll");
    frmAbout form;
    form.load();
    EXPECT_EQ(notes(), "");
    click(form);
    click(form);
    const std::string sCall = fakes.folders->sProgram + "\\|window|" + fakes.folders->sDocuments +
                              "\\Halvern House\\Brendle\\ZorvoSysOut.txt|Zorvo\n";
    EXPECT_EQ(notes(), "loaded\n" + sCall + sCall);
    form.unload();
    EXPECT_EQ(notes(), "loaded\n" + sCall + sCall + "freed\n");
    EXPECT_THAT(messages.tags(), testing::IsEmpty());
    EXPECT_THAT(fileBytes(folder / "documents/Halvern House/Brendle/ZorvoSysOut.txt"),
                testing::StartsWith("The caption properties as of "));
}

TEST_F(RealSupportLibrary, IsPassedOverWhenItsFileIsNoLibrary)
{
    putFile(folder / "program/ZorvoSys32.dll", "no library");
    frmAbout form;
    form.load();
    click(form);
    EXPECT_THAT(messages.tags(), testing::IsEmpty());
    EXPECT_TRUE(fs::exists(folder / "documents/Halvern House/Brendle/ZorvoSysOut.txt"));
}

} // namespace
} // namespace zorvo
