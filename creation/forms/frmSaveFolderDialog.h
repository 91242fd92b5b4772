#pragma once

#include "creation/CreationForms.h"
#include "window/Form.h"

#include <cstdint>
#include <functional>
#include <string>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zorvo {

class FolderTree;
class MnemonicLabel;

/// Asks for the folder that the documents of a batch go to: a tree and a text box that stay in step.
class frmSaveFolderDialog : public Form, public SaveFolderDialog {
    Q_OBJECT

public:
    /// `gone` is called when the form has unloaded for good, just before it deletes itself.
    explicit frmSaveFolderDialog(std::function<void()> gone);

    void setNumberofFiles(std::int32_t n) override { nFiles_ = n; }
    void showForm() override;
    bool isOK() const override { return bOK; }
    std::string getFilePath() const override { return sFilePath_; }
    std::string getFileName() const { return sFileName_; }
    void setFileName(const std::string& s);
    std::int32_t left() const override;
    std::int32_t top() const override;
    void unloadForm() override;

    /// The user left with a valid folder.
    bool bOK = false;

protected:
    void onLoad() override;
    void onActivate() override;
    void onDeactivate() override;
    void onUnload() override;
    bool onKeyDown(int key, Qt::KeyboardModifiers modifiers) override;

private:
    void nameControls();
    void layOut();
    void connectControls();
    std::string trimmedFolder();
    void setStatus(const std::string& sText);
    void ShowFolderInView(bool bUseDefault);
    void fldrDocumentFolder_Click(const std::string& sPath);
    void cmdOK_Click();
    void cmdCreate_Click();
    void rememberFolder();

    std::function<void()> gone_;
    std::int32_t nFiles_ = 0;
    std::string sFilePath_;
    std::string sFileName_;
    std::string sStatus_;
    bool bTreeHasFocus_ = false;
    bool bFollowTree_ = true;
    bool bShownAnew_ = false;

    QGroupBox* fraInstructions_;
    MnemonicLabel* lblInstr_[2];
    MnemonicLabel* lblDocumentFolderEntry_;
    QLineEdit* txtDocumentFolder_;
    QPushButton* cmdCreate_;
    MnemonicLabel* lblDocumentFolderSelection_;
    FolderTree* fldrDocumentFolder_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
    QPushButton* cmdHelp_;
    QLabel* sbProgress_;
};

} // namespace zorvo
