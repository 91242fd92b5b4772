#pragma once

#include "window/Form.h"
#include "window/IntervalTimer.h"

#include <QPointer>

#include <cstdint>
#include <optional>
#include <string>

class QLabel;

namespace zorvo {

/// The small box that stands while one document is made: its name, and dots that show that the work goes on.
class frmSingleInstance : public Form {
    Q_OBJECT

public:
    frmSingleInstance();

    /// The name of the document that is being made.
    void setInstanceName(const std::string& sName);
    /// `owner` is the window that the box stays above; without one it is the main form. The waiting text also
    /// runs in the main form's first status panel when `x` is missing; its value means nothing. Starts the
    /// dots.
    void SetData(QWidget* owner = nullptr, std::optional<int> x = {});

protected:
    void onLoad() override;
    void onQueryUnload(UnloadMode mode) override;

private:
    void startTimer();
    void showNextWaitText();

    QLabel* lblInstanceName_;
    QLabel* imgDocument_;
    QLabel* sbPleaseWait_;
    IntervalTimer tmPleaseWait_;
    QPointer<QWidget> owner_;
    bool bMirrorToMain_ = false;
    std::int16_t nDots_ = 0;
};

} // namespace zorvo
