#pragma once

#include "help/reader/protocol.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QString>
#include <functional>

namespace zorvo::help {

/// A book, read by a process that may fall over it. A reader that has crashed or hangs is replaced once and
/// again, but not for ever; what it fell over counts as damaged.
class ReaderProcess {
public:
    /// `program` is the reader's executable, `file` the book, both native paths.
    ReaderProcess(QString program, QString file);
    ~ReaderProcess();

    /// Starts the reader and tells whether the book can be opened. Waits for the reader, a few seconds at
    /// most, as `request` does.
    ReaderState open(const std::function<void()>& meanwhile = {});
    /// Asks for what protocol.h says. `bytes` is empty unless the answer is done.
    ReaderState request(RequestKind kind, const QByteArray& text, QByteArray& bytes);

private:
    bool start(ReaderState& state, const std::function<void()>& meanwhile = {});
    bool ask(RequestKind kind, const QByteArray& text, ReaderState& state, QByteArray& bytes);
    bool takeAnswer(ReaderState& state, QByteArray& bytes);
    bool takeBytes(qsizetype count, QByteArray& bytes, const QDeadlineTimer& deadline);
    void end();

    QString program_;
    QString file_;
    QProcess process_;
    int nStarts_ = 0;
};

} // namespace zorvo::help
