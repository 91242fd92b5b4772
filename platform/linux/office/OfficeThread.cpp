#include "platform/linux/office/OfficeThread.h"

#include <csignal>

namespace zorvo {

namespace {

constexpr std::chrono::milliseconds kIdlePeriod{20};

/// An office that dies while it is written to would take this program with it. The threads that the
/// connection makes inherit the mask from the one that opens it.
void surviveBrokenPipes()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

} // namespace

OfficeThread::OfficeThread()
    : thread_([state = state_] { runJobs(state); })
{
}

OfficeThread::~OfficeThread()
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->bStop = true;
    }
    state_->changed.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void OfficeThread::runJobs(const std::shared_ptr<State>& state)
{
    surviveBrokenPipes();
    std::unique_lock lock(state->mutex);
    for (;;) {
        state->changed.wait(lock, [&] { return state->bStop || !state->jobs.empty(); });
        if (state->jobs.empty())
            return;
        const JobPtr job = state->jobs.front();
        job->begun = std::chrono::steady_clock::now();
        lock.unlock();
        std::exception_ptr failure;
        try {
            job->work();
        } catch (...) {
            failure = std::current_exception(); // for the one who waits
        }
        lock.lock();
        job->failure = failure;
        job->work = nullptr;
        job->bDone = true;
        state->jobs.pop_front();
        state->changed.notify_all();
    }
}

OfficeThread::JobPtr OfficeThread::post(std::function<void()> work, std::chrono::milliseconds longest)
{
    auto job = std::make_shared<Job>();
    job->work = std::move(work);
    job->longest = longest;
    {
        const std::lock_guard lock(state_->mutex);
        state_->jobs.push_back(job);
    }
    state_->changed.notify_all();
    return job;
}

bool OfficeThread::isOverdue() const
{
    if (state_->jobs.empty() || !state_->jobs.front()->begun)
        return false;
    const Job& running = *state_->jobs.front();
    return std::chrono::steady_clock::now() > *running.begun + running.longest;
}

OfficeThread::Outcome OfficeThread::wait(const JobPtr& job, const std::function<void()>& idle)
{
    std::exception_ptr idleFailure;
    std::unique_lock lock(state_->mutex);
    while (!state_->changed.wait_for(lock, kIdlePeriod, [&] { return job->bDone; })) {
        if (isOverdue())
            return Outcome::overdue;
        if (!idle || idleFailure)
            continue;
        lock.unlock();
        try {
            idle();
        } catch (...) {
            idleFailure = std::current_exception();
        }
        lock.lock();
    }
    if (idleFailure)
        std::rethrow_exception(idleFailure);
    return Outcome::done;
}

bool OfficeThread::isDoneWithin(const JobPtr& job, std::chrono::milliseconds longest)
{
    std::unique_lock lock(state_->mutex);
    return state_->changed.wait_for(lock, longest, [&] { return job->bDone; });
}

void OfficeThread::rethrowFailure(const JobPtr& job)
{
    if (job->failure)
        std::rethrow_exception(job->failure);
}

void OfficeThread::abandon()
{
    if (thread_.joinable())
        thread_.detach();
}

} // namespace zorvo
