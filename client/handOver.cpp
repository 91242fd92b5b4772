#include "client/handOver.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

namespace zorvo {

namespace {

constexpr const char* kFolder = "\\Halvern House\\Brendle\\";
constexpr const char* kName = "DFS_DFK.txt";

/// An engagement may have line ends within its text; the last one alone ends the line.
std::string withoutLineEnd(const std::string& sText)
{
    return sText.substr(0, sText.find_last_not_of("\r\n") + 1);
}

/// The quotes are the line's own; the text has none.
std::string unquoted(const std::string& sLine)
{
    const bool bQuoted = sLine.size() >= 2 && sLine.front() == '"' && sLine.back() == '"';
    return bQuoted ? sLine.substr(1, sLine.size() - 2) : sLine;
}

} // namespace

HandOverFile::HandOverFile()
{
    if (bGetDocsFolder(sPath_, kFolder))
        sPath_ += kName;
    before_ = state();
}

std::optional<HandOverFile::State> HandOverFile::state() const
{
    if (!bFileExists(sPath_))
        return {};
    return State{platform().files->lastModified(sPath_), platform().files->size(sPath_)};
}

std::optional<std::string> HandOverFile::newText() const
{
    const auto now = state();
    // A session that couldn't delete the file of an earlier one hasn't written it.
    if (!now || now == before_)
        return {};
    return unquoted(withoutLineEnd(platform().files->read(sPath_)));
}

} // namespace zorvo
