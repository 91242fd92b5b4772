#pragma once

#include "window/Form.h"

class QLabel;

namespace zorvo {

/// The picture that stands on the screen while the main form fills itself behind it.
class frmSplash : public Form {
    Q_OBJECT

public:
    frmSplash();

protected:
    void onLoad() override;
    void onActivate() override;
    void onUnload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* picSplash_;
    QLabel* lblVersion_;
    /// A company without its picture is told once, and then shows none: the house's own isn't its.
    bool bPictureMissing_ = false;
};

} // namespace zorvo
