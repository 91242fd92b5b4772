#include "platform/linux/environmentFolders.h"
#include "tests/office/TestDesk.h"
#include "tests/office/officeProcesses.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

/// Programs that leave with the office at work: no crash, and nothing of it stays behind.
namespace zorvo {

namespace {

namespace fs = std::filesystem;

struct Ended {
    pid_t office = 0;
    int nStatus = -1;
};

Ended runClient(const std::string& way)
{
    const std::string command = std::string(ZORVO_OFFICE_CLIENT) + " '" +
                                dos(TestDesk::instance().templates() / "LETTER.DOT") + "' " + way;
    FILE* const output = popen(command.c_str(), "r");
    Ended ended;
    if (std::fscanf(output, "%d", &ended.office) != 1)
        ADD_FAILURE() << "the client has no office";
    ended.nStatus = pclose(output);
    return ended;
}

bool runsNoMore(pid_t process)
{
    return waitUntil([&] { return kill(process, 0) != 0; });
}

} // namespace

TEST(EndOfProgram, WithOpenDocumentsIsCleanHoweverItEnds)
{
    for (const char* way : {"exit", "return"}) {
        const Ended ended = runClient(way);
        EXPECT_EQ(ended.nStatus, 0) << way;
        EXPECT_TRUE(runsNoMore(ended.office)) << way;
        for (const auto& entry : fs::directory_iterator(fs::path(cacheHomeFolder()) / "zorvobrendle/office"))
            EXPECT_FALSE(entry.is_directory()) << entry.path();
    }
}

TEST(EndOfProgram, AKilledProgramTakesItsOfficeWithIt)
{
    const Ended ended = runClient("killed");
    EXPECT_NE(ended.nStatus, 0);
    EXPECT_TRUE(runsNoMore(ended.office));
}

} // namespace zorvo
