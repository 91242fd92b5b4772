#include "platform/linux/LinuxLauncher.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/dosPath.h"
#include "platform/linux/detachedProcess.h"
#include "platform/linux/nativeFiles.h"

#include <sys/stat.h>

#include <vector>

namespace zorvo {

namespace {

enum OpenResult : int { kNothingThere = 2, kNotStarted = 5, kNoOpener = 31, kStarted = 42 };

bool exists(const std::string& native)
{
    struct stat status {};
    return stat(native.c_str(), &status) == 0;
}

/// A page of the machine may come as "file://" and its backslash path, which no browser knows.
std::string withoutFileScheme(const std::string& target)
{
    constexpr std::string_view kFileScheme = "file://";
    const bool bFile = target.starts_with(kFileScheme) && !target.starts_with("file:///");
    std::string path = bFile ? target.substr(kFileScheme.size()) : std::string();
    return parseDosPath(path) ? path : target;
}

/// The rest of a command line as arguments: parted by blanks, quotes hold them together, \" is a quote.
std::vector<std::string> splitArguments(std::string_view rest)
{
    std::vector<std::string> arguments;
    std::string argument;
    bool bAny = false;
    bool bQuoted = false;
    for (std::size_t at = 0; at < rest.size(); ++at) {
        const bool bBlank = rest[at] == ' ' || rest[at] == '\t';
        if (bBlank && !bQuoted) {
            if (bAny)
                arguments.push_back(std::move(argument));
            argument.clear();
            bAny = false;
            continue;
        }
        bAny = true;
        if (rest[at] == '"') {
            bQuoted = !bQuoted;
            continue;
        }
        if (rest[at] == '\\' && at + 1 < rest.size() && rest[at + 1] == '"')
            ++at;
        argument.push_back(rest[at]);
    }
    if (bAny)
        arguments.push_back(std::move(argument));
    return arguments;
}

struct Command {
    std::string sProgram; // native
    std::string_view rest;
};

/// Empty when nothing that the line begins with is a program.
Command splitCommand(const DosPaths& paths, std::string_view line)
{
    const auto program = [&paths](std::string_view name) {
        const std::string text(name);
        return findProgram(parseDosPath(text) ? paths.toNative(text) : text);
    };
    if (line.starts_with('"')) {
        const std::size_t close = std::min(line.find('"', 1), line.size());
        return {program(line.substr(1, close - 1)), line.substr(std::min(close + 1, line.size()))};
    }
    for (std::size_t end = line.find(' ');; end = line.find(' ', end + 1)) {
        Command command{program(line.substr(0, end)), end == std::string_view::npos ? "" : line.substr(end)};
        if (!command.sProgram.empty() || end == std::string_view::npos)
            return command;
    }
}

} // namespace

LinuxLauncher::LinuxLauncher(DosPaths paths)
    : paths_(std::move(paths))
{
}

int LinuxLauncher::open(const std::string& target, const std::string& /*parameters*/,
                        const std::string& directory, Show /*show*/, std::uintptr_t /*ownerWindow*/)
{
    const std::string sTarget = withoutFileScheme(cutAtNull(target));
    const bool bPath = parseDosPath(sTarget).has_value();
    const std::string native = bPath ? paths_.toNative(sTarget) : sTarget;
    if ((bPath && !exists(native)) || native.starts_with('-'))
        return kNothingThere;
    const std::string opener = findProgram("xdg-open");
    if (opener.empty())
        return kNoOpener;
    const std::string folder = parseDosPath(directory) ? paths_.toNative(directory) : std::string();
    return startDetached(opener, {native}, folder) == 0 ? kStarted : kNotStarted;
}

void LinuxLauncher::start(const std::string& commandLine)
{
    const std::string line = trimBlanks(cutAtNull(commandLine));
    const Command command = splitCommand(paths_, line);
    if (command.sProgram.empty())
        throw RunTimeError(kFileNotFound);
    std::vector<std::string> arguments = splitArguments(command.rest);
    for (std::string& argument : arguments)
        argument = paths_.toNative(argument);
    if (const int failure = startDetached(command.sProgram, arguments, {}); failure != 0)
        throwSystemError(failure);
}

} // namespace zorvo
