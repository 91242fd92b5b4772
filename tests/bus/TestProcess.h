#pragma once

#include "tests/bus/PrivateBus.h"

#include <QProcess>
#include <QStringList>
#include <string>

namespace zorvo {

/// A program run to its end in a bus's environment.
struct Outcome {
    /// -1 when it didn't end in time or crashed.
    int nExitCode = -1;
    std::string sOut;
    std::string sErr;
};

Outcome run(const PrivateBus& bus, const QString& program, const QStringList& arguments = {},
            int nMilliseconds = 20000);

/// A program that runs beside the test and is killed with this object at the latest.
class TestProcess {
public:
    TestProcess(const PrivateBus& bus, const QString& program, const QStringList& arguments = {});
    ~TestProcess();

    /// Its outcome; the test's event loop runs while waiting.
    Outcome wait(int nMilliseconds = 20000);
    bool isRunning() const { return process_.state() != QProcess::NotRunning; }
    void kill() { process_.kill(); }

private:
    QProcess process_;
};

} // namespace zorvo
