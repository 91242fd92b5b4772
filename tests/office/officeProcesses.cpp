#include "tests/office/officeProcesses.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

namespace zorvo {

namespace fs = std::filesystem;

namespace {

std::string commandLineOf(const std::string& process)
{
    std::ifstream file("/proc/" + process + "/cmdline", std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    std::string line = text.str();
    std::replace(line.begin(), line.end(), '\0', ' ');
    return line;
}

/// State and parent out of /proc/PID/stat; the name before them may hold blanks.
std::pair<char, pid_t> stateOf(const std::string& process)
{
    std::ifstream file("/proc/" + process + "/stat");
    std::string line;
    std::getline(file, line);
    std::istringstream rest(line.substr(std::min(line.size(), line.rfind(')') + 1)));
    char state = 'X';
    pid_t parent = 0;
    rest >> state >> parent;
    return {state, parent};
}

std::vector<pid_t> processes(const std::function<bool(const std::string&)>& wanted)
{
    std::vector<pid_t> found;
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (std::isdigit(static_cast<unsigned char>(name.front())) != 0 && wanted(name))
            found.push_back(std::stoi(name));
    }
    return found;
}

} // namespace

std::vector<pid_t> officeChildren()
{
    return processes([](const std::string& process) {
        const auto [state, parent] = stateOf(process);
        return parent == getpid() && state != 'Z' &&
               commandLineOf(process).find("soffice.bin") != std::string::npos;
    });
}

std::vector<pid_t> processesWith(const std::string& text)
{
    return processes([&](const std::string& process) {
        return stateOf(process).first != 'Z' && commandLineOf(process).find(text) != std::string::npos;
    });
}

} // namespace zorvo
