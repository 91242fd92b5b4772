#include "platform/linux/LinuxHelpViewer.h"
#include "tests/bus/BusClient.h"
#include "tests/bus/TestProcess.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/help/TestBook.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFile>
#include <csignal>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

const QString kName = QStringLiteral("com.zorvo.Help");
const QString kViewer = QStringLiteral(BRENDLE_HELP);

bool viewerRuns()
{
    return isServed(sharedBus().address(), kName);
}

qint64 viewerProcess()
{
    const QDBusReply<uint> process = QDBusConnection::sessionBus().interface()->servicePid(kName);
    return process.isValid() ? process.value() : 0;
}

std::string dosPath(const QString& native)
{
    return "Z:" + QString(native).replace(QLatin1Char('/'), QLatin1Char('\\')).toStdString();
}

/// A book that any viewer can show, written where the tests' files are.
std::string bookFile(const char* name = "book.chm")
{
    const QString native = sharedBus().folder() + QLatin1Char('/') + QLatin1String(name);
    help::TestBook()
        .title("Book")
        .page("/a.htm", "A", "text")
        .page("/b.htm", "B", "text")
        .contents({{"A", "a.htm"}, {"B", "b.htm"}})
        .number(1, "b.htm")
        .write(native.toStdString());
    return dosPath(native);
}

std::string missingFile()
{
    return dosPath(sharedBus().folder() + QStringLiteral("/none.chm"));
}

DosPaths paths()
{
    return DosPaths(sharedBus().folder().toStdString() + "/data/zorvobrendle");
}

/// Ends the viewer that a test has left with windows or boxes.
void endViewer()
{
    if (const qint64 process = viewerProcess())
        ::kill(static_cast<pid_t>(process), SIGKILL);
    EXPECT_TRUE(waitUntil([] { return !viewerRuns(); }));
}

struct RealViewer {
    RealViewer() { sharedBus().addService(kName, kViewer); }
    ~RealViewer()
    {
        endViewer();
        sharedBus().removeService(kName);
    }
    void expectNothingToShow() {}
    LinuxHelpViewer viewer{paths(), {}};
};

struct FakeViewer {
    void expectNothingToShow() { viewer.window = 0; }
    RecordingHelpViewer viewer;
};

/// What the port promises, held against the real viewer and against the fake that stands in for it.
template <typename Kind>
class HelpViewerContract : public testing::Test {
protected:
    HelpViewer& viewer() { return kind.viewer; }
    Kind kind;
};

using Kinds = testing::Types<RealViewer, FakeViewer>;
TYPED_TEST_SUITE(HelpViewerContract, Kinds);

TYPED_TEST(HelpViewerContract, EachCommandGivesTheWindowOfTheFile)
{
    const std::string sFile = bookFile();
    const std::uintptr_t window = this->viewer().show(0, sFile, HelpViewer::kDisplayContents, 0);
    EXPECT_NE(window, 0U);
    EXPECT_EQ(this->viewer().show(0, sFile, HelpViewer::kDisplayIndex, 0), window);
    EXPECT_EQ(this->viewer().show(0, sFile, HelpViewer::kDisplayTopic, 0), window);
    EXPECT_EQ(this->viewer().show(77, sFile, HelpViewer::kContext, 1), window);
    EXPECT_EQ(this->viewer().show(0, sFile, HelpViewer::kContext, 4000000000U), window);
}

TYPED_TEST(HelpViewerContract, NothingToShowGivesNoWindow)
{
    this->kind.expectNothingToShow();
    EXPECT_EQ(this->viewer().show(0, missingFile(), HelpViewer::kDisplayContents, 0), 0U);
}

TYPED_TEST(HelpViewerContract, AWindowThatIsntThereIsPassedOver)
{
    this->viewer().setTopMost(0, true);
    this->viewer().setTopMost(123456, false);
    const std::string sFile = bookFile();
    const std::uintptr_t window = this->viewer().show(0, sFile, HelpViewer::kDisplayContents, 0);
    this->viewer().setTopMost(window, true);
    this->viewer().setTopMost(window, false);
    EXPECT_EQ(this->viewer().show(0, sFile, HelpViewer::kDisplayContents, 0), window);
}

class HelpViewerOnBus : public testing::Test {
protected:
    std::uintptr_t show(HelpViewer::Command command = HelpViewer::kDisplayContents)
    {
        return real_.viewer.show(0, bookFile(), command, 0);
    }
    RealViewer real_;
};

TEST_F(HelpViewerOnBus, TheFirstRequestStartsTheViewerAndFurtherOnesFindIt)
{
    EXPECT_FALSE(viewerRuns());
    EXPECT_NE(show(), 0U);
    const qint64 process = viewerProcess();
    EXPECT_NE(process, 0);
    EXPECT_NE(show(HelpViewer::kDisplayIndex), 0U);
    EXPECT_EQ(viewerProcess(), process);
}

TEST_F(HelpViewerOnBus, TheWindowOutlivesTheClientThatAskedForIt)
{
    std::uintptr_t window = 0;
    {
        const QString name = QStringLiteral("client that goes");
        QDBusConnection client = QDBusConnection::connectToBus(sharedBus().address(), name);
        QDBusMessage call = QDBusMessage::createMethodCall(kName, QStringLiteral("/com/zorvo/Help"), kName,
                                                           QStringLiteral("Show"));
        const QString native = sharedBus().folder() + QStringLiteral("/book.chm");
        bookFile();
        call.setArguments({QVariant::fromValue(qulonglong{0}), native, 1, 0U});
        const QDBusReply<qulonglong> shown = client.call(call);
        ASSERT_TRUE(shown.isValid());
        window = shown.value();
        QDBusConnection::disconnectFromBus(name);
    }
    EXPECT_NE(window, 0U);
    EXPECT_EQ(real_.viewer.show(0, dosPath(sharedBus().folder() + QStringLiteral("/book.chm")),
                                HelpViewer::kDisplayContents, 0),
              window);
}

TEST_F(HelpViewerOnBus, CloseAllEndsTheViewerWithItsLastWindow)
{
    EXPECT_NE(show(), 0U);
    EXPECT_EQ(real_.viewer.show(0, {}, HelpViewer::kCloseAll, 0), 0U);
    EXPECT_TRUE(waitUntil([] { return !viewerRuns(); }));
}

TEST_F(HelpViewerOnBus, NothingIsStartedToCloseOrRaiseWindows)
{
    EXPECT_EQ(real_.viewer.show(0, {}, HelpViewer::kCloseAll, 0), 0U);
    real_.viewer.setTopMost(5, true);
    EXPECT_FALSE(viewerRuns());
}

TEST_F(HelpViewerOnBus, AViewerThatCrashedIsStartedAnew)
{
    EXPECT_NE(show(), 0U);
    endViewer();
    EXPECT_NE(show(), 0U);
}

TEST_F(HelpViewerOnBus, ManyQuickRequestsAllGetAWindow)
{
    // Each closes what the one before has opened, so that the viewer is about to end again and again.
    for (int i = 0; i < 12; ++i) {
        EXPECT_NE(show(), 0U) << i;
        real_.viewer.show(0, {}, HelpViewer::kCloseAll, 0);
    }
}

TEST_F(HelpViewerOnBus, AMissingFileKeepsTheViewerUpForItsMessage)
{
    EXPECT_EQ(real_.viewer.show(0, missingFile(), HelpViewer::kDisplayContents, 0), 0U);
    EXPECT_TRUE(viewerRuns());
}

TEST_F(HelpViewerOnBus, NamesAreFoundWithoutRegardToCase)
{
    bookFile("MiXed.chm");
    EXPECT_NE(real_.viewer.show(0, dosPath(sharedBus().folder() + QStringLiteral("/mixed.CHM")),
                                HelpViewer::kDisplayContents, 0),
              0U);
}

TEST(HelpViewerWithoutService, TheProgramBesideUsIsStarted)
{
    ASSERT_FALSE(viewerRuns());
    LinuxHelpViewer viewer(paths(), kViewer.toStdString());
    EXPECT_NE(viewer.show(0, bookFile(), HelpViewer::kDisplayContents, 0), 0U);
    endViewer();
}

TEST(HelpViewerWithoutService, WithoutAViewerThereIsNoWindow)
{
    LinuxHelpViewer viewer(paths(), "/no/such/program");
    EXPECT_EQ(viewer.show(0, bookFile(), HelpViewer::kDisplayContents, 0), 0U);
}

TEST(HelpProgram, TellsItsUsage)
{
    const Outcome help = run(sharedBus(), kViewer, {QStringLiteral("--help")});
    EXPECT_EQ(help.nExitCode, 0);
    EXPECT_THAT(help.sOut, testing::StartsWith("usage: brendle-help"));
    for (const QStringList& wrong :
         {QStringList{QStringLiteral("--nonsense")},
          QStringList{QStringLiteral("--topic"), QStringLiteral("x")},
          QStringList{QStringLiteral("a"), QStringLiteral("b")}, QStringList{QString()}}) {
        const Outcome outcome = run(sharedBus(), kViewer, wrong);
        EXPECT_EQ(outcome.nExitCode, 2) << wrong.join(QLatin1Char(' ')).toStdString();
        EXPECT_THAT(outcome.sErr, testing::StartsWith("usage: brendle-help"));
    }
}

TEST(HelpProgram, HandsItsFileToTheViewerThatServesAlready)
{
    const RealViewer real;
    bookFile();
    const QString native = sharedBus().folder() + QStringLiteral("/book.chm");
    TestProcess first(sharedBus(), kViewer, {native});
    ASSERT_TRUE(waitUntil([] { return viewerRuns(); }));
    const Outcome second =
        run(sharedBus(), kViewer, {QStringLiteral("--topic"), QStringLiteral("1"), native});
    EXPECT_EQ(second.nExitCode, 0);
    EXPECT_TRUE(first.isRunning());
}

TEST(HelpProgram, EndsWhenNobodyAsks)
{
    TestProcess viewer(sharedBus(), kViewer);
    ASSERT_TRUE(waitUntil([] { return viewerRuns(); }));
    EXPECT_EQ(viewer.wait().nExitCode, 0);
}

} // namespace
} // namespace zorvo
