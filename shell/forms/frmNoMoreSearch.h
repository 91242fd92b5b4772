#pragma once

#include "window/Form.h"

class QPushButton;

namespace zorvo {

class MnemonicLabel;

/// Tells that the end of the tree was reached, and asks whether to begin again.
class frmNoMoreSearch : public Form {
    Q_OBJECT

public:
    frmNoMoreSearch();

    bool bContinue = false;

protected:
    void onLoad() override;

private:
    MnemonicLabel* Label1_;
    QPushButton* Command1_;
    QPushButton* Command2_;
};

} // namespace zorvo
