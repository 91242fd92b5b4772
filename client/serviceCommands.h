#pragma once

#include <ostream>
#include <string>
#include <vector>

/// The subcommands of `brendle` that call the program's own classes. Each takes what stands behind its name
/// and gives the exit code; calls have no time-out, since they last as long as their windows.
namespace zorvo {

int runShowCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runSelectCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runEngagementsCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runSearchCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runAboutCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runHelpCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runTopCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runStatusCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int runTreeOrderCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
