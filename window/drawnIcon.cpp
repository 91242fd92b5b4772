#include "window/drawnIcon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>
#include <map>

namespace zorvo {

namespace {

/// In pixels; the build makes pictures of these.
constexpr std::array kPictureSides{16, 24, 32, 48};

class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(const QString& name)
        : name_(name)
    {
    }

    QIconEngine* clone() const override { return new DrawnIcon(*this); }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }

    /// What a display's server is given of a window's icon.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QList<QSize> sizes;
        for (const int side : kPictureSides)
            sizes.append({side, side});
        return sizes;
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPixmap& drawn = drawing(std::min(size.width(), size.height()));
        if (mode == QIcon::Normal)
            return drawn;
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const double ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

private:
    /// `side` in pixels of the device.
    const QPixmap& drawing(int side)
    {
        QPixmap& drawn = drawings_[side];
        if (drawn.isNull() && !drawn.load(name_ + QStringLiteral("-%1.png").arg(side)))
            drawn = QIcon(name_ + QStringLiteral(".svg")).pixmap({side, side}, 1.0);
        return drawn;
    }

    QString name_;
    std::map<int, QPixmap> drawings_;
};

} // namespace

QIcon drawnIcon(const QString& name)
{
    if (!QFile::exists(name + QStringLiteral(".svg")))
        return {};
    return QIcon(new DrawnIcon(name));
}

} // namespace zorvo
