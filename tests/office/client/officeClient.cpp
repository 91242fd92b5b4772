// A program that leaves in the middle of its work with the office. Arguments: the template as a backslash
// path and how to leave: "exit", "return" or "killed". Prints the process number of its office.

#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/linuxPlatform.h"
#include "tests/office/officeProcesses.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    using namespace zorvo;
    if (argc != 3)
        return 2;
    installLinuxPlatform();
    platform().office = makeLibreOffice();
    // Held until the end, as the program's own references are.
    static const std::shared_ptr<WordApplication> word = platform().office->createWord();
    word->documentsAdd(argv[1]);
    static const std::shared_ptr<WordDocument> document = word->activeDocument();
    std::printf("%d\n", officeChildren().at(0));
    std::fflush(stdout);
    const std::string sWay = argv[2];
    if (sWay == "killed")
        raise(SIGKILL);
    if (sWay == "exit")
        std::exit(0);
    return 0;
}
