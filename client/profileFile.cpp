#include "client/profileFile.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "client/fileText.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <sstream>

namespace zorvo {

namespace {

/// The line as it goes on, or nothing for one that says nothing.
std::string profileLine(const std::string& sLine, int nLine)
{
    const std::string sText = withoutBlankEnds(sLine);
    if (sText.empty() || sText.front() == '#')
        return {};
    const auto nEquals = sText.find('=');
    const std::string sKey = withoutBlankEnds(sText.substr(0, nEquals));
    if (nEquals == std::string::npos || sKey.empty())
        throw RunTimeError(kTypeMismatch,
                           "Line " + std::to_string(nLine) + " of the profile is not of the form key=value");
    return sKey + "=" + withoutBlankEnds(sText.substr(nEquals + 1)) + "\n";
}

} // namespace

std::string readProfileFile(const std::string& sPath)
{
    const std::string sBytes = withoutByteOrderMark(platform().files->read(sPath));
    if (!isUtf8(sBytes))
        throw RunTimeError(kTypeMismatch, "The profile is no text in UTF-8");
    std::istringstream lines(sBytes);
    std::string sProfile;
    std::string sLine;
    for (int nLine = 1; std::getline(lines, sLine); ++nLine)
        sProfile += profileLine(sLine, nLine);
    if (sProfile.empty())
        throw RunTimeError(kTypeMismatch, "The profile holds no line key=value");
    return sProfile;
}

} // namespace zorvo
