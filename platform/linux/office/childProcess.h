#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zorvo {

enum class ChildLife {
    withStarter, // killed when the thread that started it ends
    ofItsOwn,    // in a session of its own; stays when this program ends
};

/// Starts a program without our files, standard streams and signal mask. `arguments` begins with the
/// program's path, `environment` holds "NAME=value". Throws RunTimeError 429 when no process can be made; a
/// program that can't be run ends with code 127.
pid_t startChild(std::vector<std::string> arguments, std::vector<std::string> environment, ChildLife life);

/// The environment of this program.
std::vector<std::string> ownEnvironment();

/// The exit code, 128 and the number after a signal, of what `waitpid` gave.
int exitCodeOf(int status);

} // namespace zorvo
