#include "client/givenPath.h"

#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <filesystem>

namespace zorvo {

namespace {

bool hasDrive(const std::string& sPath)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return sPath.size() >= 2 && isLetter(sPath[0]) && sPath[1] == ':';
}

} // namespace

std::string givenPath(const std::string& sGiven)
{
    if (hasDrive(sGiven))
        return replaceAll(sGiven, "/", "\\");
    const std::filesystem::path native = replaceAll(sGiven, "\\", "/");
    return platform().files->fromNative(std::filesystem::absolute(native).lexically_normal().string());
}

} // namespace zorvo
