#include "tests/window/WindowTest.h"
#include "window/ListBar.h"
#include "window/ListBarEntry.h"

#include <QLayout>
#include <QScrollBar>
#include <QSignalSpy>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

class ListBarTest : public testing::Test {
protected:
    ListBarTest()
        : bar_("lbMain")
    {
        QObject::connect(&bar_, &ListBar::clicked, &bar_, [this](int index) { clicked_.push_back(index); });
    }

    void fill()
    {
        bar_.groups().add(1, "Quillbook", "Quillbook", -1);
        bar_.groups().add(2, "Tessora", "Tools & Samples", -1);
        bar_.groups().add(3, "Zorvonet", "A much longer caption that wraps", -1);
    }

    ListBarEntry& entry(const char* key)
    {
        // The layout knows the entries that stand; others may still wait for their deletion.
        const QLayout& layout = *bar_.widget()->layout();
        for (int i = 0; i < layout.count(); ++i) {
            auto* found = qobject_cast<ListBarEntry*>(layout.itemAt(i)->widget());
            if (found && found->objectName() == QLatin1String(key))
                return *found;
        }
        throw std::runtime_error(key);
    }

    ListBar bar_;
    std::vector<int> clicked_;
};

TEST_F(ListBarTest, TellsWhichEntryWasPressed)
{
    fill();
    bar_.show();
    QTest::mouseClick(&entry("Tessora"), Qt::LeftButton);
    QTest::mouseClick(&entry("Quillbook"), Qt::LeftButton);
    EXPECT_THAT(clicked_, ElementsAre(2, 1));
}

TEST_F(ListBarTest, EntriesArePressedByKeyboard)
{
    fill();
    bar_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bar_));
    entry("Quillbook").setFocus();
    QTest::keyClick(&entry("Quillbook"), Qt::Key_Space);
    QTest::keyClick(&entry("Quillbook"), Qt::Key_Tab);
    EXPECT_TRUE(entry("Tessora").hasFocus());
    QTest::keyClick(&entry("Tessora"), Qt::Key_Return);
    QTest::keyClick(&entry("Tessora"), Qt::Key_Down);
    EXPECT_TRUE(entry("Zorvonet").hasFocus());
    EXPECT_THAT(clicked_, ElementsAre(1, 2));
}

TEST_F(ListBarTest, EntriesHaveNamesOfTheirOwn)
{
    fill();
    EXPECT_EQ(accessibleText(entry("Tessora")), "Tools & Samples");
    EXPECT_EQ(accessibleRole(entry("Tessora")), QAccessible::Button);
}

TEST_F(ListBarTest, AnAmpersandInACaptionMarksNothing)
{
    fill();
    EXPECT_TRUE(entry("Tessora").shortcut().isEmpty());
}

TEST_F(ListBarTest, ScrollsWhenThereIsLittleRoom)
{
    fill();
    bar_.resize(bar_.sizeHint().width(), 120);
    bar_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&bar_));
    EXPECT_GT(bar_.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(bar_.horizontalScrollBar()->maximum(), 0);
    entry("Tessora").setFocus();
    QTest::keyClick(&entry("Tessora"), Qt::Key_Tab);
    const QPoint middle = entry("Zorvonet").mapTo(bar_.viewport(), entry("Zorvonet").rect().center());
    EXPECT_TRUE(bar_.viewport()->rect().contains(middle));
}

TEST_F(ListBarTest, ALongCaptionWraps)
{
    fill();
    EXPECT_GT(entry("Zorvonet").heightForWidth(96), entry("Quillbook").heightForWidth(96));
}

TEST_F(ListBarTest, AnEntrysClickMayChangeTheEntries)
{
    fill();
    bar_.show();
    QObject::connect(&bar_, &ListBar::clicked, &bar_, [this] { bar_.groups().clear(), fill(); });
    QTest::mouseClick(&entry("Tessora"), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(bar_.findChildren<ListBarEntry*>().size(), 3);
    QTest::mouseClick(&entry("Zorvonet"), Qt::LeftButton);
    EXPECT_THAT(clicked_, ElementsAre(2, 3));
}

} // namespace
} // namespace zorvo
