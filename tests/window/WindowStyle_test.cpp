#include "window/WindowStyle.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <tuple>

namespace zorvo {
namespace {

constexpr QRect kPlace(4, 4, 16, 16);

QImage picture(const QStyle& style, QStyle::PrimitiveElement element, const QColor& window,
               const QColor& text)
{
    QStyleOptionButton option;
    option.palette = QPalette(text, window, window.lighter(), window.darker(), window, text, window.darker());
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    option.rect = kPlace;
    QImage image(24, 24, QImage::Format_RGB32);
    image.fill(window);
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    return image;
}

class Indicators : public testing::TestWithParam<QStyle::PrimitiveElement> {
protected:
    const WindowStyle style{QStyleFactory::create(QStringLiteral("Fusion"))};
    const std::unique_ptr<QStyle> plain{QStyleFactory::create(QStringLiteral("Fusion"))};
};

INSTANTIATE_TEST_SUITE_P(WindowStyle, Indicators,
                         testing::Values(QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton));

TEST_P(Indicators, HaveAnEdgeOnADarkWindow)
{
    const QColor window(42, 46, 50);
    const QImage image = picture(style, GetParam(), window, QColor(239, 240, 241));
    const QColor edge = image.pixelColor(kPlace.left(), kPlace.center().y());
    EXPECT_GE(std::abs(edge.lightness() - window.lightness()), 60);
}

TEST_P(Indicators, KeepTheDesktopsOwnEdgeOnALightWindow)
{
    const QColor window(239, 239, 239);
    EXPECT_EQ(picture(style, GetParam(), window, Qt::black), picture(*plain, GetParam(), window, Qt::black));
}

QImage picture(QStyle& style, QGroupBox& group, double scale)
{
    group.setStyle(&style);
    QImage image(group.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(group.palette().color(QPalette::Window));
    group.render(&image);
    return image;
}

TEST(MoreArrow, HasTheColourOfTheDesktopsTextAtTheTime)
{
    const WindowStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    const QPalette before = QGuiApplication::palette();
    for (const auto bar :
         {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton}) {
        const QIcon icon = style.standardIcon(bar);
        for (const QColor& colour : {QColor(0xEF, 0xF0, 0xF1), QColor(0x10, 0x20, 0x30)}) {
            QPalette desktop = before;
            desktop.setColor(QPalette::ButtonText, colour);
            QGuiApplication::setPalette(desktop);
            const QImage picture = icon.pixmap({32, 32}, 1.0).toImage();
            QColor strongest(Qt::transparent);
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    if (picture.pixelColor(x, y).alpha() > strongest.alpha())
                        strongest = picture.pixelColor(x, y);
            EXPECT_EQ(strongest, colour);
        }
    }
    QGuiApplication::setPalette(before);
}

/// Title, whether it may be checked, and the scale of the screen.
class GroupFrame : public testing::TestWithParam<std::tuple<QString, bool, double>> {};

INSTANTIATE_TEST_SUITE_P(WindowStyle, GroupFrame,
                         testing::Combine(testing::Values(QString(), QStringLiteral("Description")),
                                          testing::Bool(), testing::Values(1.0, 2.0)));

TEST_P(GroupFrame, LooksAsTheDesktopsOwn)
{
    WindowStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    const std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("Fusion")));
    const auto& [title, bCheckable, scale] = GetParam();
    QGroupBox group(title);
    group.setCheckable(bCheckable);
    for (const QSize& size : {QSize(300, 200), QSize(90, 61), QSize(40, 33)}) {
        group.resize(size);
        const QImage ours = picture(style, group, scale);
        const QImage theirs = picture(*plain, group, scale);
        for (int y = 0; y < theirs.height(); ++y)
            for (int x = 0; x < theirs.width(); ++x) {
                const QColor a = ours.pixelColor(x, y);
                const QColor b = theirs.pixelColor(x, y);
                // At another scale the desktop's own mixes the edges with the colours beside them.
                const int nMost = scale > 1 ? 8 : 1;
                ASSERT_LE(std::abs(a.red() - b.red()), nMost) << x << ", " << y << " of " << size.width();
                ASSERT_LE(std::abs(a.green() - b.green()), nMost) << x << ", " << y;
                ASSERT_LE(std::abs(a.blue() - b.blue()), nMost) << x << ", " << y;
            }
    }
}

} // namespace
} // namespace zorvo
