#include "tests/support/testFolders.h"

namespace zorvo {

// The two names are given to this file alone, so that a compiler cache serves another checkout's tests too.
std::filesystem::path sourceFolder()
{
    return ZORVO_SOURCE_DIR;
}

std::filesystem::path buildFolder()
{
    return ZORVO_BINARY_DIR;
}

} // namespace zorvo
