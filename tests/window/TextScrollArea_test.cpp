#include "tests/window/WindowTest.h"
#include "window/MnemonicLabel.h"
#include "window/ScrolledLabel.h"
#include "window/TextScrollArea.h"

#include <QScrollBar>
#include <QVBoxLayout>

#include <set>

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

TEST_F(TextScrollAreaTest, ALabelMadeForItFollowsItsTextItsFontAndTheWidth)
{
    ScrolledLabel label("label", nullptr);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    const auto lines = [&](int width) {
        return label.heightForWidth(width) / QFontMetrics(label.font()).lineSpacing();
    };
    EXPECT_EQ(lines(300), 1);
    label.setCaption(QStringLiteral("one\ntwo\n\nfour"));
    EXPECT_EQ(lines(300), 4);
    label.setCaption(QStringLiteral("a few words ").repeated(40));
    const int nLines = lines(300);
    EXPECT_GT(nLines, 4);
    EXPECT_GT(lines(150), nLines);
    EXPECT_EQ(lines(300), nLines);
    QFont large = label.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    label.setFont(large);
    EXPECT_GT(lines(300), nLines);
    label.setCaption(QString(200, QLatin1Char('m')));
    EXPECT_GT(lines(300), 4) << "a long word is broken, not cut";
}

TEST_F(TextScrollAreaTest, ALabelMadeForItIsPaintedAsAnyLabel)
{
    ScrolledLabel label("label", &window_);
    MnemonicLabel plain("plain", {}, &window_);
    plain.setAlignment(Qt::AlignTop | Qt::AlignLeft);
    for (const char* text :
         {"Summary & plan of the work", "First line\nand a second, which is longer than that"}) {
        for (const bool bEnabled : {true, false}) {
            for (MnemonicLabel* each : std::initializer_list<MnemonicLabel*>{&label, &plain}) {
                each->setCaption(QString::fromLatin1(text).replace(QLatin1Char('&'), QLatin1String("&&")));
                each->setEnabled(bEnabled);
                each->resize(180, 100);
            }
            EXPECT_EQ(label.grab().toImage(), plain.grab().toImage()) << text << bEnabled;
        }
    }
}

TEST_F(TextScrollAreaTest, ALabelMadeForItIsAsHighAsItsTextAndStandsAtTheTop)
{
    QWidget window;
    auto* label = new ScrolledLabel("label", nullptr);
    auto* area = new TextScrollArea(label, &window);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(area, 1);
    window.resize(300, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const int words : {3, 30, 3, 300}) {
        label->setCaption(QStringLiteral("a few words ").repeated(words));
        EXPECT_TRUE(waitUntil([&] { return label->height() == label->heightForWidth(label->width()); }))
            << words;
        EXPECT_EQ(label->width(), area->viewport()->width());
        EXPECT_EQ(label->pos(), QPoint(0, 0));
    }
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
}

/// It remembers heights; each of these must make it forget them.
TEST(MnemonicLabel, ItsHeightFollowsAllThatItDependsOn)
{
    MnemonicLabel label("lbl", QStringLiteral("a few words ").repeated(40));
    const auto changes = [&label](const auto& change) {
        const int nBefore = label.heightForWidth(300);
        change();
        return label.heightForWidth(300) != nBefore;
    };
    EXPECT_EQ(label.heightForWidth(300), label.QLabel::heightForWidth(300));
    EXPECT_GT(label.heightForWidth(200), label.heightForWidth(300));
    EXPECT_TRUE(changes([&] { label.setCaption(QStringLiteral("a few words ").repeated(80)); }));
    EXPECT_TRUE(changes([&] {
        QFont font = label.font();
        font.setPointSize(2 * font.pointSize());
        label.setFont(font);
    }));
    EXPECT_TRUE(changes([&] { label.setContentsMargins(0, 20, 0, 20); }));
    EXPECT_TRUE(changes([&] { label.setMargin(9); }));
    EXPECT_TRUE(changes([&] { label.setIndent(90); }));
    EXPECT_TRUE(changes([&] { label.setWordWrap(false); }));
}

TEST_F(TextScrollAreaTest, ATextOfAnotherHeightMovesWhatStandsBelow)
{
    show(300, 900);
    const int nBefore = area_->height();
    label_->setCaption(QStringLiteral("a few words ").repeated(80));
    EXPECT_TRUE(waitUntil([&] { return area_->height() > nBefore; }));
    EXPECT_EQ(area_->height(), label_->heightForWidth(area_->width()));
    label_->setCaption(QStringLiteral("a few words"));
    EXPECT_TRUE(waitUntil([&] { return area_->height() < nBefore; }));
}

class LayoutRequests : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        nCount += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return false;
    }
    int nCount = 0;
};

TEST_F(TextScrollAreaTest, NoTextMovesAnythingWhereTheAreaTakesAllTheRoomThereIs)
{
    area_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    show(300, 900);
    QCoreApplication::processEvents();
    LayoutRequests requests;
    window_.installEventFilter(&requests);
    label_->setCaption(QStringLiteral("a few words ").repeated(4));
    QCoreApplication::processEvents();
    EXPECT_EQ(requests.nCount, 0);
}

class AskedLabel : public ScrolledLabel {
public:
    AskedLabel()
        : ScrolledLabel("label", nullptr)
    {
    }
    mutable std::set<int> widths;

protected:
    int measuredHeight(int width) const override
    {
        widths.insert(width);
        return ScrolledLabel::measuredHeight(width);
    }
};

TEST_F(TextScrollAreaTest, ATextThatFitsIsBrokenIntoLinesForOneWidthOnly)
{
    QWidget window;
    auto* label = new AskedLabel;
    auto* area = new TextScrollArea(label, &window);
    area->resize(300, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const int words : {3, 30, 29, 3}) {
        QCoreApplication::processEvents();
        label->widths.clear();
        label->setCaption(QStringLiteral("a few words ").repeated(words));
        EXPECT_TRUE(waitUntil([&] { return label->height() == label->heightForWidth(300); })) << words;
        QCoreApplication::processEvents();
        EXPECT_EQ(label->widths, std::set<int>{300}) << words;
    }
}

} // namespace
} // namespace zorvo
