#pragma once

#include "window/Form.h"

#include <string>

namespace zorvo {

class MnemonicLabel;

/// Stands on the screen while the result of a search is built, and says how far it is. It has no events of
/// its own: its words are the same for every company.
class BuildDisclosureProgressForm : public Form {
    Q_OBJECT

public:
    BuildDisclosureProgressForm();

    void showLabels();
    void setProgressValue(const std::string& sText);

private:
    MnemonicLabel* DisclosureMessageLabel_;
    MnemonicLabel* ProgressValue_;
};

/// Makes the form the one of `disclosureProgress()`. Called once, with the application object there.
void installDisclosureProgressForm();

} // namespace zorvo
