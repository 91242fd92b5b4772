#include "platform/linux/office/processSockets.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

/// The socket numbers among the open files of a process.
std::set<std::string> openSockets(pid_t process)
{
    std::set<std::string> numbers;
    std::error_code ignored;
    for (const fs::directory_entry& entry :
         fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", ignored)) {
        const std::string target = fs::read_symlink(entry.path(), ignored).string();
        if (target.starts_with("socket:["))
            numbers.insert(target.substr(8, target.size() - 9));
    }
    return numbers;
}

} // namespace

std::vector<std::string> socketsOf(pid_t process)
{
    const std::set<std::string> numbers = openSockets(process);
    std::vector<std::string> paths;
    std::ifstream table("/proc/net/unix");
    std::string line;
    while (std::getline(table, line)) {
        std::istringstream columns(line);
        std::string skipped;
        std::string number;
        std::string path;
        columns >> skipped >> skipped >> skipped >> skipped >> skipped >> skipped >> number;
        std::getline(columns >> std::ws, path);
        if (path.starts_with('/') && numbers.contains(number))
            paths.push_back(path);
    }
    return paths;
}

} // namespace zorvo
