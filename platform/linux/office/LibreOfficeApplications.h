#pragma once

#include "platform/Office.h"
#include "platform/linux/office/ApplicationCore.h"
#include "platform/linux/office/LibreOfficeText.h"

#include <memory>
#include <string>

namespace zorvo {

/// What both applications answer in the same way. `Interface` is WordApplication or ExcelApplication.
template <typename Interface>
class LibreOfficeApplication : public Interface {
public:
    LibreOfficeApplication(std::shared_ptr<OfficeSessions> sessions, OfficeDocumentKind kind,
                           DocumentCore::Place hiddenPlace = DocumentCore::Place::ownOffice)
        : core_(std::move(sessions), kind, hiddenPlace)
    {
    }

    std::string version() override { return core_.version(); }
    void setVisible(bool bVisible) override { core_.setVisible(bVisible); }
    int addInCount() override { return core_.addIns().count(); }
    OfficeAddIn addIn(int index) override { return core_.addIns().at(index); }
    void setAddInInstalled(int index, bool bInstalled) override
    {
        core_.addIns().setInstalled(index, bInstalled);
    }
    LateBoundPtr comAddIn(const std::string& progId) override { return core_.comAddIn(progId); }
    void activatePane() override { core_.active()->raise(); }
    void quit() override { core_.quit(); }

protected:
    ApplicationCore core_;
};

class LibreOfficeWord : public LibreOfficeApplication<WordApplication> {
public:
    /// `hiddenPlace` is where documents are while the application isn't visible.
    explicit LibreOfficeWord(std::shared_ptr<OfficeSessions> sessions,
                             DocumentCore::Place hiddenPlace = DocumentCore::Place::ownOffice);

    void documentsAdd(const std::string& sTemplate) override { core_.add(sTemplate); }
    void documentsOpen(const std::string& sFileName) override { core_.open(sFileName); }
    std::shared_ptr<WordDocument> activeDocument() override;
    WordSelection& selection() override { return selection_; }
    WordWindow& activeWindow() override { return window_; }
    void changeFileOpenDirectory(const std::string& sFolder) override { core_.setFolder(sFolder); }
    void activate() override { core_.raise(); }
    /// Only the maximized state is known here; the others leave the window as it is.
    void setWindowState(int nState) override;

private:
    LibreOfficeSelection selection_{core_};
    LibreOfficeWindow window_{core_};
};

class LibreOfficeExcel : public LibreOfficeApplication<ExcelApplication> {
public:
    explicit LibreOfficeExcel(std::shared_ptr<OfficeSessions> sessions);

    void setEnableEvents(bool bEnable) override { core_.setEnableEvents(bEnable); }
    /// No call here ever asks anybody anything.
    void setDisplayAlerts(bool /*bDisplay*/) override { core_.mustRun(); }
    /// Both applications are one process here: the documents' own windows come to the front.
    void activateMicrosoftApp(int /*nApplication*/) override { core_.mustRun(); }
    void workbooksAdd(const std::string& sTemplate) override { core_.add(sTemplate); }
    void workbooksOpen(const std::string& sFileName) override { core_.open(sFileName); }
    std::shared_ptr<ExcelWorkbook> activeWorkbook() override;
    /// Only the normal view has its like here; the others leave the window as it is.
    void setActiveWindowView(int nView) override;
};

} // namespace zorvo
