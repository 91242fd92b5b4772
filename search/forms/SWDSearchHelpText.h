#pragma once

#include "window/Form.h"

namespace zorvo {

class MnemonicLabel;

/// The rules of the search, as people are told them. Nothing opens it: the wording is kept here.
class SWDSearchHelpText : public Form {
    Q_OBJECT

public:
    SWDSearchHelpText();

private:
    MnemonicLabel* Label1_;
};

} // namespace zorvo
