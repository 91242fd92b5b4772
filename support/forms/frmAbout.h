#pragma once

#include "platform/LibraryLoader.h"
#include "window/Form.h"

#include <memory>
#include <string>

class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace zorvo {

/// Version and warning, and the report for the help desk.
class frmAbout : public Form {
    Q_OBJECT

public:
    frmAbout();

protected:
    void onLoad() override;
    void onActivate() override;
    void onUnload() override;

private:
    void layOut();
    void cmdSupport_Click();
    void cmdQuickTour_Click();
    void callSupportLibrary(const std::string& sReportFile);

    QLabel* lblVersion_;
    QLabel* picAboutBrand_;
    QGroupBox* fraCredits_;
    QPlainTextEdit* txtWarning_;
    QPushButton* cmdOK_;
    QPushButton* cmdSupport_;
    QPushButton* cmdHelp_;
    QPushButton* cmdQuickTour_;
    /// A company without its picture is told once: the message takes the box out of the front, and coming
    /// back would bring the next one.
    bool bPictureMissing_ = false;
    /// The closed support library, once it could be loaded; kept across clicks.
    std::unique_ptr<LoadedLibrary> hSysLibrary_;
};

} // namespace zorvo
