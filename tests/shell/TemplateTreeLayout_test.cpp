#include "shell/forms/TemplateTree.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "window/LinkLabel.h"
#include "window/ListBar.h"
#include "window/ListBarEntry.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/TextScrollArea.h"
#include "window/ToolBands.h"
#include "window/TreeView.h"
#include "window/twips.h"

#include <QAccessible>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QTest>
#include <QToolBar>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TemplateTreeLayout : public MainFormTest {
protected:
    /// The shown form with a client area of that size.
    void showAt(int nWidth, int nHeight)
    {
        store("MainState", "0");
        store("MainWidth", "15000");
        store("MainHeight", "9000");
        shownForm().resize(nWidth, nHeight);
        QCoreApplication::processEvents();
        ASSERT_EQ(form().size(), QSize(nWidth, nHeight));
    }
    template <typename Control>
    Control& control(const char* name)
    {
        return *form().findChild<Control*>(QLatin1String(name));
    }
    QRect placeOf(const QWidget& widget) { return {widget.mapTo(&form(), QPoint()), widget.size()}; }
    QRect placeOf(const char* name) { return placeOf(control<QWidget>(name)); }
    int nWidthTwips() { return toTwips(form().width()); }

    /// Nothing lies over anything else or beyond the form, and each text has the room that it needs.
    void expectWhole()
    {
        const std::vector<const char*> parts = {"tbMain",  "lbMain",          "TreeView1",
                                                "fraDesc", "fraInstructions", "sbZorvoBrendle"};
        for (const char* one : parts) {
            EXPECT_TRUE(form().rect().contains(placeOf(one))) << one;
            for (const char* other : parts)
                EXPECT_FALSE(one != other && placeOf(one).intersects(placeOf(other)))
                    << one << " over " << other;
        }
        for (const char* name : {"lblInstructions", "lblContactUsMessage"}) {
            const auto& label = control<MnemonicLabel>(name);
            EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
        }
        EXPECT_GE(control<QWidget>("fraDesc").height(), 72);
        EXPECT_GE(control<QWidget>("TreeView1").width(), 100);
    }

    static std::string nameOf(QWidget& widget)
    {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
    }
    static QAccessible::Role roleOf(QWidget& widget)
    {
        return QAccessible::queryAccessibleInterface(&widget)->role();
    }
};

TEST_F(TemplateTreeLayout, ThePartsStandWhereTheSizeOfTheFormPutsThem)
{
    for (const QSize size : {QSize(1060, 700), QSize(1280, 800), QSize(1920, 1080)}) {
        showAt(size.width(), size.height());
        EXPECT_EQ(placeOf("fraInstructions").left(), toPixels(nWidthTwips() - 4720));
        EXPECT_EQ(placeOf("fraDesc").left(), toPixels(nWidthTwips() - 4715));
        EXPECT_EQ(placeOf("TreeView1").width(),
                  toPixels(nWidthTwips() - 4720 - toTwips(placeOf("TreeView1").left()) - 40));
        auto& bar = control<StatusPanels>("sbZorvoBrendle");
        EXPECT_EQ(bar.panel(1).panelWidth(), toPixels(nWidthTwips() - 3200));
    }
}

TEST_F(TemplateTreeLayout, TreeAndDescriptionGrowWithTheForm)
{
    showAt(1060, 700);
    const QRect tree = placeOf("TreeView1");
    const QRect desc = placeOf("fraDesc");
    const int nLabelArea = control<TextScrollArea>("descriptionArea").maximumHeight();
    form().resize(1160, 760);
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOf("TreeView1"), tree.adjusted(0, 0, 100, 60));
    EXPECT_EQ(placeOf("fraDesc"), desc.translated(100, 0).adjusted(0, 0, 0, 60));
    EXPECT_EQ(control<TextScrollArea>("descriptionArea").maximumHeight(), nLabelArea + 60);
    EXPECT_EQ(nLabelArea, toPixels(toTwips(desc.height()) - 360));
}

TEST_F(TemplateTreeLayout, TheDescriptionHasItsFrameToItself)
{
    showAt(1060, 700);
    const auto& area = control<TextScrollArea>("descriptionArea");
    // But for the title and the edges, whose height is the style's affair.
    EXPECT_LE(area.height(), area.maximumHeight());
    EXPECT_GT(area.height(), control<QWidget>("fraDesc").height() - 64);
}

TEST_F(TemplateTreeLayout, TheLowerEdgesAreInOneLine)
{
    showAt(1060, 700);
    EXPECT_EQ(placeOf("TreeView1").bottom(), placeOf("fraDesc").bottom());
    EXPECT_EQ(placeOf("TreeView1").bottom(), placeOf("lbMain").bottom());
    EXPECT_EQ(placeOf("TreeView1").top(), placeOf("fraInstructions").top());
}

TEST_F(TemplateTreeLayout, IsWholeFromASmallScreenToALargeOne)
{
    for (const QSize size : {QSize(640, 480), QSize(800, 600), QSize(1060, 700), QSize(3840, 2160)}) {
        showAt(size.width(), size.height());
        SCOPED_TRACE(std::to_string(size.width()));
        expectWhole();
    }
}

TEST_F(TemplateTreeLayout, AShrinkingFormFailsNowhereAndStopsAtItsLeastSize)
{
    showAt(1060, 700);
    form().resize(10, 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(form().size(), form().minimumSize());
    EXPECT_THAT(messages.reports, IsEmpty());
    EXPECT_TRUE(form().rect().contains(placeOf("sbZorvoBrendle")));
}

TEST_F(TemplateTreeLayout, ALargeFontScrollsTheInstructionsAndCoversNothing)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(2 * before.pointSizeF());
    QApplication::setFont(large);
    showAt(800, 600);
    EXPECT_FALSE(placeOf("fraInstructions").intersects(placeOf("fraDesc")));
    EXPECT_FALSE(placeOf("fraDesc").intersects(placeOf("sbZorvoBrendle")));
    EXPECT_TRUE(form().rect().contains(placeOf("fraDesc")));
    QApplication::setFont(before);
}

TEST_F(TemplateTreeLayout, OtherInstructionsTakeTheRoomThatTheyNeed)
{
    showAt(1280, 800);
    auto& label = control<MnemonicLabel>("lblInstructions");
    const QString shorter = label.caption();
    const QRect before = placeOf("fraInstructions");
    label.setCaption(shorter + shorter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return placeOf("fraInstructions").height() > before.height(); }));
    expectWhole();
    label.setCaption(shorter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return placeOf("fraInstructions") == before; }));
    expectWhole();
}

TEST_F(TemplateTreeLayout, TheProgressBarStandsOverTheStatusBarAtAnySize)
{
    showAt(800, 600);
    auto& gauge = control<QProgressBar>("gagZorvoBrendle");
    EXPECT_FALSE(gauge.isVisible());
    EXPECT_TRUE(placeOf("sbZorvoBrendle").contains(placeOf(gauge)));
    EXPECT_GE(gauge.width(), 200);
}

TEST_F(TemplateTreeLayout, TabGoesFromToolsToListBarTreeAndLink)
{
    showAt(1280, 800);
    std::vector<std::string> order;
    form().findChild<TreeView*>()->setFocus();
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.push_back(QApplication::focusWidget()->objectName().toStdString());
        if (order.back() == "TreeView1")
            break;
    }
    // The disabled New Document is left out; the search has a library product to work on.
    EXPECT_THAT(order,
                ElementsAre("linkContactUs", "ID_SEARCHSABLEWOODLIBRARY", "ID_SEARCHTREE", "ID_EXPAND",
                            "ID_COLLAPSE", "ID_ALLBRENDLEOFFERINGS", "ID_EXCEL", "ID_WORD", "ID_BRENDLEHELP",
                            "Tessora", "Sablewood Libraries", "Zorvonet", "TreeView1"));
}

TEST_F(TemplateTreeLayout, ALongDescriptionIsScrolledByKeyboardBehindTheLink)
{
    showAt(640, 420);
    form().setDescription(std::string(2000, 'x').replace(500, 1, " ") + std::string(500, '\n'));
    auto& area = control<TextScrollArea>("descriptionArea");
    ASSERT_TRUE(QTest::qWaitFor([&] { return area.focusPolicy() == Qt::StrongFocus; }));
    form().findChild<LinkLabel*>()->setFocus();
    QTest::keyClick(form().findChild<LinkLabel*>(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &area);
}

TEST_F(TemplateTreeLayout, EveryControlHasARoleAndAName)
{
    showAt(1060, 700);
    const std::tuple<const char*, QAccessible::Role, const char*> controls[] = {
        {"TreeView1", QAccessible::Tree, "Products and documents"},
        {"fraDesc", QAccessible::Grouping, "Description"},
        {"fraInstructions", QAccessible::Grouping, "Instructions"},
        {"linkContactUs", QAccessible::Button, "Contact Us"},
        {"lblContactUsClickLinkInstructions", QAccessible::StaticText, "Click the following link to "},
        {"gagZorvoBrendle", QAccessible::ProgressBar, "Progress"},
        {"sbZorvoBrendle", QAccessible::StatusBar, "Status bar"},
        {"Menu Bar", QAccessible::MenuBar, "Menu Bar"},
        {"Standard", QAccessible::ToolBar, "Standard"},
        {"ID_NEW", QAccessible::Button, "New Document"},
    };
    for (const auto& [name, role, text] : controls) {
        auto& widget = control<QWidget>(name);
        EXPECT_EQ(roleOf(widget), role) << name;
        EXPECT_EQ(nameOf(widget), text) << name;
    }
    EXPECT_EQ(nameOf(control<QWidget>("lbMain")), "Product groups");
    for (ListBarEntry* entry : form().findChildren<ListBarEntry*>())
        EXPECT_FALSE(nameOf(*entry).empty());
}

TEST_F(TemplateTreeLayout, TheTextsTellWhatToDoAndWhomToWriteTo)
{
    const std::pair<const char*, const char*> texts[] = {
        {"lblInstructions",
         "To create a new Brendle document, select one or more documents from the list, and then click New "
         "Document. Hint: To pick more than one document hold down the Ctrl key while you click with the "
         "mouse."},
        {"lblContactUsMessage",
         "Users of these products are encouraged to contact Zorvo to offer any comments or suggestions to "
         "improve the usefulness of future editions."},
        {"lblContactUsClickLinkInstructions", "Click the following link to "},
        {"lblDesc", ""},
    };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(control<MnemonicLabel>(name).text().toStdString(), text) << name;
    EXPECT_EQ(control<QGroupBox>("fraDesc").title(), QStringLiteral("Description"));
    EXPECT_EQ(control<QGroupBox>("fraInstructions").title(), QStringLiteral("Instructions"));
    EXPECT_EQ(form().findChild<LinkLabel*>()->text(), QStringLiteral("Contact Us"));
    EXPECT_TRUE(control<QWidget>("picForTaskManager").isHidden());
    EXPECT_EQ(form().tmEventInterval(), 0);
}

TEST_F(TemplateTreeLayout, TheDescriptionReadsAsTheNameOfItsLabel)
{
    showAt(1060, 700);
    form().tree().setSelected(*form().tree().find("d1"), true);
    EXPECT_EQ(nameOf(control<QWidget>("lblDesc")), "What we plan & why");
}

TEST_F(TemplateTreeLayout, MenusOpenByAltAndWorkByKeys)
{
    showAt(1060, 700);
    QTest::keyClick(&form(), Qt::Key_V, Qt::AltModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), QStringLiteral("&View"));
    QTest::keyClick(menu, Qt::Key_R);
    EXPECT_TRUE(QTest::qWaitFor([this] { return stored("ShowCurrentOnly") == "False"; }));
    EXPECT_NE(form().tree().find("p5"), nullptr);
}

TEST_F(TemplateTreeLayout, ColoursFollowThePalette)
{
    showAt(1060, 700);
    QPalette dark = QApplication::palette();
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    const QPalette before = QApplication::palette();
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    const QImage shown = form().grab().toImage();
    const auto colourAt = [&](const QPoint& place) {
        return shown.pixelColor(place * shown.devicePixelRatio());
    };
    EXPECT_EQ(colourAt(placeOf("TreeView1").center()), QColor(20, 20, 20));
    EXPECT_EQ(colourAt(placeOf("fraDesc").bottomRight() - QPoint(20, 20)), QColor(30, 30, 30));
    QApplication::setPalette(before);
}

} // namespace
} // namespace zorvo
