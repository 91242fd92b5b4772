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

protected:
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the contents want at a width.
    struct Wish {
        int nWidth = -1;
        int nHeight = -1;
        QSize least;

        bool operator==(const Wish&) const = default;
    };

    Wish wish_;
    bool bFitting_ = false;
};

} // namespace zorvo
