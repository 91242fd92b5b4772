#pragma once

#include "window/Form.h"

class QLabel;

namespace zorvo {

class MnemonicLabel;

/// Stands on the screen while the library is searched.
class SWDSearchMessage : public Form {
    Q_OBJECT

public:
    SWDSearchMessage();

protected:
    void onLoad() override;

private:
    QLabel* imgDocument_;
    MnemonicLabel* lblInstanceName_;
    QLabel* sbPleaseWait_;
};

} // namespace zorvo
