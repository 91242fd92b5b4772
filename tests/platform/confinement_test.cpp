#include "platform/linux/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace zorvo {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

class Confinement : public testing::Test {
protected:
    void SetUp() override
    {
        if (kSanitized)
            GTEST_SKIP() << "a sanitizer needs more than a confined process may";
        testing::FLAGS_gtest_death_test_style = "threadsafe";
    }
};

using ConfinementDeathTest = Confinement;

TEST_F(ConfinementDeathTest, AnOpenFileMayBeReadAndTheProcessMayEnd)
{
    EXPECT_EXIT(
        {
            const int file = open("/etc/passwd", O_RDONLY);
            confineToOpenFiles();
            char byte = 0;
            _exit(read(file, &byte, 1) == 1 ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

TEST_F(ConfinementDeathTest, NoFurtherFileMayBeOpened)
{
    EXPECT_EXIT(
        {
            confineToOpenFiles();
            open("/etc/passwd", O_RDONLY);
            _exit(0);
        },
        testing::KilledBySignal(SIGSYS), "");
}

TEST_F(ConfinementDeathTest, TheFirstStepAllowsReadingAndTheSecondTakesItBack)
{
    EXPECT_EXIT(
        {
            confineToReadingFiles();
            const bool bOpened = open("/etc/passwd", O_RDONLY) >= 0;
            _exit(bOpened ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
    EXPECT_EXIT(
        {
            confineToReadingFiles();
            confineToOpenFiles();
            open("/etc/passwd", O_RDONLY);
            _exit(0);
        },
        testing::KilledBySignal(SIGSYS), "");
}

TEST_F(ConfinementDeathTest, NothingMayBeWrittenStartedOrCalled)
{
    EXPECT_EXIT(
        {
            confineToReadingFiles();
            open("/tmp/confined", O_WRONLY | O_CREAT, 0600);
            _exit(0);
        },
        testing::KilledBySignal(SIGSYS), "");
    EXPECT_EXIT(
        {
            confineToReadingFiles();
            execl("/bin/true", "true", nullptr);
            _exit(0);
        },
        testing::KilledBySignal(SIGSYS), "");
    EXPECT_EXIT(
        {
            confineToReadingFiles();
            socket(AF_UNIX, SOCK_STREAM, 0);
            _exit(0);
        },
        testing::KilledBySignal(SIGSYS), "");
}

TEST_F(ConfinementDeathTest, MemoryIsBounded)
{
    EXPECT_EXIT(
        {
            limitProcess();
            void* memory = std::malloc(std::size_t{600} << 20U);
            _exit(memory == nullptr ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

} // namespace
} // namespace zorvo
