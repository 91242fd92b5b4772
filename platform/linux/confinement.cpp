#include "platform/linux/confinement.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <fcntl.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zorvo {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

constexpr rlim_t kMemory = rlim_t{512} << 20U;
constexpr rlim_t kSeconds = 10;

void limit(__rlimit_resource resource, rlim_t most)
{
    const rlimit bounds{most, most};
    setrlimit(resource, &bounds);
}

#if defined(__x86_64__)
constexpr unsigned kMachine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned kMachine = AUDIT_ARCH_AARCH64;
#else
constexpr unsigned kMachine = 0;
#endif

/// What reading an open file and answering takes.
constexpr std::array kAllowed{SYS_read,         SYS_write,      SYS_pread64,   SYS_lseek,  SYS_readv,
                              SYS_writev,       SYS_brk,        SYS_mmap,      SYS_munmap, SYS_mremap,
                              SYS_madvise,      SYS_mprotect,   SYS_fstat,     SYS_futex,  SYS_close,
                              SYS_exit,         SYS_exit_group, SYS_getrandom, SYS_gettid, SYS_rt_sigprocmask,
                              SYS_rt_sigreturn, SYS_newfstatat};

enum class MayOpen { reading, nothing };

/// The list of instructions by which the kernel judges each call.
class CallFilter {
public:
    CallFilter()
    {
        load(offsetof(seccomp_data, arch));
        add(BPF_JMP | BPF_JEQ | BPF_K, kMachine, 1, 0);
        add(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS);
        load(offsetof(seccomp_data, nr));
    }

    void allow(long number)
    {
        add(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 1);
        add(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    }

    /// The last rule: what comes behind it is for this call alone.
    void allowOpeningForReading()
    {
        add(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 3);
        load(offsetof(seccomp_data, args) + 2 * sizeof(std::uint64_t));
        add(BPF_JMP | BPF_JSET | BPF_K, O_ACCMODE | O_CREAT | O_TRUNC, 1, 0);
        add(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    }

    void install()
    {
        add(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS);
        const sock_fprog program{static_cast<unsigned short>(instructions_.size()), instructions_.data()};
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
    }

private:
    void load(std::size_t offset) { add(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset)); }
    void add(unsigned code, unsigned value, unsigned char whenTrue = 0, unsigned char whenFalse = 0)
    {
        instructions_.push_back({static_cast<unsigned short>(code), whenTrue, whenFalse, value});
    }

    std::vector<sock_filter> instructions_;
};

void confine(MayOpen mayOpen)
{
    if (kSanitized || kMachine == 0 || prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return;
    CallFilter filter;
    for (const long number : kAllowed)
        filter.allow(number);
    if (mayOpen == MayOpen::reading) {
        filter.allow(SYS_prctl); // for the second step
        filter.allowOpeningForReading();
    }
    filter.install();
}

} // namespace

void limitProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CPU, kSeconds);
    if (!kSanitized)
        limit(RLIMIT_AS, kMemory);
}

void confineToReadingFiles()
{
    confine(MayOpen::reading);
}

void confineToOpenFiles()
{
    confine(MayOpen::nothing);
}

} // namespace zorvo
