#pragma once

#include <QAbstractButton>

namespace zorvo {

/// A label used as a link: it reads like one and is pressed like a button, by mouse, Space, Enter or access
/// key.
class LinkLabel : public QAbstractButton {
    Q_OBJECT

public:
    LinkLabel(const char* name, const QString& caption, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zorvo
