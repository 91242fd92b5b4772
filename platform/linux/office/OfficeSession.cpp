#include "platform/linux/office/OfficeSession.h"

#include "base/RunTimeError.h"
#include "platform/Office.h"
#include "platform/linux/office/OfficeSessions.h"

#include <cstdlib>
#include <thread>

namespace zorvo {

namespace {

/// How long a call may take to come back after it was cut off.
constexpr std::chrono::milliseconds kLongestReturn{5'000};
constexpr int kAutomationError = 440;
constexpr int kMostTries = 4;
constexpr std::chrono::milliseconds kPauseBeforeRetry{200};

} // namespace

OfficeSession::OfficeSession(std::shared_ptr<OfficeGate> gate, std::shared_ptr<const OfficeManners> manners)
    : manners_(std::move(manners))
{
    line_->gate = std::move(gate);
}

OfficeSession::~OfficeSession()
{
    end();
}

void OfficeSession::run(Work work)
{
    if (bDead_)
        throw RunTimeError(kOfficeDoesNotAnswer, line_->gate->crashText());
    start();
    runWithin([line = line_, work = std::move(work)] { work(*line->connection); }, manners_->longestCall);
}

void OfficeSession::tell(Work work)
{
    if (isRunning())
        thread_.post([line = line_, work = std::move(work)] { work(*line->connection); },
                     manners_->longestCall);
}

void OfficeSession::meet(Line& line)
{
    // An office that has just come up, or just come back, may drop a caller once.
    for (int nTry = 1;; ++nTry) {
        try {
            auto connection = line.gate->connect();
            {
                const std::lock_guard lock(line.mutex);
                line.connection = std::move(connection);
                if (line.bCut)
                    line.connection->breakOff();
            }
            line.connection->greet();
            return;
        } catch (const OfficeFailure& failure) {
            if (failure.kind() != OfficeFailure::Kind::lost || nTry == kMostTries)
                throw;
        }
        std::this_thread::sleep_for(kPauseBeforeRetry);
    }
}

void OfficeSession::start()
{
    if (bStarted_)
        return;
    bStarted_ = true;
    try {
        runWithin([line = line_] { meet(*line); }, manners_->longestStart);
        bMet_ = true;
        // What was loaded meanwhile has put its own clean-up on the process's list; ours has to run ahead of
        // it.
        std::atexit(endAllOfficeSessions);
    } catch (const RunTimeError&) {
        end();
        throw;
    }
}

void OfficeSession::runWithin(const std::function<void()>& work, std::chrono::milliseconds longest)
{
    const OfficeThread::JobPtr job = thread_.post(work, longest);
    if (thread_.wait(job, manners_->idleWork) == OfficeThread::Outcome::overdue) {
        end();
        throw RunTimeError(kOfficeDoesNotAnswer, line_->gate->hangText());
    }
    try {
        OfficeThread::rethrowFailure(job);
    } catch (const OfficeFailure& failure) {
        throwMeaning(failure);
    }
}

void OfficeSession::cut()
{
    bDead_ = true;
    line_->gate->close();
    const std::lock_guard lock(line_->mutex);
    line_->bCut = true;
    if (line_->connection)
        line_->connection->breakOff();
}

void OfficeSession::end()
{
    if (bEnded_)
        return;
    bEnded_ = true;
    cut();
    // What the thread holds of the office has to go on that thread, and soon: a dead connection that is still
    // held breaks the next one.
    const auto job = thread_.post(
        [line = line_] {
            const std::lock_guard lock(line->mutex);
            line->connection.reset();
        },
        kLongestReturn);
    if (!thread_.isDoneWithin(job, kLongestReturn))
        thread_.abandon();
}

void OfficeSession::throwMeaning(const OfficeFailure& failure)
{
    switch (failure.kind()) {
    case OfficeFailure::Kind::lost: {
        bCrashed_ = bMet_;
        // Ahead of the end, which makes an end of its own of a crash.
        const std::string sText = line_->gate->crashText();
        end();
        throw RunTimeError(kOfficeDoesNotAnswer, sText);
    }
    case OfficeFailure::Kind::noDocument:
        throw RunTimeError(kObjectRequired, "The document has been closed.");
    case OfficeFailure::Kind::noMember:
        throw RunTimeError(kMemberNotFound);
    case OfficeFailure::Kind::badArguments:
        throw RunTimeError(kTypeMismatch, failure.what());
    case OfficeFailure::Kind::raised:
        throw RunTimeError(kAutomationError, failure.what());
    case OfficeFailure::Kind::refused:
        break;
    }
    throw RunTimeError(kPathOrFileAccess, failure.what());
}

} // namespace zorvo
