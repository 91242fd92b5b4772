#pragma once

#include "window/Form.h"

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace zorvo {

class MnemonicLabel;

/// Edits the program's preferences. The object survives its unload, so that `GetData` can be asked then.
class frmOptions : public Form {
    Q_OBJECT

public:
    frmOptions();

    void GetData(bool& bCancel, bool& bShowCurrentOnly, bool& bIncludeAllOfferings, bool& bDisplaySplash,
                 bool& bMenuState, bool& bShowViewOnTB) const;
    void SetData(bool bShowCurrentOnly, bool bIncludeAllOfferings, bool bDisplaySplash, bool bMenuState,
                 bool bShowViewOnTB);

protected:
    void onLoad() override;
    void onQueryUnload(UnloadMode mode) override;

private:
    void layOut();
    void connectControls();
    static void cmdSetLocation_Click();

    MnemonicLabel* lblViewSettings_;
    QRadioButton* optViewCurrentOnly_;
    QRadioButton* optViewCurrentPlusPrior_;
    MnemonicLabel* lblProgramSettings_;
    QCheckBox* chkDisplaySplash_;
    QCheckBox* chkZorvoMenuState_;
    MnemonicLabel* Label1_;
    MnemonicLabel* lblSetLocation_;
    QPushButton* cmdSetLocation_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
    QPushButton* cmdHelp_;

    bool bCancel_ = false;
    bool bShowCurrentOnly_ = false;
    bool bIncludeAllOfferings_ = false;
    bool bDisplaySplash_ = false;
    bool bMenuState_ = false;
    bool bShowViewOnTB_ = false;
};

} // namespace zorvo
