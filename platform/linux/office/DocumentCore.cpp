#include "platform/linux/office/DocumentCore.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/linux/office/documentChecks.h"
#include "platform/linux/office/fileDelivery.h"

namespace zorvo {

namespace {

OfficeLoad request(OfficeDocumentKind kind, const std::string& native, bool bAsTemplate, bool bMacros)
{
    return {.kind = kind, .sPath = native, .bAsTemplate = bAsTemplate, .bMacrosAsConfigured = bMacros};
}

/// Keeps everything that the document has.
const char* ownFormat(OfficeDocumentKind kind)
{
    return kind == OfficeDocumentKind::text ? "writer8" : "calc8";
}

} // namespace

DocumentCore::DocumentCore(std::shared_ptr<OfficeSessions> sessions, const void* user)
    : sessions_(std::move(sessions))
    , user_(user)
{
}

DocumentCore::~DocumentCore()
{
    letGo();
}

void DocumentCore::open(const DocumentOrigin& origin, Place place)
{
    origin_ = origin;
    if (!origin.sFile.empty()) {
        sNativeFile_ = platform().files->toNative(origin.sFile);
        checkDocumentFile(sNativeFile_,
                          origin.kind == OfficeDocumentKind::text ? kWordFileNotFound : kFileNotFound);
    }
    if (place != Place::ownOffice)
        take(loadOnScreen(sNativeFile_, origin.bAsTemplate, place == Place::screen), place);
    else if (!sNativeFile_.empty())
        take(loadInOwnOffice(), place);
    if (!origin.bAsTemplate)
        sFullName_ = origin.sFile;
    bOpen_ = true;
}

bool DocumentCore::isOpen() const
{
    return bOpen_ && !(loaded_.session && loaded_.session->isDead());
}

DocumentCore::Loaded DocumentCore::loadInOwnOffice() const
{
    const OfficeLoad what = request(origin_.kind, sNativeFile_, origin_.bAsTemplate, false);
    const auto load = [what](OfficeConnection& office) { return office.load(what); };
    Loaded loaded{.session = sessions_->privateSession(user_, origin_.kind)};
    try {
        loaded.nDocument = loaded.session->ask<int>(load);
    } catch (const RunTimeError&) {
        if (!loaded.session->hasCrashed())
            throw;
        // Nothing is lost yet, and most likely it died since the last document: once more, in a new office.
        loaded.session = sessions_->privateSession(user_, origin_.kind);
        loaded.nDocument = loaded.session->ask<int>(load);
    }
    return loaded;
}

DocumentCore::Loaded DocumentCore::loadOnScreen(const std::string& native, bool bAsTemplate, bool bShow) const
{
    Loaded loaded{.session = sessions_->userSession(origin_.kind)};
    OfficeLoad what = request(origin_.kind, native, bAsTemplate, origin_.bMacros);
    what.bOpenOnce = !native.empty() && !bAsTemplate;
    loaded.nDocument = loaded.session->ask<int>([what, bShow](OfficeConnection& office) {
        const int nDocument = office.load(what);
        if (bShow ? office.show(nDocument) : office.isShowable(nDocument))
            return nDocument;
        office.close(nDocument);
        return 0;
    });
    if (loaded.nDocument == 0)
        throw RunTimeError(
            kCannotCreateObject,
            "LibreOffice runs for this user without a screen, so the document can't be shown.");
    return loaded;
}

DocumentCore::Loaded DocumentCore::loadAgainOnScreen()
{
    const bool bSaved = !sFullName_.empty();
    if (bSaved && !bHandedOver_)
        return loadOnScreen(platform().files->toNative(sFullName_), false);
    if (!loaded_.session || !bHandedOver_)
        return loadOnScreen(sNativeFile_, origin_.bAsTemplate);
    const StagedFile copy;
    storeCopy(copy.path(), ownFormat(origin_.kind));
    return loadOnScreen(copy.path(), true);
}

void DocumentCore::take(const Loaded& loaded, Place place)
{
    loaded_ = loaded;
    place_ = place;
    loaded_.session->countDocument(1);
}

void DocumentCore::drop()
{
    if (loaded_.session)
        loaded_.session->countDocument(-1);
    loaded_ = {};
}

void DocumentCore::need()
{
    if (!bOpen_)
        throw RunTimeError(kObjectRequired, "The document has been closed.");
    if (!loaded_.session)
        take(loadInOwnOffice(), Place::ownOffice);
}

void DocumentCore::show()
{
    if (!isOpen() || place_ == Place::screen)
        return;
    if (place_ == Place::hidden) {
        loaded_.session->ask<bool>(
            [n = loaded_.nDocument](OfficeConnection& office) { return office.show(n); });
        place_ = Place::screen;
        return;
    }
    const Loaded shown = loadAgainOnScreen();
    if (loaded_.session)
        loaded_.session->tell([n = loaded_.nDocument](OfficeConnection& office) { office.close(n); });
    drop();
    take(shown, Place::screen);
}

void DocumentCore::raise()
{
    if (place_ == Place::screen)
        loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.toFront(n); });
}

void DocumentCore::maximize()
{
    if (place_ == Place::screen)
        loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.maximize(n); });
}

void DocumentCore::showNormalView()
{
    need();
    loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.showNormalView(n); });
}

void DocumentCore::showPageView()
{
    need();
    loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.showPageView(n); });
}

std::string DocumentCore::fullName()
{
    if (!bOpen_)
        throw RunTimeError(kObjectRequired, "The document has been closed.");
    if (place_ == Place::ownOffice)
        return sFullName_;
    // The user may have saved it meanwhile.
    const std::string native = loaded_.session->ask<std::string>(
        [n = loaded_.nDocument](OfficeConnection& office) { return office.path(n); });
    return native.empty() ? native : platform().files->fromNative(native);
}

void DocumentCore::storeCopy(const std::string& native, const std::string& sFilter)
{
    loaded_.session->run([n = loaded_.nDocument, native, sFilter](OfficeConnection& office) {
        office.storeCopy(n, native, sFilter);
    });
}

void DocumentCore::saveAs(const std::string& sFileName, const std::string& sFilter)
{
    const std::string target = platform().files->toNative(sFileName);
    const Existing existing = sessions_->manners().bNeverReplace ? Existing::keep : Existing::replace;
    need();
    checkTarget(target, existing);
    const StagedFile staged;
    try {
        storeCopy(staged.path(), sFilter);
    } catch (const RunTimeError& e) {
        if (e.number() == kPathOrFileAccess && staged.isDiskFull())
            throw RunTimeError(kDiskFull);
        throw;
    }
    deliverFile(staged.path(), target, existing);
    // In the user's office it has to know its place itself, for his own saving.
    if (place_ != Place::ownOffice)
        loaded_.session->run([n = loaded_.nDocument, target, sFilter](OfficeConnection& office) {
            office.storeAs(n, target, sFilter);
        });
    sFullName_ = sFileName;
    bHandedOver_ = false;
}

void DocumentCore::close()
{
    if (bOpen_ && place_ == Place::screen &&
        loaded_.session->ask<bool>(
            [n = loaded_.nDocument](OfficeConnection& office) { return office.isModified(n); }))
        throw RunTimeError(kPermissionDenied, "The document has unsaved changes and stays open.");
    closeWithoutSaving();
}

void DocumentCore::closeWithoutSaving()
{
    if (!bOpen_)
        throw RunTimeError(kObjectRequired, "The document has been closed.");
    if (loaded_.session)
        loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.close(n); });
    drop();
    bOpen_ = false;
}

void DocumentCore::letGo()
{
    if (!bOpen_)
        return;
    bOpen_ = false;
    if (loaded_.session && place_ == Place::screen)
        loaded_.session->tell([n = loaded_.nDocument](OfficeConnection& office) { office.forget(n); });
    else if (loaded_.session)
        loaded_.session->tell([n = loaded_.nDocument](OfficeConnection& office) { office.close(n); });
    drop();
}

DocumentCore::Loaded DocumentCore::handOver()
{
    need();
    bHandedOver_ = true;
    return loaded_;
}

} // namespace zorvo
