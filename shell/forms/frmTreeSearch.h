#pragma once

#include "window/Form.h"

#include <string>

class QLineEdit;
class QPushButton;

namespace zorvo {

class MnemonicLabel;

/// Asks for the text to look for in the tree, and whether to go on at a match.
class frmTreeSearch : public Form {
    Q_OBJECT

public:
    frmTreeSearch();

    std::string text() const;
    void setText(const std::string& sText);

    /// The user pressed Find Next.
    bool bFindNext = false;

protected:
    void onLoad() override;
    void onUnload() override;

private:
    void cmdFind_Click();
    void cmdClose_Click();

    MnemonicLabel* Label1_;
    QLineEdit* Text1_;
    QPushButton* cmdFind_;
    QPushButton* cmdClose_;
};

} // namespace zorvo
