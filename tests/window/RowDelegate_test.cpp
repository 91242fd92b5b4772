#include "tests/window/WindowTest.h"
#include "window/RowDelegate.h"
#include "window/spacing.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zorvo {
namespace {

/// Draws all that the style draws, each time.
class PlainDelegate : public QStyledItemDelegate {
public:
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return RowDelegate().sizeHint(option, index);
    }
};

/// Of a smoothed line that is kept and laid on its background later.
constexpr int kRounding = 2;

/// The greatest difference of a colour of the same place.
int farthest(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 255;
    int nFarthest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            nFarthest = std::max({nFarthest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                  std::abs(qBlue(a) - qBlue(b))});
        }
    return nFarthest;
}

class RowDelegateTest : public testing::Test {
protected:
    RowDelegateTest()
    {
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        for (const char* text : {"Alpha", "Second file & its data", "", "Two\nlines",
                                 "A name that is far too long for a view as narrow as this one is"}) {
            auto* row = new QStandardItem(QString::fromUtf8(text));
            auto* below = new QStandardItem(QString::fromUtf8(text));
            below->setIcon(picture);
            row->appendRow(below);
            model_.appendRow(row);
        }
        for (QTreeView* view : {&ours_, &plain_}) {
            view->setHeaderHidden(true);
            view->setModel(&model_);
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
            view->resize(260, 300);
            view->expandAll();
        }
        ours_.setItemDelegate(&delegate_);
        plain_.setItemDelegate(&plainDelegate_);
    }

    /// With each row the current one, in turn.
    void compare(const char* what)
    {
        for (QModelIndex row = model_.index(0, 0); row.isValid(); row = ours_.indexBelow(row)) {
            std::array<QImage, 2> pictures;
            for (int i = 0; i < 2; ++i) {
                QTreeView& view = i == 0 ? ours_ : plain_;
                view.activateWindow();
                view.setFocus();
                ASSERT_TRUE(waitUntil([&] { return view.hasFocus() || !view.isEnabled(); }));
                view.setCurrentIndex(row);
                pictures[static_cast<std::size_t>(i)] = view.grab().toImage();
            }
            ASSERT_LE(farthest(pictures[0], pictures[1]), kRounding)
                << what << ", " << row.data().toString().toStdString() << " current";
        }
    }

    void show()
    {
        for (QTreeView* view : {&ours_, &plain_}) {
            view->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(view));
        }
    }

    QStandardItemModel model_;
    QTreeView ours_;
    QTreeView plain_;
    RowDelegate delegate_;
    PlainDelegate plainDelegate_;
};

TEST_F(RowDelegateTest, RowsLookAsTheStyleDrawsThem)
{
    show();
    compare("at first");
    compare("a second time");
}

TEST_F(RowDelegateTest, RowsFollowFontColoursWidthDirectionAndState)
{
    show();
    compare("at first");
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Window, Qt::darkGray);
    dark.setColor(QPalette::Highlight, Qt::darkRed);
    dark.setColor(QPalette::HighlightedText, Qt::yellow);
    const std::array<std::pair<const char*, std::function<void(QTreeView&)>>, 6> changes{{
        {"dark", [&](QTreeView& view) { view.setPalette(dark); }},
        {"large",
         [](QTreeView& view) {
             QFont font = view.font();
             font.setPointSizeF(font.pointSizeF() * 1.5);
             view.setFont(font);
         }},
        {"narrow", [](QTreeView& view) { view.resize(150, 300); }},
        {"from the right", [](QTreeView& view) { view.setLayoutDirection(Qt::RightToLeft); }},
        {"several selected", [](QTreeView& view) { view.setSelectionMode(QTreeView::MultiSelection); }},
        {"disabled", [](QTreeView& view) { view.setEnabled(false); }},
    }};
    for (const auto& [what, change] : changes) {
        change(ours_);
        change(plain_);
        compare(what);
    }
}

TEST_F(RowDelegateTest, RowsLookAsTheStyleDrawsThemWhereTheWindowIsNotActive)
{
    show();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    for (QTreeView* view : {&ours_, &plain_})
        view->setCurrentIndex(model_.index(1, 0));
    EXPECT_LE(farthest(ours_.grab().toImage(), plain_.grab().toImage()), kRounding);
}

TEST_F(RowDelegateTest, RowsLookAsTheStyleDrawsThemOnAScreenOfTwiceTheDots)
{
    show();
    for (const QPoint turn : {QPoint(0, 0), QPoint(1, 0)}) {
        std::array<QImage, 2> pictures;
        for (int i = 0; i < 2; ++i) {
            QTreeView& view = i == 0 ? ours_ : plain_;
            view.activateWindow();
            view.setFocus();
            ASSERT_TRUE(waitUntil([&] { return view.hasFocus(); }));
            view.setCurrentIndex(model_.index(turn.x(), 0));
            view.grab();
            QImage& picture = pictures[static_cast<std::size_t>(i)];
            picture = QImage(view.size() * 2, QImage::Format_RGB32);
            picture.setDevicePixelRatio(2);
            view.render(&picture);
        }
        EXPECT_LE(farthest(pictures[0], pictures[1]), kRounding);
    }
}

TEST_F(RowDelegateTest, ARowIsAsHighAsItsTextOrImageAndSomeAir)
{
    QStyleOptionViewItem option;
    option.decorationSize = {16, 40};
    EXPECT_EQ(delegate_.sizeHint(option, model_.index(0, 0)).height(), 40 + kSpacing / 2);
    option.decorationSize = {1, 1};
    EXPECT_EQ(delegate_.sizeHint(option, model_.index(0, 0)).height(),
              option.fontMetrics.height() + kSpacing / 2);
}

} // namespace
} // namespace zorvo
