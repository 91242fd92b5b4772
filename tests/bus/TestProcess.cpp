#include "tests/bus/TestProcess.h"

#include "tests/bus/BusClient.h"

namespace zorvo {

Outcome run(const PrivateBus& bus, const QString& program, const QStringList& arguments, int nMilliseconds)
{
    return TestProcess(bus, program, arguments).wait(nMilliseconds);
}

TestProcess::TestProcess(const PrivateBus& bus, const QString& program, const QStringList& arguments)
{
    process_.setProcessEnvironment(bus.environment());
    process_.start(program, arguments);
    process_.waitForStarted();
}

TestProcess::~TestProcess()
{
    process_.kill();
    process_.waitForFinished();
}

Outcome TestProcess::wait(int nMilliseconds)
{
    Outcome outcome;
    if (waitUntil([this] { return !isRunning(); }, nMilliseconds) &&
        process_.exitStatus() == QProcess::NormalExit)
        outcome.nExitCode = process_.exitCode();
    outcome.sOut = process_.readAllStandardOutput().toStdString();
    outcome.sErr = process_.readAllStandardError().toStdString();
    return outcome;
}

} // namespace zorvo
