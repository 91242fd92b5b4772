#pragma once

#include <sys/types.h>

#include <functional>

namespace zorvo {

/// A copy of the test process that runs `work` and ends with its result as exit code; 99 when it threw.
class ChildProcess {
public:
    enum class User { same, ordinary };

    /// `ordinary` drops root's rights, which permissions don't bind.
    explicit ChildProcess(const std::function<int()>& work, User user = User::same);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Waits for its end; the exit code, or minus the signal that ended it.
    int result();

private:
    pid_t id_;
    bool bWaited_ = false;
};

} // namespace zorvo
