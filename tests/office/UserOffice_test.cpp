#include "base/RunTimeError.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/office/screen.h"
#include "tests/office/TestDesk.h"
#include "tests/office/UserOfficeTest.h"
#include "tests/office/officeProcesses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <csignal>
#include <fstream>

/// Documents for the user: in the user's own LibreOffice, on a screen of the tests' own.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using UserOffice = UserOfficeTest;

} // namespace

TEST_F(UserOffice, ADocumentOpensVisibleAndUnsavedAndStaysAfterUs)
{
    ASSERT_TRUE(hasScreen());
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    word->activatePane();
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Untitled 1") != std::string::npos; }))
        << screen.windows();
    office.reset();
    EXPECT_THAT(usersOffices(), SizeIs(1));
    EXPECT_THAT(screen.windows(), HasSubstr("Untitled 1"));
}

TEST_F(UserOffice, QuitLeavesTheUsersDocuments)
{
    const auto excel = office->createExcel();
    excel->setVisible(true);
    excel->workbooksAdd(budget());
    excel->setActiveWindowView(1);
    excel->activatePane();
    excel->quit();
    EXPECT_THAT(usersOffices(), SizeIs(1));
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Untitled 1") != std::string::npos; }));
}

TEST_F(UserOffice, ARunningOneIsJoined)
{
    {
        const auto first = makeLibreOffice();
        const auto word = first->createWord();
        word->setVisible(true);
        word->documentsAdd(letter());
    }
    const auto excel = office->createExcel();
    excel->setVisible(true);
    excel->workbooksAdd(budget());
    EXPECT_THAT(usersOffices(), SizeIs(1));
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("LibreOffice Calc") != std::string::npos; }));
    EXPECT_THAT(screen.windows(), HasSubstr("LibreOffice Writer"));
}

TEST_F(UserOffice, OneThatTheUserHasStartedHimselfIsJoined)
{
    std::ofstream(folder / "note.txt") << "my own words";
    const std::string command =
        "setsid soffice --nologo '" + (folder / "note.txt").string() + "' >/dev/null 2>&1 </dev/null &";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ASSERT_TRUE(waitUntil([&] { return screen.windows().find("note.txt") != std::string::npos; }))
        << screen.windows();
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Untitled 1") != std::string::npos; }));
    EXPECT_THAT(usersOffices(), SizeIs(1));
    office.reset();
    EXPECT_THAT(screen.windows(), HasSubstr("note.txt"));
}

TEST_F(UserOffice, ABlankDocumentShownAfterwardsNeedsNoOfficeOfOurOwn)
{
    auto word = office->createWord();
    word->documentsAdd();
    word->setVisible(true);
    word.reset();
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Untitled 1") != std::string::npos; }));
}

TEST_F(UserOffice, WhatWasMadeHiddenIsTakenOverWithAllItsChanges)
{
    const fs::path extensions = desk.root() / "config/libreoffice/4/user/uno_packages";
    fs::create_directories(folder / "config/libreoffice/4/user");
    fs::copy(extensions, folder / "config/libreoffice/4/user/uno_packages", fs::copy_options::recursive);
    const auto word = office->createWord();
    word->documentsAdd(letter());
    word->comAddIn("ZorvoTSR.Connect")
        ->call("StuffProperties",
               {AutomationObjectPtr(word->activeDocument()), std::string("profile words")});
    word->setVisible(true);
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    word->activeDocument()->saveAs(dos(folder / "Shown.doc"), 0);
    EXPECT_THAT(textOf(folder / "Shown.doc"), HasSubstr("profile words"));
    EXPECT_EQ(word->activeDocument()->fullName(), dos(folder / "Shown.doc"));
}

TEST_F(UserOffice, AnOpenedFileIsTheFileItself)
{
    const auto word = office->createWord();
    word->documentsAdd(letter());
    word->activeDocument()->saveAs(dos(folder / "Mine.doc"), 0);
    word->activeDocument()->close();
    const auto another = office->createWord();
    another->setVisible(true);
    another->documentsOpen(dos(folder / "Mine.doc"));
    EXPECT_EQ(another->activeDocument()->fullName(), dos(folder / "Mine.doc"));
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Mine.doc") != std::string::npos; }));
}

TEST_F(UserOffice, AFileThatIsOpenAlreadyComesToTheFrontAndIsNotOpenedTwice)
{
    const auto word = office->createWord();
    word->documentsAdd(letter());
    word->activeDocument()->saveAs(dos(folder / "Mine.doc"), 0);
    word->activeDocument()->close();
    for (int n = 0; n < 2; ++n) {
        const auto another = office->createWord();
        another->setVisible(true);
        another->documentsOpen(dos(folder / "Mine.doc"));
        EXPECT_EQ(another->activeDocument()->fullName(), dos(folder / "Mine.doc"));
    }
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Mine.doc") != std::string::npos; }));
    const std::string windows = screen.windows();
    EXPECT_EQ(windows.find("Mine.doc"), windows.rfind("Mine.doc")) << windows;
    EXPECT_EQ(windows.find("read-only"), std::string::npos) << windows;
}

TEST_F(UserOffice, ASavedDocumentOnTheScreenBelongsToItsFile)
{
    office->setNeverReplaceFiles(true);
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    word->activeDocument()->saveAs(dos(folder / "Mine.doc"), 0);
    EXPECT_EQ(word->activeDocument()->fullName(), dos(folder / "Mine.doc"));
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(dos(folder / "Mine.doc"), 0); }),
              kFileAlreadyExists);
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Mine.doc") != std::string::npos; }));
    word->activeDocument()->close();
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
}

TEST_F(UserOffice, ABrokenTemplateShowsNothingAndAsksNothing)
{
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    for (const char* name : {"TRUNCATED.DOT", "CORRUPT.DOT", "PROTECTED.DOT", "EMPTY.DOT"})
        EXPECT_EQ(numberOf([&] { word->documentsAdd(dos(desk.templates() / name)); }), kPathOrFileAccess)
            << name;
    EXPECT_THAT(screen.windows(), testing::Not(HasSubstr("PROTECTED")));
}

TEST_F(UserOffice, WhatIsMadeForTheUserStaysHiddenInHisOfficeUntilItIsShown)
{
    const auto word = office->createWordForUser();
    word->setVisible(false);
    word->documentsAdd(letter());
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_THAT(usersOffices(), SizeIs(1));
    std::ofstream(folder / "one.rtf") << richTextOf({"first example"});
    std::ofstream(folder / "two.rtf") << richTextOf({"second example", "|a|"});
    word->selection().insertFile(dos(folder / "one.rtf"));
    word->selection().insertFile(dos(folder / "two.rtf"));
    word->activate();
    EXPECT_FALSE(waitUntil([&] { return screen.shows("Untitled"); }, 500));
    word->setVisible(true);
    word->setWindowState(1);
    word->activate();
    word->activeWindow().activate();
    word->selection().homeKey(6);
    EXPECT_TRUE(waitUntil([&] { return screen.shows("Untitled 1"); })) << screen.windows();
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    EXPECT_EQ(numberOf([&] { word->activeDocument()->close(); }), kPermissionDenied) << "it isn't saved";
    word->activeDocument()->saveAs(dos(folder / "Result.doc"), 0);
    EXPECT_THAT(textOf(folder / "Result.doc"),
                testing::MatchesRegex("(.|\n|\r)*first example(.|\n|\r)*second example(.|\n|\r)*"
                                      "a(.|\n|\r)*Dear reader(.|\n|\r)*"));
}

TEST_F(UserOffice, WhatWasNeverShownGoesWithItsApplication)
{
    {
        const auto word = office->createWordForUser();
        word->documentsAdd(letter());
        word->documentsAdd();
        const auto another = office->createWordForUser();
        another->documentsAdd(letter());
        another->quit();
    }
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    // The office counts the documents that it holds.
    EXPECT_TRUE(waitUntil([&] { return screen.windows().find("Untitled 1") != std::string::npos; }))
        << screen.windows();
}

TEST_F(UserOffice, AnOfficeWithoutAScreenIsRefusedBeforeAnythingIsMade)
{
    const ScopedVariable none("DISPLAY", ":4711");
    const auto word = office->createWordForUser();
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kCannotCreateObject);
}

TEST_F(UserOffice, ADamagedFileIsNotInserted)
{
    const auto word = office->createWordForUser();
    const std::string whole = richTextOf({"words", "more words"});
    word->documentsAdd(letter());
    std::ofstream(folder / "truncated.rtf") << whole.substr(0, whole.size() / 2);
    std::ofstream(folder / "random.rtf") << std::string(5000, 'x');
    std::ofstream(folder / "nothing.rtf") << "{\\rtf1 }}}}{{{{ \\bin99999999 }";
    std::ofstream(folder / "zeros.rtf") << whole << "\r\n" << std::string(1, '\0');
    for (const char* name : {"truncated.rtf", "random.rtf", "nothing.rtf"})
        EXPECT_EQ(numberOf([&] { word->selection().insertFile(dos(folder / name)); }), kPathOrFileAccess)
            << name;
    word->selection().insertFile(dos(folder / "zeros.rtf"));
    word->activeDocument()->saveAs(dos(folder / "Result.doc"), 0);
    EXPECT_THAT(textOf(folder / "Result.doc"), HasSubstr("words"));
    EXPECT_EQ(fs::file_size(folder / "truncated.rtf"), whole.size() / 2);
}

TEST_F(UserOffice, OneThatHangsIsLeftAlone)
{
    const ScopedVariable timeout("ZORVOBRENDLE_OFFICE_TIMEOUT_MS", "4000");
    const auto impatient = makeLibreOffice();
    const auto word = impatient->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    ASSERT_THAT(usersOffices(), SizeIs(1));
    const pid_t process = usersOffices().front();
    kill(process, SIGSTOP);
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kOfficeDoesNotAnswer);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kOfficeDoesNotAnswer);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(4000)) << "it waits once";
    kill(process, SIGCONT);
    EXPECT_THAT(usersOffices(), SizeIs(1));
    const auto later = impatient->createWord();
    later->setVisible(true);
    later->documentsAdd(letter());
    EXPECT_EQ(later->activeDocument()->fullName(), "");
}

TEST_F(UserOffice, OneThatIsStoppedWhenWeComeIsGivenUp)
{
    const ScopedVariable timeout("ZORVOBRENDLE_OFFICE_TIMEOUT_MS", "4000");
    {
        const auto first = makeLibreOffice();
        const auto word = first->createWord();
        word->setVisible(true);
        word->documentsAdd(letter());
    }
    const pid_t process = usersOffices().front();
    kill(process, SIGSTOP);
    const ScopedVariable start("ZORVOBRENDLE_OFFICE_START_MS", "1500");
    const auto impatient = makeLibreOffice();
    const auto word = impatient->createWord();
    word->setVisible(true);
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kOfficeDoesNotAnswer);
    kill(process, SIGCONT);
}

TEST_F(UserOffice, OneThatTheUserClosesIsNoLongerThere)
{
    const auto word = office->createWord();
    word->setVisible(true);
    word->documentsAdd(letter());
    kill(usersOffices().front(), SIGKILL);
    EXPECT_EQ(numberOf([&] { word->activatePane(); }), kOfficeDoesNotAnswer);
    const auto later = office->createWord();
    later->setVisible(true);
    later->documentsAdd(letter());
    EXPECT_EQ(later->activeDocument()->fullName(), "");
}

TEST_F(UserOffice, OneWithoutAScreenIsNotUsed)
{
    // A conversion of the user's, say, that runs on his own settings.
    const std::string pipe = "zorvo-test-" + std::to_string(getpid());
    const std::string command = "env -u DISPLAY setsid soffice --headless --nologo --nodefault "
                                "'--accept=pipe,name=" +
                                pipe + ";urp;' >/dev/null 2>&1 </dev/null &";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const fs::path listening = "/tmp/OSL_PIPE_" + std::to_string(getuid()) + "_" + pipe;
    ASSERT_TRUE(waitUntil([&] { return fs::exists(listening); }));
    const auto word = office->createWord();
    word->setVisible(true);
    EXPECT_THAT(descriptionOf([&] { word->documentsAdd(letter()); }), HasSubstr("screen"));
}

TEST(NoScreen, IsAClearFailureAndNotALostWindow)
{
    TestDesk& desk = TestDesk::instance();
    const auto office = makeLibreOffice();
    const auto word = office->createWord();
    word->setVisible(true);
    EXPECT_THAT(descriptionOf([&] { word->documentsAdd(dos(desk.templates() / "LETTER.DOT")); }),
                HasSubstr("display"));
    const ScopedVariable dead("DISPLAY", ":4711");
    EXPECT_EQ(numberOf([&] { word->documentsAdd(dos(desk.templates() / "LETTER.DOT")); }),
              kCannotCreateObject);
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
}

} // namespace zorvo
