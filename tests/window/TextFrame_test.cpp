#include "tests/window/WindowTest.h"
#include "window/TextFrame.h"

#include <QPainter>
#include <QVBoxLayout>

#include <array>

namespace zorvo {
namespace {

class TextFrameTest : public testing::Test {
protected:
    TextFrameTest()
        : ours_(QStringLiteral("Description"), &window_)
        , plain_(QStringLiteral("Description"), &window_)
    {
        for (QGroupBox* frame : frames())
            frame->resize(200, 120);
    }

    std::array<QGroupBox*, 2> frames() { return {&ours_, &plain_}; }

    /// What lies behind a text within, on something that shines through.
    static QImage behindText(QGroupBox& frame, int ratio)
    {
        QImage picture(frame.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(ratio);
        picture.fill(QColor(10, 120, 200));
        const QRect within = frame.contentsRect().adjusted(5, 5, -30, -10);
        frame.render(&picture, within.topLeft(), within, QWidget::DrawChildren);
        return picture;
    }

    void compare(const char* what)
    {
        for (const int ratio : {1, 2, 1})
            EXPECT_EQ(behindText(ours_, ratio), behindText(plain_, ratio)) << what << " x" << ratio;
        EXPECT_EQ(ours_.grab().toImage(), plain_.grab().toImage()) << what << ", whole";
    }

    QWidget window_;
    TextFrame ours_;
    QGroupBox plain_;
};

TEST_F(TextFrameTest, LooksAsTheStyleDrawsAFrame)
{
    compare("at first");
    compare("a second time");
}

TEST_F(TextFrameTest, FollowsColoursTitleSizeDirectionAndState)
{
    compare("at first");
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    const std::array<std::pair<const char*, std::function<void(QGroupBox&)>>, 6> changes{{
        {"larger", [](QGroupBox& frame) { frame.resize(300, 200); }},
        {"dark", [&](QGroupBox& frame) { frame.setPalette(dark); }},
        {"without a title", [](QGroupBox& frame) { frame.setTitle({}); }},
        {"flat", [](QGroupBox& frame) { frame.setFlat(true); }},
        {"from the right", [](QGroupBox& frame) { frame.setLayoutDirection(Qt::RightToLeft); }},
        {"disabled", [](QGroupBox& frame) { frame.setEnabled(false); }},
    }};
    for (const auto& [what, change] : changes) {
        for (QGroupBox* frame : frames())
            change(*frame);
        compare(what);
    }
}

} // namespace
} // namespace zorvo
