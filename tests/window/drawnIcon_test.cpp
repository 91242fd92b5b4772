#include "window/drawnIcon.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

namespace zorvo {
namespace {

/// The resources hold the drawing "disc", a red disc, and a picture of it of 24 pixels, which is a blue
/// square so that the two can be told apart.
const QString kDisc = QStringLiteral(":/drawnIcon/disc");
constexpr QColor kDrawn(255, 0, 0);
constexpr QColor kPicture(0, 0, 255);

QColor middle(const QPixmap& pixmap)
{
    return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
}

TEST(DrawnIcon, TakesThePictureOfASizeThatHasOne)
{
    const QIcon icon = drawnIcon(kDisc);
    EXPECT_EQ(middle(icon.pixmap({24, 24}, 1.0)), kPicture);
    EXPECT_EQ(middle(icon.pixmap({12, 12}, 2.0)), kPicture);
}

TEST(DrawnIcon, IsDrawnInAnyOtherSize)
{
    const QIcon icon = drawnIcon(kDisc);
    for (const int side : {15, 30, 200}) {
        const QPixmap pixmap = icon.pixmap({side, side}, 1.0);
        EXPECT_EQ(pixmap.size(), QSize(side, side));
        EXPECT_EQ(middle(pixmap), kDrawn);
    }
}

TEST(DrawnIcon, StaysSquareInTheMiddleOfItsPlace)
{
    QImage image(100, 24, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawnIcon(kDisc).paint(&painter, image.rect());
    painter.end();
    EXPECT_EQ(image.pixelColor(50, 12), kPicture);
    EXPECT_EQ(image.pixelColor(37, 12), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(63, 12), QColor(Qt::white));
}

TEST(DrawnIcon, ShowsWhatIsDisabledInAnotherColour)
{
    EXPECT_NE(middle(drawnIcon(kDisc).pixmap({24, 24}, 1.0, QIcon::Disabled)), kPicture);
}

TEST(DrawnIcon, IsEmptyWithoutADrawing)
{
    EXPECT_TRUE(drawnIcon(QStringLiteral(":/drawnIcon/missing")).isNull());
}

} // namespace
} // namespace zorvo
