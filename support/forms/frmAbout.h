#pragma once

#include "platform/LibraryLoader.h"
#include "window/Form.h"

#include <memory>

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
    void callSupportLibrary();

    QLabel* lblVersion_;
    QLabel* picAboutBrand_;
    QGroupBox* fraCredits_;
    QPlainTextEdit* txtWarning_;
    QPushButton* cmdOK_;
    QPushButton* cmdSupport_;
    QPushButton* cmdHelp_;
    QPushButton* cmdQuickTour_;
    /// The closed support library, once it could be loaded; kept across clicks.
    std::unique_ptr<LoadedLibrary> hSysLibrary_;
};

} // namespace zorvo
