#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace zorvo {

/// The thread on which all calls to one office run, in order. A call to an office that hangs never returns by
/// itself, so whoever waits for one does so with an eye on the clock.
class OfficeThread {
public:
    class Job {
        friend class OfficeThread;
        std::function<void()> work;
        std::chrono::milliseconds longest{};
        std::optional<std::chrono::steady_clock::time_point> begun;
        std::exception_ptr failure;
        bool bDone = false;
    };
    using JobPtr = std::shared_ptr<Job>;

    enum class Outcome { done, overdue };

    OfficeThread();
    /// Waits for the jobs that are left, unless the thread was left to itself.
    ~OfficeThread();
    OfficeThread(const OfficeThread&) = delete;
    OfficeThread& operator=(const OfficeThread&) = delete;

    /// `work` may run after the caller has given up: it owns what it uses. It has `longest` to finish.
    JobPtr post(std::function<void()> work, std::chrono::milliseconds longest);

    /// Calls `idle` about every 20 ms until the job is done, or until it or one ahead of it takes too long.
    /// What `idle` throws comes out after the wait.
    Outcome wait(const JobPtr& job, const std::function<void()>& idle);
    bool isDoneWithin(const JobPtr& job, std::chrono::milliseconds longest);
    /// Throws what the work has thrown. The job is done.
    static void rethrowFailure(const JobPtr& job);

    /// The running job will not end: nobody waits for it any more.
    void abandon();

private:
    /// Outlives this object when the thread was left to itself.
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<JobPtr> jobs; // the first one runs
        bool bStop = false;
    };

    static void runJobs(const std::shared_ptr<State>& state);
    bool isOverdue() const;

    std::shared_ptr<State> state_ = std::make_shared<State>();
    std::thread thread_;
};

} // namespace zorvo
