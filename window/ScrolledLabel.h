#pragma once

#include "window/MnemonicLabel.h"

#include <QTextLayout>

#include <array>

namespace zorvo {

/// A label whose width is given from outside, as in a TextScrollArea, and which is as high as its text then
/// needs. A text that follows the selection changes with every key: it is laid out once for measuring and for
/// painting, which is most of what it costs, and no more than its own area is painted.
class ScrolledLabel : public MnemonicLabel {
    Q_OBJECT

public:
    ScrolledLabel(const char* name, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    int measuredHeight(int width) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Lines {
        int nWidth = -1;
        int nHeight = 0;
        QTextLayout layout;
    };

    Lines& linesFor(int width) const;
    void layOut(Lines& lines, int width) const;

    /// A scroll area asks for two widths each time: with and without its scroll bar.
    mutable std::array<Lines, 2> lines_;
    mutable std::size_t nOldest_ = 0;
    mutable QString laidOut_;
    mutable QFont laidOutFont_;
};

} // namespace zorvo
