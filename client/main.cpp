#include "client/brendle.h"

#include <QCoreApplication>
#include <iostream>

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    const QCoreApplication application(argc, argv);
    const int nExitCode = zorvo::runBrendle(args, std::cout, std::cerr);
    std::cout.flush();
    // A full disk or a reader that has gone is a failure as well.
    return std::cout ? nExitCode : 1;
}
