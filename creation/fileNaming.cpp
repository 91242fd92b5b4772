#include "creation/fileNaming.h"

#include "base/failure.h"
#include "base/text.h"
#include "platform/machineAccess.h"

#include <algorithm>

namespace zorvo {

namespace {

constexpr int kNumbers = 999;

std::string numberedName(const std::string& sBase, int n, const std::string& sExt)
{
    std::string sNumber = std::to_string(n);
    sNumber.insert(0, 3 - std::min<std::size_t>(3, sNumber.size()), '0');
    return sBase + "_" + sNumber + sExt;
}

} // namespace

std::string sBaseNameFor(const std::string& sTemplatePath, const std::string& sTemplateExt,
                         const std::string& sFolder)
{
    const auto nExt = findNoCase(sTemplatePath, sTemplateExt);
    const auto nBackslash = sTemplatePath.rfind('\\');
    const std::size_t nName = nBackslash == std::string::npos ? 0 : nBackslash + 1;
    if (nExt == std::string::npos || nExt < nName)
        throw RunTimeError(kInvalidCall);
    return sFolder + sTemplatePath.substr(nName, nExt - nName);
}

std::string ParseFileName(const std::string& sTemplatePath, const std::string& sTemplateExt,
                          const std::string& sFolder, const std::string& sNewExt)
{
    try {
        return CreateNewFileName(sBaseNameFor(sTemplatePath, sTemplateExt, sFolder), sNewExt);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.ParseFileName");
        return {};
    }
}

std::string CreateNewFileName(const std::string& sBase, const std::string& sExt)
{
    try {
        if (auto sName = sFreeFileName(sBase, sExt))
            return *std::move(sName);
        throw RunTimeError(kTypeMismatch);
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("TreeSupport.CreateNewFileName");
        return numberedName(sBase, kNumbers, sExt);
    }
}

std::optional<std::string> sFreeFileName(const std::string& sBase, const std::string& sExt)
{
    std::string sCandidate = sBase + sExt;
    for (int n = 0; bFileExists(sCandidate); ++n) {
        if (n == kNumbers)
            return std::nullopt;
        sCandidate = numberedName(sBase, n, sExt);
    }
    return sCandidate;
}

std::string sSaveNameFor(const std::string& sTemplatePath, const std::string& sTemplateExt,
                         const std::string& sFolder, std::string& sFileName, const std::string& sNewExt)
{
    if (!sFileName.empty())
        return CreateNewFileName(sFolder + sFileName, sNewExt);
    std::string sSaveName = ParseFileName(sTemplatePath, sTemplateExt, sFolder, sNewExt);
    sFileName = sSaveName.substr(sSaveName.rfind('\\') + 1);
    return sSaveName;
}

} // namespace zorvo
