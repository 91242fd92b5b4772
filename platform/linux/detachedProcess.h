#pragma once

#include <string>
#include <vector>

namespace zorvo {

/// Starts a program that outlives this one: a process of the init process's, in a session of its own, without
/// our files and standard streams. Returns when the program runs: 0, or the `errno` of what kept it from
/// running. `folder` is its working folder; one that can't be entered is passed over.
int startDetached(const std::string& program, const std::vector<std::string>& arguments,
                  const std::string& folder);

/// The file of that name that can be run, in the folders of `PATH`; empty when there is none. A name with a
/// slash is looked at as it is.
std::string findProgram(const std::string& name);

} // namespace zorvo
