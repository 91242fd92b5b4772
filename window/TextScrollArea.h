#pragma once

#include <QScrollArea>

namespace zorvo {

/// Shows texts whole where there is room for them and scrolls them up and down where there isn't. As high as
/// its width asks for; in the focus order only while it scrolls.
class TextScrollArea : public QScrollArea {
    Q_OBJECT

public:
    /// `contents` is what scrolls: a widget whose height follows its width.
    explicit TextScrollArea(QWidget* contents, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace zorvo
