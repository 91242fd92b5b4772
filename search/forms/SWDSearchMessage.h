#pragma once

#include "window/Form.h"

#include <cstddef>

class QLabel;

namespace zorvo {

class MnemonicLabel;

/// Stands on the screen while the library is searched.
class SWDSearchMessage : public Form {
    Q_OBJECT

public:
    SWDSearchMessage();

    /// How many files the search has done with; without any there is nothing to tell.
    void setProgress(std::size_t nDone, std::size_t nFiles);

protected:
    void onLoad() override;

private:
    QLabel* imgDocument_;
    MnemonicLabel* lblInstanceName_;
    QLabel* sbPleaseWait_;
};

} // namespace zorvo
