#include "platform/linux/RegistryStore.h"
#include "tests/bus/ServedBus.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <gmock/gmock.h>

namespace zorvo {

using testing::HasSubstr;
using testing::StartsWith;

/// The command against a server with stand-ins for the program's classes.
class Brendle : public ServedBus {
protected:
    void SetUp() override
    {
        ServedBus::SetUp();
        QFile::remove(home(QStringLiteral("diary")));
        QFile::remove(home(QStringLiteral("answer")));
        QFile::remove(handOverPath());
        registerProbe();
    }

    /// `brendle call` finds the probe as it finds any other component's class.
    static void registerProbe()
    {
        const auto text = [](const std::string& sKey, const std::string& sText) {
            return RegistryChange{RegistryChange::Kind::setValue,
                                  HKEY_CLASSES_ROOT,
                                  sKey,
                                  {"", RegistryType::string, sText + '\0'}};
        };
        RegistryStore().apply(
            {text("Test.Probe\\CLSID", "{1}"), text("CLSID\\{1}\\LocalServer32", "com.zorvo.TSelector")});
    }

    static QString home(const QString& name)
    {
        return sharedBus().folder() + QStringLiteral("/home/") + name;
    }
    static QString handOverPath() { return home(QStringLiteral("Halvern House/Brendle/DFS_DFK.txt")); }
    static void write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    static std::string diary()
    {
        QFile file(home(QStringLiteral("diary")));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
    }
    static Outcome brendle(const QStringList& arguments)
    {
        return run(sharedBus(), QStringLiteral(BRENDLE), arguments);
    }
    static Outcome brendle(const char* arguments)
    {
        return brendle(QString::fromUtf8(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }
};

TEST_F(Brendle, ShowOpensTheTree)
{
    const Outcome outcome = brendle("show");
    EXPECT_EQ(outcome.nExitCode, 0) << outcome.sErr;
    EXPECT_EQ(outcome.sOut, "");
    EXPECT_EQ(diary(), "ShowTreeDirectly\n");
}

TEST_F(Brendle, ShowTakesACompanyAsItIsWritten)
{
    EXPECT_EQ(brendle({QStringLiteral("show"), QStringLiteral("--company"), QStringLiteral(" Ö ")}).nExitCode,
              0);
    EXPECT_EQ(brendle("show --company=OTR").nExitCode, 0);
    EXPECT_EQ(brendle({QStringLiteral("show"), QStringLiteral("--company"), QString()}).nExitCode, 0);
    EXPECT_EQ(diary(), "ShowTreeForCompany ' Ö '\nShowTreeForCompany 'OTR'\nShowTreeForCompany ''\n");
}

TEST_F(Brendle, CallsTheOperationOfEachSubcommand)
{
    EXPECT_EQ(brendle("search").nExitCode, 0);
    EXPECT_EQ(brendle("about").nExitCode, 0);
    EXPECT_EQ(diary(), "searchSWD\nshow_aboutDialog\n");
}

TEST_F(Brendle, SucceedsWhenTheProcessEndsInsideTheCall)
{
    for (int nRound = 0; nRound < 10; ++nRound) {
        const Outcome outcome = brendle("help");
        EXPECT_EQ(outcome.nExitCode, 0) << outcome.sErr;
    }
    EXPECT_THAT(diary(), StartsWith("QBK_Help\nQBK_Help\n"));
}

TEST_F(Brendle, SelectWaitsForTheEndOfTheSessionAndPrintsWhatItHandsOver)
{
    write(home(QStringLiteral("answer")), "<Documents>'Ä'|x|</Documents>");
    QElapsedTimer time;
    time.start();
    const Outcome outcome = brendle("select");
    EXPECT_EQ(outcome.nExitCode, 0) << outcome.sErr;
    EXPECT_EQ(outcome.sOut, "<Documents>'Ä'|x|</Documents>\n");
    EXPECT_GE(time.elapsed(), 300);
    EXPECT_EQ(diary(), "ShowTreeDFS\n");
}

TEST_F(Brendle, SelectPrintsNothingWhenNothingIsHandedOver)
{
    QDir().mkpath(home(QStringLiteral("Halvern House/Brendle")));
    write(handOverPath(), "\"an earlier session's\"\r\n");
    const Outcome outcome = brendle("select");
    EXPECT_EQ(outcome.nExitCode, 0) << outcome.sErr;
    EXPECT_EQ(outcome.sOut, "");
}

TEST_F(Brendle, EngagementsPrintsTheChosenOne)
{
    write(home(QStringLiteral("answer")), "<selection>one</selection>");
    const Outcome outcome = brendle("engagements");
    EXPECT_EQ(outcome.nExitCode, 0) << outcome.sErr;
    EXPECT_EQ(outcome.sOut, "<selection>one</selection>\n");
}

TEST_F(Brendle, StatusPassesItsFlags)
{
    EXPECT_EQ(brendle("status").sOut, "<status tessora=\"False\" all=\"False\"/>\n");
    EXPECT_EQ(brendle("status --all").sOut, "<status tessora=\"False\" all=\"True\"/>\n");
    EXPECT_EQ(brendle("status --tessora").sOut, "<status tessora=\"True\" all=\"False\"/>\n");
    EXPECT_EQ(brendle("status --tessora --all").sOut, "<status tessora=\"True\" all=\"True\"/>\n");
}

TEST_F(Brendle, TreeOrderPrintsThePath)
{
    EXPECT_EQ(brendle("treeorder").sOut, "C:\\tmp\\\\TreeOrder.xml\n");
}

TEST_F(Brendle, TellsAFailedCallInOneLine)
{
    const Outcome outcome = brendle("top");
    EXPECT_EQ(outcome.nExitCode, 1);
    EXPECT_EQ(outcome.sOut, "");
    EXPECT_EQ(outcome.sErr, "Error 91 - first line second line\n");
}

TEST_F(Brendle, TellsWrongUsageOfEachSubcommand)
{
    for (const char* arguments : {"", "nonsense", "show OTR", "show --company", "select all", "engagements 1",
                                  "search x", "about x", "help x", "top x", "status all", "treeorder x",
                                  "call", "call ZorvoTSelector.ZorvoTreeSelector", "registry", "setting"}) {
        const Outcome outcome = brendle(arguments);
        EXPECT_EQ(outcome.nExitCode, 2) << arguments;
        EXPECT_THAT(outcome.sErr, StartsWith("usage: brendle")) << arguments;
        EXPECT_EQ(std::count(outcome.sErr.begin(), outcome.sErr.end(), '\n'), 1) << arguments;
        EXPECT_EQ(outcome.sOut, "") << arguments;
    }
    EXPECT_EQ(diary(), "");
}

TEST_F(Brendle, ExplainsEachSubcommand)
{
    const Outcome overview = brendle("--help");
    EXPECT_EQ(overview.nExitCode, 0);
    for (const char* name : {"show", "select", "engagements", "search", "about", "help", "top", "status",
                             "treeorder", "call", "registry", "setting"}) {
        EXPECT_THAT(overview.sOut, HasSubstr(std::string("\n  ") + name + ' '));
        const Outcome outcome = brendle((std::string(name) + " --help").c_str());
        EXPECT_EQ(outcome.nExitCode, 0) << name;
        EXPECT_THAT(outcome.sOut, StartsWith(std::string("usage: brendle ") + name));
    }
    EXPECT_EQ(diary(), "");
}

TEST_F(Brendle, CallConvertsArgumentsByTheOperationsTypes)
{
    const QString kProgId = QStringLiteral("Test.Probe");
    const auto call = [&](const QStringList& arguments) {
        return brendle(QStringList{QStringLiteral("call"), kProgId} + arguments);
    };
    EXPECT_EQ(call({QStringLiteral("Echo"), QStringLiteral("two words")}).sOut, "two words\n");
    EXPECT_EQ(brendle("call test.PROBE ECHO x").sOut, "x\n");
    EXPECT_EQ(call({QStringLiteral("Nothing")}).sOut, "");
    EXPECT_EQ(call({QStringLiteral("Walk"), QStringLiteral("new"), QStringLiteral("[,C:\\a b]"),
                    QStringLiteral("1")})
                  .sOut,
              "259\n\nC:\\a b\nnew\n2\n");
    EXPECT_EQ(
        call({QStringLiteral("Walk"), QStringLiteral("x"), QStringLiteral("[]"), QStringLiteral("0")}).sOut,
        "259\nx\n1\n");
    EXPECT_EQ(call({QStringLiteral("Info"), QStringLiteral("AUD"), QStringLiteral("0x80000002")}).sOut,
              "True\nC:\\AUD\n");
    EXPECT_EQ(call({QStringLiteral("Kinds"), QStringLiteral("true"), QStringLiteral("-1")}).sOut,
              "b True, n -1\n");
    EXPECT_EQ(call({QStringLiteral("Kinds"), QString(), QStringLiteral("some text")}).sOut,
              "missing, s some text\n");
    EXPECT_EQ(call({QStringLiteral("Fail"), QStringLiteral("53"), QStringLiteral("gone")}).sErr,
              "Error 53 - gone\n");
    EXPECT_EQ(call({QStringLiteral("NoSuch")}).nExitCode, 1);
    const Outcome wrong = call({QStringLiteral("Fail"), QStringLiteral("many"), QStringLiteral("x")});
    EXPECT_EQ(wrong.nExitCode, 2);
    EXPECT_EQ(wrong.sErr, "usage: brendle call Test.Probe Fail nNumber:i sText:s; 'many' is no i\n");
    EXPECT_EQ(call({QStringLiteral("Echo")}).sErr, "usage: brendle call Test.Probe Echo sText:s\n");
}

TEST_F(Brendle, CallTellsAnUnknownClass)
{
    const Outcome outcome = brendle("call No.Such Operation");
    EXPECT_EQ(outcome.nExitCode, 1);
    EXPECT_THAT(outcome.sErr, StartsWith("Error 429 - "));
    EXPECT_EQ(brendle("call ZorvoTSelector.clsNone Operation").nExitCode, 1);
}

TEST_F(Brendle, WaitsForACallAsLongAsItTakes)
{
    TestProcess modal(sharedBus(), QStringLiteral(BRENDLE),
                      {QStringLiteral("call"), QStringLiteral("Test.Probe"), QStringLiteral("Modal")});
    ASSERT_TRUE(waitUntil([] { return isServed(sharedBus().address()); }));
    BusClient client(address());
    const QString object = client.create(kProbe);
    EXPECT_TRUE(
        waitUntil([&] { return number(client.call(object, kProbe, QStringLiteral("Living"))) == 2; }));
    EXPECT_FALSE(waitUntil([&] { return !modal.isRunning(); }, 500));
    EXPECT_TRUE(waitUntil([&] {
        return client.call(object, kProbe, QStringLiteral("FinishModal")).type() ==
               QDBusMessage::ReplyMessage;
    }));
    EXPECT_EQ(modal.wait().sOut, "2\n");
}

TEST_F(Brendle, SaysWhatIsMissingWithoutABus)
{
    QProcessEnvironment environment = sharedBus().environment();
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(BRENDLE), {QStringLiteral("show")});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError().toStdString(),
              "Error 429 - There is no session bus: DBUS_SESSION_BUS_ADDRESS isn't set.\n");

    PrivateBus dead;
    dead.kill();
    const Outcome outcome = run(dead, QStringLiteral(BRENDLE), {QStringLiteral("show")});
    EXPECT_EQ(outcome.nExitCode, 1);
    EXPECT_THAT(outcome.sErr, StartsWith("Error 429 - The session bus can't be reached"));
}

TEST_F(Brendle, FailsWhenTheServerCrashes)
{
    BusClient client(address());
    const Outcome outcome = brendle("call Test.Probe Crash");
    EXPECT_EQ(outcome.nExitCode, 1);
    EXPECT_THAT(outcome.sErr, StartsWith("Error 462 - "));
}

TEST_F(Brendle, StartsTheProgramBesideItWhenTheBusCannot)
{
    sharedBus().removeService(QStringLiteral("com.zorvo.TSelector"));
    const QString folder = sharedBus().folder() + QStringLiteral("/bin");
    QDir().mkpath(folder);
    ASSERT_TRUE(QFile::copy(QStringLiteral(BRENDLE), folder + QStringLiteral("/brendle")));
    const Outcome without = run(sharedBus(), folder + QStringLiteral("/brendle"), {QStringLiteral("show")});
    EXPECT_EQ(without.nExitCode, 1);
    EXPECT_THAT(without.sErr, StartsWith("Error 429 - "));
    ASSERT_TRUE(QFile::copy(kTestServer, folder + QStringLiteral("/zorvobrendle")));
    const Outcome with = run(sharedBus(), folder + QStringLiteral("/brendle"), {QStringLiteral("show")});
    EXPECT_EQ(with.nExitCode, 0) << with.sErr;
    EXPECT_EQ(diary(), "ShowTreeDirectly\n");
    QDir(folder).removeRecursively();
}

} // namespace zorvo
