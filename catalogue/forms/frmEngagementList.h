#pragma once

#include "catalogue/EngagementList.h"
#include "window/Form.h"

#include <string>

class QListWidget;
class QPushButton;

namespace zorvo {

class MnemonicLabel;

/// Lets the user choose one of the installed products' engagements. The choice stays readable after the form
/// has unloaded.
class frmEngagementList : public Form {
    Q_OBJECT

public:
    frmEngagementList();

    /// The selection document, empty when the form was cancelled.
    void GetData(std::string& sSelection) const { sSelection = sResult_; }

protected:
    void onLoad() override;
    void onActivate() override;
    void onUnload() override;

private:
    void layOut();
    void connectControls();
    void fillList();
    void cmdOK_Click();
    void btnView_Click();

    EngagementList engagements_;
    std::string sResult_;
    MnemonicLabel* Label1_;
    QListWidget* List1_;
    QPushButton* btnView_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
    QPushButton* cmdHelp_;
};

} // namespace zorvo
