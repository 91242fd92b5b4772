#pragma once

#include <QGroupBox>
#include <QPixmap>
#include <QStyleOption>

namespace zorvo {

/// A titled frame around a text that changes often. What the style draws behind the text is kept as a
/// picture: drawing the whole frame anew would cost more than the text.
class TextFrame : public QGroupBox {
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawBehind(const QStyleOptionGroupBox& option);
    bool isBehindFor(const QStyleOptionGroupBox& option) const;

    QPixmap behind_;
    QRect place_;
    QStyleOptionGroupBox drawn_;
    const QStyle* style_ = nullptr;
};

} // namespace zorvo
