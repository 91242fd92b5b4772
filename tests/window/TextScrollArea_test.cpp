#include "tests/window/WindowTest.h"
#include "window/MnemonicLabel.h"
#include "window/TextScrollArea.h"

#include <QScrollBar>
#include <QVBoxLayout>

namespace zorvo {
namespace {

class TextScrollAreaTest : public testing::Test {
protected:
    TextScrollAreaTest()
        : label_(new MnemonicLabel("lbl", QStringLiteral("a few words ").repeated(40), nullptr))
        , area_(new TextScrollArea(label_, &window_))
    {
        auto* layout = new QVBoxLayout(&window_);
        layout->addWidget(area_);
        layout->addStretch();
    }
    void show(int width, int height)
    {
        window_.resize(width, height);
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    QWidget window_;
    MnemonicLabel* label_;
    TextScrollArea* area_;
};

TEST_F(TextScrollAreaTest, IsAsHighAsItsTextAndOutOfTheFocusOrder)
{
    show(300, 900);
    EXPECT_EQ(area_->height(), label_->heightForWidth(area_->width()));
    EXPECT_EQ(area_->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area_->focusPolicy(), Qt::NoFocus);
}

TEST_F(TextScrollAreaTest, ScrollsByKeyboardWhereThereIsLittleRoom)
{
    show(300, 90);
    EXPECT_GT(area_->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area_->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(area_->focusPolicy(), Qt::StrongFocus);
    area_->setFocus();
    QTest::keyClick(area_, Qt::Key_PageDown);
    EXPECT_GT(area_->verticalScrollBar()->value(), 0);
}

TEST_F(TextScrollAreaTest, LeavesTheFocusOrderWhenItsTextFitsAgain)
{
    show(300, 90);
    window_.resize(300, 900);
    EXPECT_TRUE(waitUntil([this] { return area_->focusPolicy() == Qt::NoFocus; }));
}

} // namespace
} // namespace zorvo
