#include "creation/SaveName.h"

#include "base/RunTimeError.h"
#include "creation/creationState.h"
#include "creation/fileNaming.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

#include <utility>

namespace zorvo {

namespace {

constexpr int kMostNames = 5;

/// Whether saves may replace files, as long as this lives.
class Replacing {
public:
    explicit Replacing(bool bAllowed) { set(!bAllowed || creationState().bReplaceNothing); }
    ~Replacing() { set(creationState().bReplaceNothing); }
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;

private:
    static void set(bool bNever)
    {
        if (platform().office)
            platform().office->setNeverReplaceFiles(bNever);
    }
};

} // namespace

SaveName::SaveName(std::string sTemplatePath, std::string sTemplateExt, std::string sFolder,
                   std::string& sFileName, std::string sNewExt)
    : sTemplatePath_(std::move(sTemplatePath))
    , sTemplateExt_(std::move(sTemplateExt))
    , sFolder_(std::move(sFolder))
    , sGivenName_(sFileName)
    , sFileName_(sFileName)
    , sNewExt_(std::move(sNewExt))
{
    make();
}

void SaveName::make()
{
    sFileName_ = sGivenName_;
    sPath_ = sSaveNameFor(sTemplatePath_, sTemplateExt_, sFolder_, sFileName_, sNewExt_);
    bTaken_ = bFileExists(sPath_);
}

void SaveName::save(const std::function<void(const std::string& sPath)>& saveAs)
{
    for (int nName = 1;; ++nName) {
        try {
            const Replacing replacing(bTaken_);
            saveAs(sPath_);
            return;
        } catch (const RunTimeError& error) {
            if (error.number() != kFileAlreadyExists || bTaken_ || nName == kMostNames)
                throw;
        }
        make();
    }
}

} // namespace zorvo
