#pragma once

#include <QScrollBar>

namespace zorvo {

/// A scroll bar that paints no more than its slider's way when that goes on: all of it costs more than the
/// rows that a key brings into view.
class SliderScrollBar : public QScrollBar {
    Q_OBJECT

public:
    using QScrollBar::QScrollBar;

protected:
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect sliderRect() const;

    bool bInside_ = false;
    /// Where it was painted last; empty before that.
    QRect painted_;
};

} // namespace zorvo
