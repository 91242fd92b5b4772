#pragma once

#include "platform/linux/office/OfficeGate.h"
#include "platform/linux/office/OfficeManners.h"
#include "platform/linux/office/OfficeThread.h"

#include <functional>
#include <memory>
#include <utility>

namespace zorvo {

/// A talk with one office process. It begins with the first call; once it is dead it stays so, and another
/// session takes its place.
///
/// Belongs to one thread. Failures are RunTimeError: 429 when the office can't be had, kOfficeDoesNotAnswer
/// when it crashed or hangs, 424 for a document that was closed meanwhile, 438 and 13 for an add-in's member
/// and arguments, 440 for its own failure, 75 for what the office refuses.
class OfficeSession {
public:
    using Work = std::function<void(OfficeConnection&)>;

    OfficeSession(std::shared_ptr<OfficeGate> gate, std::shared_ptr<const OfficeManners> manners);
    ~OfficeSession();
    OfficeSession(const OfficeSession&) = delete;
    OfficeSession& operator=(const OfficeSession&) = delete;

    /// Runs the work on the session's thread and waits for it. A work that hangs may still go on after the
    /// failure, so it owns what it uses.
    void run(Work work);

    template <typename Result>
    Result ask(std::function<Result(OfficeConnection&)> question)
    {
        auto answer = std::make_shared<Result>();
        run([question = std::move(question), answer](OfficeConnection& office) {
            *answer = question(office);
        });
        return std::move(*answer);
    }

    /// For letting go of things: not waited for, nothing when the office doesn't run.
    void tell(Work work);

    bool isRunning() const { return bStarted_ && !bDead_; }
    bool isDead() const { return bDead_; }
    /// It was up and went by itself; one that hangs or never came up hasn't.
    bool hasCrashed() const { return bCrashed_; }

    /// How many documents its users hold open in it.
    int documents() const { return nDocuments_; }
    void countDocument(int nDifference) { nDocuments_ += nDifference; }

    /// Parts with the office; later calls fail.
    void end();

private:
    /// What the thread works with; it may outlive the session.
    struct Line {
        std::shared_ptr<OfficeGate> gate;
        std::unique_ptr<OfficeConnection> connection; // made and used by the thread alone
        std::mutex mutex;
        bool bCut = false; // guarded, as is the use of `connection` by another thread
    };

    void runWithin(const std::function<void()>& work, std::chrono::milliseconds longest);
    void start();
    static void meet(Line& line);
    void cut();
    [[noreturn]] void throwMeaning(const OfficeFailure& failure);

    std::shared_ptr<const OfficeManners> manners_;
    std::shared_ptr<Line> line_ = std::make_shared<Line>();
    bool bStarted_ = false;
    bool bDead_ = false;
    bool bEnded_ = false;
    bool bMet_ = false;
    bool bCrashed_ = false;
    int nDocuments_ = 0;
    OfficeThread thread_;
};

} // namespace zorvo
