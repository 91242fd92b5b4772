#pragma once

#include <QMenu>
#include <QPixmap>

namespace zorvo {

/// A menu with a picture along its left side.
class BandMenu : public QMenu {
    Q_OBJECT

public:
    using QMenu::QMenu;

    /// A null picture takes the strip away.
    void setSideStrip(const QPixmap& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap strip_;
};

} // namespace zorvo
