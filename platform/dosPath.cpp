#include "platform/dosPath.h"

namespace zorvo {

namespace {

constexpr std::string_view kSeparators = "\\/";

bool isDriveLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

char capital(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::vector<std::string> splitLevels(std::string_view path)
{
    std::vector<std::string> levels;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = path.find_first_of(kSeparators, at);
        const std::string_view level = path.substr(at, end - at);
        if (level == "..") {
            if (!levels.empty())
                levels.pop_back();
        } else if (!level.empty() && level != ".") {
            levels.emplace_back(level);
        }
        if (end == std::string_view::npos)
            break;
        at = end + 1;
    }
    return levels;
}

} // namespace

std::optional<DosPath> parseDosPath(std::string_view path)
{
    if (path.find('\0') != std::string_view::npos)
        return std::nullopt;
    if (path.size() >= 2 && isDriveLetter(path[0]) && path[1] == ':')
        return DosPath{capital(path[0]), splitLevels(path.substr(2))};
    const bool bNative = !path.empty() && path[0] == '/' &&
                         (path.size() == 1 || kSeparators.find(path[1]) == std::string::npos);
    if (!bNative)
        return std::nullopt;
    return DosPath{'Z', splitLevels(path)};
}

std::string dosPathText(const DosPath& path)
{
    std::string text{path.drive, ':'};
    if (path.levels.empty())
        text += '\\';
    for (const std::string& level : path.levels)
        text.append("\\").append(level);
    return text;
}

} // namespace zorvo
