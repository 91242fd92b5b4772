#include "tests/support/childProcess.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>

namespace zorvo {

namespace {

bool dropRights()
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() != 0)
        return true;
    return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
}

} // namespace

ChildProcess::ChildProcess(const std::function<int()>& work, User user)
    : id_(fork())
{
    if (id_ != 0)
        return;
    int result = 99;
    try {
        if (user == User::same || dropRights())
            result = work();
    } catch (const std::exception&) { // told by the exit code
    }
    _exit(result);
}

ChildProcess::~ChildProcess()
{
    if (!bWaited_)
        result();
}

int ChildProcess::result()
{
    int status = 0;
    bWaited_ = true;
    if (waitpid(id_, &status, 0) != id_)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace zorvo
