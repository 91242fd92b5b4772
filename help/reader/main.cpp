#include "help/reader/serveBook.h"
#include "platform/linux/confinement.h"

#include <iostream>

/// `brendle-help-reader FILE`: the viewer's hands in a book. It answers on its standard streams and is of no
/// use by itself.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: brendle-help-reader FILE (started by brendle-help)\n";
        return 2;
    }
    std::ios::sync_with_stdio(false);
    zorvo::limitProcess();
    return zorvo::help::serveBook(argv[1], std::cin, std::cout,
                                  {zorvo::confineToReadingFiles, zorvo::confineToOpenFiles});
}
