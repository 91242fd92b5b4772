#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zorvo {

/// The files of the sockets that a process has made in the file system.
std::vector<std::string> socketsOf(pid_t process);

} // namespace zorvo
