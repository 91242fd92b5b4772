#include "window/DarkIndicators.h"

#include <QImage>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

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
    const DarkIndicators style{QStyleFactory::create(QStringLiteral("Fusion"))};
    const std::unique_ptr<QStyle> plain{QStyleFactory::create(QStringLiteral("Fusion"))};
};

INSTANTIATE_TEST_SUITE_P(DarkIndicators, Indicators,
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

} // namespace
} // namespace zorvo
