#pragma once

#include "window/KnownHeights.h"

#include <QAbstractButton>
#include <QFont>

namespace zorvo {

/// One entry of a list bar: a large icon over its caption, which wraps.
class ListBarEntry : public QAbstractButton {
    Q_OBJECT

public:
    ListBarEntry(const QIcon& icon, const QString& caption, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect captionArea(int width) const;

    QString caption_;
    mutable QFont font_;
    mutable KnownHeights heights_;
};

} // namespace zorvo
