#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/office/OfficeManners.h"
#include "platform/linux/office/processSockets.h"
#include "tests/office/TestDesk.h"
#include "tests/office/officeProcesses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <set>
#include <utility>

/// The hidden office of our own: documents, broken templates, full disks, crashes.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

class OwnOffice : public testing::Test {
protected:
    TestDesk& desk = TestDesk::instance();
    std::shared_ptr<Office> office = makeLibreOffice();
    const fs::path folder = desk.newFolder();

    std::string letter() const { return dos(desk.templates() / "LETTER.DOT"); }
    std::string budget() const { return dos(desk.templates() / "BUDGET.XLT"); }
    std::string templateNamed(const std::string& sName) const { return dos(desk.templates() / sName); }
    std::string target(const std::string& sName) const { return dos(folder / sName); }

    void makeLetter(WordApplication& word, const std::string& sName) const
    {
        word.documentsAdd(letter());
        word.activeDocument()->saveAs(target(sName), 0);
        word.activeDocument()->close();
    }

    std::vector<std::string> filesInFolder() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        return names;
    }

    /// SIGSTOP makes the next call wait on any machine, until SIGCONT.
    static void signalOffices(int signal)
    {
        for (const pid_t process : officeChildren())
            kill(process, signal);
    }

    static std::vector<fs::path> profiles()
    {
        std::vector<fs::path> found;
        const fs::path all = cacheHomeFolder() + "/zorvobrendle/office";
        if (fs::exists(all))
            for (const auto& entry : fs::directory_iterator(all))
                if (entry.is_directory())
                    found.push_back(entry.path());
        return found;
    }
};

} // namespace

TEST_F(OwnOffice, StartsWithTheFirstDocumentAndNoSooner)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    word->version();
    word->setVisible(false);
    word->addInCount();
    EXPECT_EQ(numberOf([&] { word->comAddIn("ZorvoTSR.Connect"); }), kCannotCreateObject);
    excel->setEnableEvents(false);
    EXPECT_THAT(officeChildren(), IsEmpty());
    word->documentsAdd(letter());
    EXPECT_THAT(officeChildren(), SizeIs(1));
    excel->workbooksAdd(budget());
    EXPECT_THAT(officeChildren(), SizeIs(1));
}

TEST_F(OwnOffice, EndsWithTheLastApplicationThatUsedIt)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    word->documentsAdd(letter());
    excel->workbooksAdd(budget());
    const std::vector<std::string> sockets = socketsOf(officeChildren().at(0));
    EXPECT_THAT(sockets, testing::Not(IsEmpty()));
    office->createWord()->quit();
    word->quit();
    EXPECT_THAT(officeChildren(), SizeIs(1));
    excel->quit();
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_THAT(profiles(), IsEmpty());
    for (const std::string& socket : sockets)
        EXPECT_FALSE(fs::exists(socket)) << socket;
}

TEST_F(OwnOffice, EndsWhenTheApplicationsAreDroppedWithoutQuit)
{
    auto word = office->createWord();
    word->documentsAdd(letter());
    word.reset();
    EXPECT_THAT(officeChildren(), IsEmpty());
}

TEST_F(OwnOffice, EndsWithTheAdaptorThoughApplicationsAreStillHeld)
{
    const auto word = office->createWord();
    word->documentsAdd(letter());
    office.reset();
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kOfficeDoesNotAnswer);
}

TEST_F(OwnOffice, SavedDocumentsAreOfTheOldFormatsAndHoldTheTemplatesText)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    makeLetter(*word, "Letter.doc");
    excel->workbooksAdd(budget());
    excel->activeWorkbook()->saveAs(target("Budget.xls"), 56, 1);
    excel->activeWorkbook()->close();
    EXPECT_TRUE(bytesOf(folder / "Letter.doc").starts_with(kCompoundFile));
    EXPECT_TRUE(bytesOf(folder / "Budget.xls").starts_with(kCompoundFile));
    EXPECT_THAT(textOf(folder / "Letter.doc"), HasSubstr("Dear reader"));
    EXPECT_THAT(textOf(folder / "Budget.xls"), HasSubstr("Planned"));
}

TEST_F(OwnOffice, NothingButTheDocumentIsLeftInTheFolder)
{
    const auto word = office->createWord();
    makeLetter(*word, "Letter.doc");
    EXPECT_THAT(filesInFolder(), testing::ElementsAre("Letter.doc"));
    EXPECT_TRUE(fs::is_empty(fs::path(runtimeFolder()) / "zorvobrendle"));
}

TEST_F(OwnOffice, NamesBeyondAsciiAreKeptInAnyLocale)
{
    const ScopedVariable locale("LC_ALL", "C");
    const auto word = office->createWord();
    fs::copy_file(desk.templates() / "LETTER.DOT", folder / "Brief für Zoë #1 100%.DOT");
    word->documentsAdd(target("BRIEF FÜR ZOË #1 100%.DOT"));
    word->activeDocument()->saveAs(target("Čeština; 中文.doc"), 0);
    EXPECT_TRUE(fs::exists(folder / "Čeština; 中文.doc"));
}

TEST_F(OwnOffice, AReadOnlyTemplateMakesAWritableDocument)
{
    fs::copy_file(desk.templates() / "LETTER.DOT", folder / "LOCKED.DOT");
    fs::permissions(folder / "LOCKED.DOT", fs::perms::owner_read | fs::perms::group_read);
    const auto word = office->createWord();
    word->documentsAdd(target("LOCKED.DOT"));
    word->activeDocument()->saveAs(target("Letter.doc"), 0);
    const fs::perms mode = fs::status(folder / "Letter.doc").permissions();
    EXPECT_NE(mode & fs::perms::owner_write, fs::perms::none);
}

TEST_F(OwnOffice, TheTemplateItselfIsNeverChanged)
{
    const std::string sBefore = bytesOf(desk.templates() / "LETTER.DOT");
    const auto word = office->createWord();
    makeLetter(*word, "Letter.doc");
    EXPECT_EQ(bytesOf(desk.templates() / "LETTER.DOT"), sBefore);
}

TEST_F(OwnOffice, RefusesTemplatesThatTheOfficeWouldOpenAsSomethingElse)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    for (const char* name : {"EMPTY.DOT", "TRUNCATED.DOT", "RANDOM.DOT", "CORRUPT.DOT", "SHEET.DOT",
                             "PROTECTED.DOT", "BUDGET.XLT"})
        EXPECT_EQ(numberOf([&] { word->documentsAdd(templateNamed(name)); }), kPathOrFileAccess) << name;
    for (const char* name : {"CORRUPT.XLT", "LETTER.DOT", "letter.rtf"})
        EXPECT_EQ(numberOf([&] { excel->workbooksAdd(templateNamed(name)); }), kPathOrFileAccess) << name;
    EXPECT_EQ(numberOf([&] { word->documentsAdd(dos(desk.templates())); }), kPathOrFileAccess);
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
    makeLetter(*word, "Letter.doc");
    EXPECT_THAT(filesInFolder(), SizeIs(1));
}

TEST_F(OwnOffice, RichTextOpensInWord)
{
    const auto word = office->createWord();
    word->documentsOpen(templateNamed("letter.rtf"));
    EXPECT_EQ(word->activeDocument()->fullName(), templateNamed("letter.rtf"));
}

TEST_F(OwnOffice, ABlankDocumentIsMadeAtItsFirstUse)
{
    const auto word = office->createWord();
    word->documentsAdd();
    EXPECT_THAT(officeChildren(), IsEmpty());
    EXPECT_EQ(word->activeDocument()->fullName(), "");
    word->activeDocument()->saveAs(target("Blank.doc"), 0);
    EXPECT_TRUE(bytesOf(folder / "Blank.doc").starts_with(kCompoundFile));
}

TEST_F(OwnOffice, OtherFormatsThanTheOldOnesAreRefused)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    word->documentsAdd(letter());
    excel->workbooksAdd(budget());
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("x.docx"), 12); }), kInvalidCall);
    EXPECT_EQ(numberOf([&] { excel->activeWorkbook()->saveAs(target("x.xlsx"), 51, 1); }), kInvalidCall);
    EXPECT_THAT(filesInFolder(), IsEmpty());
}

TEST_F(OwnOffice, NeverReplacingIsAlsoBlindToCase)
{
    const auto word = office->createWord();
    std::ofstream(folder / "LETTER.DOC") << "old";
    word->documentsAdd(letter());
    office->setNeverReplaceFiles(true);
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }), kFileAlreadyExists);
    EXPECT_THAT(filesInFolder(), testing::ElementsAre("LETTER.DOC"));
    word->activeDocument()->saveAs(target("Other.doc"), 0);
    EXPECT_TRUE(bytesOf(folder / "Other.doc").starts_with(kCompoundFile));
}

TEST_F(OwnOffice, AReadOnlyFileIsNotReplaced)
{
    const auto word = office->createWord();
    std::ofstream(folder / "Letter.doc") << "old";
    fs::permissions(folder / "Letter.doc", fs::perms::owner_read);
    word->documentsAdd(letter());
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }), kPermissionDenied);
    EXPECT_EQ(bytesOf(folder / "Letter.doc"), "old");
}

TEST_F(OwnOffice, AReplacedFileIsReplacedWholeAndKeepsItsMode)
{
    const auto word = office->createWord();
    std::ofstream(folder / "Letter.doc") << std::string(100'000, 'x');
    fs::permissions(folder / "Letter.doc", fs::perms::owner_read | fs::perms::owner_write);
    word->documentsAdd(letter());
    word->activeDocument()->saveAs(target("Letter.doc"), 0);
    EXPECT_TRUE(bytesOf(folder / "Letter.doc").starts_with(kCompoundFile));
    EXPECT_LT(fs::file_size(folder / "Letter.doc"), 100'000U);
    EXPECT_EQ(fs::status(folder / "Letter.doc").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

/// A small file system of its own; needs the right to mount.
class MountedFolder : public OwnOffice {
protected:
    void mountHere(unsigned long flags, const char* options)
    {
        if (mount("zorvo-test", folder.c_str(), "tmpfs", flags, options) != 0)
            GTEST_SKIP() << "mounting a file system takes rights that this user doesn't have";
        bMounted_ = true;
    }
    void TearDown() override
    {
        if (bMounted_)
            umount2(folder.c_str(), MNT_DETACH);
    }

private:
    bool bMounted_ = false;
};

TEST_F(MountedFolder, AFullDiskLeavesNothingHalfWritten)
{
    mountHere(0, "size=16k");
    const auto word = office->createWord();
    for (const bool bNever : {false, true}) {
        office->setNeverReplaceFiles(bNever);
        word->documentsAdd(letter());
        std::ofstream(folder / "filler") << std::string(12'000, 'x');
        EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }), kDiskFull);
        EXPECT_THAT(filesInFolder(), testing::ElementsAre("filler"));
        fs::remove(folder / "filler");
        word->activeDocument()->saveAs(target("Letter.doc"), 0);
        EXPECT_TRUE(bytesOf(folder / "Letter.doc").starts_with(kCompoundFile));
        fs::remove(folder / "Letter.doc");
    }
}

TEST_F(MountedFolder, AFullDiskKeepsTheOldFile)
{
    mountHere(0, "size=16k");
    const auto word = office->createWord();
    std::ofstream(folder / "Letter.doc") << std::string(12'000, 'x');
    word->documentsAdd(letter());
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }), kDiskFull);
    EXPECT_EQ(bytesOf(folder / "Letter.doc"), std::string(12'000, 'x'));
}

TEST_F(MountedFolder, AReadOnlyFolderIsRefused)
{
    mountHere(MS_RDONLY, "size=1m");
    const auto word = office->createWord();
    word->documentsAdd(letter());
    for (const bool bNever : {false, true}) {
        office->setNeverReplaceFiles(bNever);
        EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }),
                  kPathOrFileAccess);
    }
}

TEST_F(OwnOffice, ACrashIsToldOnceAndTheNextDocumentHasANewOffice)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    word->documentsAdd(letter());
    excel->workbooksAdd(budget());
    const std::vector<pid_t> before = officeChildren();
    ASSERT_THAT(before, SizeIs(1));
    kill(before.front(), SIGKILL);
    EXPECT_EQ(
        descriptionOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }),
        "LibreOffice has ended unexpectedly (signal 9). It will be started again for the next document.");
    EXPECT_THAT(filesInFolder(), IsEmpty());
    EXPECT_EQ(numberOf([&] { word->activeDocument(); }), kObjectNotSet);
    EXPECT_EQ(numberOf([&] { excel->activeWorkbook(); }), kObjectNotSet);
    makeLetter(*word, "Next.doc");
    EXPECT_THAT(textOf(folder / "Next.doc"), HasSubstr("Dear reader"));
    ASSERT_THAT(officeChildren(), SizeIs(1));
    EXPECT_NE(officeChildren().front(), before.front());
}

TEST_F(OwnOffice, ACrashBetweenTwoDocumentsCostsNone)
{
    const auto word = office->createWord();
    makeLetter(*word, "0.doc");
    for (int n = 1; n <= 3; ++n) {
        kill(officeChildren().front(), SIGKILL);
        makeLetter(*word, std::to_string(n) + ".doc");
        EXPECT_TRUE(fs::exists(folder / (std::to_string(n) + ".doc")));
    }
}

TEST_F(OwnOffice, ATemplateThatEndsTheOfficeCostsOneNewStartAndFails)
{
    // The office is killed as soon as one comes up, as if the template did it.
    const auto word = office->createWord();
    makeLetter(*word, "0.doc");
    // A fast office would be done before it can be killed; the one that follows is met while it starts.
    signalOffices(SIGSTOP);
    std::set<pid_t> killed;
    office->setIdleWork([&killed] {
        for (const pid_t process : officeChildren())
            if (kill(process, SIGKILL) == 0)
                killed.insert(process);
    });
    EXPECT_NE(numberOf([&] { word->documentsAdd(letter()); }), 0);
    EXPECT_LE(killed.size(), 3U);
    office->setIdleWork({});
    makeLetter(*word, "Next.doc");
    EXPECT_TRUE(fs::exists(folder / "Next.doc"));
}

TEST_F(OwnOffice, AHangIsNoticedWithinHalfAMinute)
{
    EXPECT_LE(OfficeManners().longestCall, std::chrono::seconds(29));
}

TEST_F(OwnOffice, ATargetFolderThatVanishesFailsTheDocumentAndNoOther)
{
    const auto word = office->createWord();
    makeLetter(*word, "1.doc");
    fs::create_directories(folder / "gone");
    word->documentsAdd(letter());
    fs::remove(folder / "gone");
    EXPECT_EQ(numberOf([&] { word->activeDocument()->saveAs(target("gone/2.doc"), 0); }), kPathNotFound);
    EXPECT_FALSE(fs::exists(folder / "gone"));
    word->activeDocument()->close();
    makeLetter(*word, "3.doc");
    EXPECT_TRUE(fs::exists(folder / "3.doc"));
}

TEST_F(OwnOffice, AStoppedOfficeIsNoticedEndedAndReplaced)
{
    const ScopedVariable timeout("ZORVOBRENDLE_OFFICE_TIMEOUT_MS", "3000");
    const auto impatient = makeLibreOffice();
    int nIdle = 0;
    impatient->setIdleWork([&nIdle] { ++nIdle; });
    const auto word = impatient->createWord();
    word->documentsAdd(letter());
    const pid_t stopped = officeChildren().front();
    kill(stopped, SIGSTOP);
    nIdle = 0;
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(descriptionOf([&] { word->activeDocument()->saveAs(target("Letter.doc"), 0); }),
                HasSubstr("didn't answer"));
    const auto taken = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(taken, std::chrono::milliseconds(3000));
    EXPECT_GE(nIdle, 3);
    EXPECT_TRUE(waitUntil([&] { return kill(stopped, 0) != 0; }));
    makeLetter(*word, "Next.doc");
    EXPECT_TRUE(fs::exists(folder / "Next.doc"));
}

TEST_F(OwnOffice, WindowsStayPaintedWhileACallWaits)
{
    constexpr int kTurns = 3;
    const auto word = office->createWord();
    makeLetter(*word, "0.doc");
    int nIdle = 0;
    office->setIdleWork([&nIdle] {
        if (++nIdle == kTurns)
            signalOffices(SIGCONT);
    });
    signalOffices(SIGSTOP);
    makeLetter(*word, "1.doc");
    EXPECT_GE(nIdle, kTurns);
    EXPECT_TRUE(fs::exists(folder / "1.doc"));
}

TEST_F(OwnOffice, IdleWorkMayCallTheOfficeItself)
{
    const auto word = office->createWord();
    const auto excel = office->createExcel();
    makeLetter(*word, "0.doc");
    bool bOnce = false;
    office->setIdleWork([&] {
        if (std::exchange(bOnce, true))
            return;
        signalOffices(SIGCONT);
        excel->workbooksAdd(budget());
    });
    signalOffices(SIGSTOP);
    word->documentsAdd(letter());
    EXPECT_TRUE(bOnce);
    EXPECT_EQ(excel->activeWorkbook()->fullName(), "");
    EXPECT_EQ(word->activeDocument()->fullName(), "");
}

TEST_F(OwnOffice, AFailureOfTheIdleWorkComesOutAfterTheCall)
{
    const auto word = office->createWord();
    makeLetter(*word, "0.doc");
    office->setIdleWork([] {
        signalOffices(SIGCONT);
        throw RunTimeError(kOverflow);
    });
    signalOffices(SIGSTOP);
    EXPECT_EQ(numberOf([&] { word->documentsAdd(letter()); }), kOverflow);
    office->setIdleWork({});
    makeLetter(*word, "Letter.doc");
    EXPECT_TRUE(fs::exists(folder / "Letter.doc"));
}

TEST_F(OwnOffice, TwoAdaptorsNeverShareAProfile)
{
    const auto second = makeLibreOffice();
    const auto word = office->createWord();
    const auto another = second->createWord();
    word->documentsAdd(letter());
    another->documentsAdd(letter());
    EXPECT_THAT(officeChildren(), SizeIs(2));
    EXPECT_THAT(profiles(), SizeIs(2));
}

TEST_F(OwnOffice, WhatAKilledProgramHasLeftIsCleared)
{
    const fs::path left = fs::path(cacheHomeFolder()) / "zorvobrendle/office/99999999-0";
    fs::create_directories(left / "user");
    std::ofstream(left / "in-use") << "";
    std::ofstream(left / "sockets") << (folder / "no-socket").string() << '\n';
    std::ofstream(folder / "no-socket") << "a file, not a socket";
    office->createWord()->documentsAdd(letter());
    EXPECT_FALSE(fs::exists(left));
    EXPECT_TRUE(fs::exists(folder / "no-socket"));
}

TEST_F(OwnOffice, AnOvergrownOfficeIsReplacedBetweenTwoDocuments)
{
    const ScopedVariable limit("ZORVOBRENDLE_OFFICE_GROWTH_KB", "64");
    const auto greedy = makeLibreOffice();
    const auto word = greedy->createWord();
    makeLetter(*word, "0.doc");
    const pid_t first = officeChildren().front();
    for (int n = 1; n < 40 && officeChildren().front() == first; ++n)
        makeLetter(*word, std::to_string(n) + ".doc");
    ASSERT_THAT(officeChildren(), SizeIs(1));
    EXPECT_NE(officeChildren().front(), first);
}

TEST_F(OwnOffice, TheVersionsCanBeOverridden)
{
    const ScopedVariable word("ZORVOBRENDLE_WORD_VERSION", "12.0");
    const ScopedVariable excel("ZORVOBRENDLE_EXCEL_VERSION", "11.0");
    EXPECT_EQ(office->createWord()->version(), "12.0");
    EXPECT_EQ(office->createExcel()->version(), "11.0");
}

TEST_F(OwnOffice, WithoutLibreOfficeTheFailureSaysWhatToInstall)
{
    const ScopedVariable nowhere("ZORVOBRENDLE_OFFICE_DIR", folder.string());
    EXPECT_EQ(numberOf([&] { office->createWord(); }), kCannotCreateObject);
    EXPECT_EQ(numberOf([&] { office->createExcel(); }), kCannotCreateObject);
    EXPECT_THAT(descriptionOf([&] { office->createWord(); }), HasSubstr("libreoffice-writer"));
}

TEST_F(OwnOffice, WithoutCalcOnlyExcelIsMissing)
{
    const fs::path installed = "/usr/lib/libreoffice/program";
    for (const char* name : {"soffice.bin", "libswlo.so", "bootstraprc", "versionrc"})
        fs::create_symlink(installed / name, folder / name);
    const ScopedVariable partly("ZORVOBRENDLE_OFFICE_DIR", folder.string());
    EXPECT_EQ(numberOf([&] { office->createWord(); }), 0);
    EXPECT_THAT(descriptionOf([&] { office->createExcel(); }), HasSubstr("libreoffice-calc"));
}

} // namespace zorvo
