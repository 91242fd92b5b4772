#include "platform/linux/office/ApplicationCore.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/linux/office/OfficeAddInObject.h"
#include "platform/linux/office/addInLibrary.h"

#include <cstdlib>

namespace zorvo {

namespace {

/// One that is an extension of the office comes ahead of one that the registry names.
int addInOf(OfficeSession& session, const std::string& sProgId)
{
    const int nAddIn =
        session.ask<int>([sProgId](OfficeConnection& office) { return office.addIn(sProgId); });
    const std::string library = nAddIn == 0 ? addInLibraryOf(sProgId) : std::string();
    if (library.empty())
        return nAddIn;
    return session.ask<int>(
        [sProgId, library](OfficeConnection& office) { return office.addInFrom(library, sProgId); });
}

std::string versionOf(const char* variable, const std::string& otherwise)
{
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] != '\0' ? value : otherwise;
}

} // namespace

ApplicationCore::ApplicationCore(std::shared_ptr<OfficeSessions> sessions, OfficeDocumentKind kind,
                                 DocumentCore::Place hiddenPlace)
    : sessions_(std::move(sessions))
    , kind_(kind)
    , hiddenPlace_(hiddenPlace)
    , addIns_(kind)
{
}

ApplicationCore::~ApplicationCore()
{
    letGo();
}

void ApplicationCore::mustRun() const
{
    if (bQuit_)
        throw RunTimeError(kOfficeDoesNotAnswer, "The application has been ended.");
}

std::string ApplicationCore::version() const
{
    mustRun();
    return kind_ == OfficeDocumentKind::text ? versionOf("ZORVOBRENDLE_WORD_VERSION", "11.0")
                                             : versionOf("ZORVOBRENDLE_EXCEL_VERSION", "12.0");
}

void ApplicationCore::setVisible(bool bVisible)
{
    mustRun();
    bVisible_ = bVisible;
    if (!bVisible)
        return;
    for (const auto& document : documents_)
        document->show();
    sessions_->leavePrivateSession(this);
}

void ApplicationCore::setEnableEvents(bool bEnable)
{
    mustRun();
    bEvents_ = bEnable;
}

OfficeAddInList& ApplicationCore::addIns()
{
    mustRun();
    return addIns_;
}

LateBoundPtr ApplicationCore::comAddIn(const std::string& sProgId)
{
    mustRun();
    const auto session = bVisible_ ? sessions_->runningUserSession() : sessions_->runningPrivateSession();
    // An add-in lives in a running office; without one there is nothing it could work on.
    const int nAddIn = session ? addInOf(*session, sProgId) : 0;
    if (nAddIn == 0)
        throw RunTimeError(kCannotCreateObject, "The office has no add-in \"" + sProgId + "\".");
    return std::make_shared<OfficeAddInObject>(session, nAddIn);
}

void ApplicationCore::add(const std::string& sTemplate)
{
    open({.kind = kind_,
          .sFile = fullNameOf(sTemplate),
          .bAsTemplate = !sTemplate.empty(),
          .bMacros = bEvents_});
}

void ApplicationCore::open(const std::string& sFileName)
{
    open({.kind = kind_, .sFile = fullNameOf(sFileName), .bAsTemplate = false, .bMacros = bEvents_});
}

void ApplicationCore::open(const DocumentOrigin& origin)
{
    mustRun();
    if (bVisible_ && screen_ && screen_->isDead())
        throw RunTimeError(kOfficeDoesNotAnswer, "LibreOffice doesn't answer any more.");
    if (bVisible_)
        screen_ = sessions_->userSession(kind_);
    auto document = std::make_shared<DocumentCore>(sessions_, this);
    document->open(origin, bVisible_ ? DocumentCore::Place::screen : hiddenPlace_);
    documents_.push_back(document);
}

std::shared_ptr<DocumentCore> ApplicationCore::active()
{
    mustRun();
    std::erase_if(documents_, [](const auto& document) { return !document->isOpen(); });
    if (documents_.empty())
        throw RunTimeError(kObjectNotSet);
    return documents_.back();
}

void ApplicationCore::raise()
{
    mustRun();
    if (!documents_.empty())
        active()->raise();
}

void ApplicationCore::setFolder(const std::string& sFolder)
{
    mustRun();
    if (!sFolder.empty() && !platform().files->folderExists(sFolder))
        throw RunTimeError(kPathNotFound);
    sFolder_ = sFolder;
}

std::string ApplicationCore::fullNameOf(const std::string& sFileName) const
{
    const bool bNameAlone = !sFileName.empty() && sFileName.find_first_of("\\/:") == std::string::npos;
    return bNameAlone && !sFolder_.empty() ? sJoinPath(sFolder_, sFileName) : sFileName;
}

void ApplicationCore::quit()
{
    mustRun();
    letGo();
    bQuit_ = true;
}

void ApplicationCore::letGo()
{
    for (const auto& document : documents_)
        document->letGo();
    documents_.clear();
    sessions_->leavePrivateSession(this);
}

} // namespace zorvo
