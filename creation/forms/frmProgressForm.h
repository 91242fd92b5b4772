#pragma once

#include "creation/ProcessMultiDocs.h"
#include "window/Form.h"

#include <string>

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace zorvo {

class MnemonicLabel;
class TreeView;

/// Makes the documents of a batch as soon as it is up, then lists them and opens those that the user wants.
class frmProgressForm : public Form, private BatchWindow {
    Q_OBJECT

public:
    frmProgressForm();

    /// Before the form is shown.
    void setBatch(const DocumentBatch& batch);

protected:
    void onLoad() override;
    void onActivate() override;
    void onUnload() override;
    bool onKeyDown(int key, Qt::KeyboardModifiers modifiers) override;
    /// While the documents are being made the form stays.
    void closeEvent(QCloseEvent* event) override;

private:
    int entryCount() const override;
    void enableList() override;
    void beginProgress(int nMaximum) override;
    void advanceBar() override;
    void setStatus(const std::string& sText) override;
    void addEntry(const std::string& sName, int nImage) override;
    void endProgress() override;
    void focusFinished() override;
    void showNotice(const std::string& sText) override;

    void nameControls();
    void layOut();
    void connectControls();
    void fillImageList();
    void showBarText();
    void processDocuments();
    void cmdOpen_Click();

    DocumentBatch batch_;
    bool bListHasFocus_ = false;
    /// The documents are being made: the form may come to the front again, behind a message box.
    bool bProcessing_ = false;

    MnemonicLabel* lblFolderTitle_;
    QLabel* lblFolderPath_;
    QGroupBox* fraInstructions_;
    MnemonicLabel* lblInst_[2];
    MnemonicLabel* lblDocCreatedTitle_;
    TreeView* TGenFileList_;
    QLabel* imgNotice_;
    QLabel* lblNotice_;
    QPushButton* cmdOpen_;
    QPushButton* cmdFinished_;
    QPushButton* cmdHelp_;
    QLabel* sbProgress_;
    QProgressBar* ProgressBar1_;
};

} // namespace zorvo
