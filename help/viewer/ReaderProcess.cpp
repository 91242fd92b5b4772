#include "help/viewer/ReaderProcess.h"

#include "help/book/littleEndian.h"

namespace zorvo::help {

namespace {
constexpr std::chrono::seconds kAnswerTakes{5};
constexpr int kEndMilliseconds = 200;
constexpr int kMostStarts = 8;
} // namespace

ReaderProcess::ReaderProcess(QString program, QString file)
    : program_(std::move(program))
    , file_(std::move(file))
{
    process_.setStandardErrorFile(QProcess::nullDevice());
}

ReaderProcess::~ReaderProcess()
{
    end();
}

ReaderState ReaderProcess::open(const std::function<void()>& meanwhile)
{
    ReaderState state = ReaderState::damaged;
    start(state, meanwhile);
    return state;
}

ReaderState ReaderProcess::request(RequestKind kind, const QByteArray& text, QByteArray& bytes)
{
    bytes.clear();
    if (static_cast<std::size_t>(text.size()) > kMostRequest)
        return ReaderState::missing;
    ReaderState state = ReaderState::damaged;
    if (process_.state() == QProcess::Running && ask(kind, text, state, bytes))
        return state;
    // It may have used up what it is given in all: a fresh one gets a try at this request.
    bytes.clear();
    if (start(state) && state == ReaderState::done && ask(kind, text, state, bytes))
        return state;
    bytes.clear();
    return ReaderState::damaged;
}

bool ReaderProcess::start(ReaderState& state, const std::function<void()>& meanwhile)
{
    end();
    state = ReaderState::damaged;
    if (++nStarts_ > kMostStarts)
        return false;
    process_.start(program_, {file_});
    if (meanwhile)
        meanwhile();
    QByteArray nothing;
    return takeAnswer(state, nothing);
}

bool ReaderProcess::ask(RequestKind kind, const QByteArray& text, ReaderState& state, QByteArray& bytes)
{
    QByteArray message(1, static_cast<char>(kind));
    for (unsigned shift = 0; shift < 32; shift += 8)
        message.append(static_cast<char>(static_cast<std::uint32_t>(text.size()) >> shift & 0xffU));
    process_.write(message + text);
    return takeAnswer(state, bytes);
}

bool ReaderProcess::takeAnswer(ReaderState& state, QByteArray& bytes)
{
    const QDeadlineTimer deadline(kAnswerTakes);
    QByteArray header;
    if (takeBytes(static_cast<qsizetype>(kHeaderSize), header, deadline)) {
        const std::uint32_t length = *u32At({header.data(), kHeaderSize}, 1);
        if (length <= kMostAnswer && takeBytes(length, bytes, deadline)) {
            state = static_cast<ReaderState>(header[0]);
            return true;
        }
    }
    end();
    state = ReaderState::damaged;
    return false;
}

bool ReaderProcess::takeBytes(qsizetype count, QByteArray& bytes, const QDeadlineTimer& deadline)
{
    while (process_.bytesAvailable() < count) {
        const qint64 left = deadline.remainingTime();
        if (left <= 0 || !process_.waitForReadyRead(static_cast<int>(left)))
            break;
    }
    bytes = process_.read(count);
    return bytes.size() == count;
}

void ReaderProcess::end()
{
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.closeWriteChannel();
    if (process_.waitForFinished(kEndMilliseconds))
        return;
    process_.kill();
    process_.waitForFinished();
}

} // namespace zorvo::help
