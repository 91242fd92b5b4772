#include "tests/window/WindowTest.h"
#include "window/Form.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/ToolBands.h"

#include <QPushButton>
#include <QToolButton>

namespace zorvo {
namespace {

class UiIdsTest : public testing::Test {
protected:
    ~UiIdsTest() override { qunsetenv("ZORVOBRENDLE_UI_IDS"); }

    static std::string descriptionOf(QObject& object)
    {
        return accessibleText(object, QAccessible::Description);
    }
};

class FormWithControls : public Form {
public:
    FormWithControls()
        : Form("frmOptions")
        , cmdOK(new QPushButton(this))
        , bar(new ListBar("lbMain", this))
    {
        cmdOK->setObjectName(QStringLiteral("cmdOK"));
        cmdOK->setToolTip(QStringLiteral("Stores the options"));
    }

    QPushButton* cmdOK;
    ListBar* bar;
};

TEST_F(UiIdsTest, DescriptionsAreIdsWhenATestAsksForThem)
{
    qputenv("ZORVOBRENDLE_UI_IDS", "1");
    FormWithControls form;
    form.load();
    EXPECT_EQ(descriptionOf(form), "#frmOptions");
    EXPECT_EQ(descriptionOf(*form.cmdOK), "#cmdOK");
    EXPECT_EQ(descriptionOf(*form.bar), "#lbMain");
    form.bar->groups().add(1, "Quillbook", "Caption", -1);
    EXPECT_EQ(descriptionOf(*form.bar->findChild<QWidget*>(QStringLiteral("Quillbook"))), "#Quillbook");
    form.unload();
}

TEST_F(UiIdsTest, DescriptionsAreForPeopleOtherwise)
{
    FormWithControls form;
    form.load();
    EXPECT_EQ(descriptionOf(form), "");
    EXPECT_EQ(descriptionOf(*form.cmdOK), "Stores the options");
    form.unload();
}

TEST_F(UiIdsTest, AControlThatComesLaterIsMarkedWhenTheFormShows)
{
    qputenv("ZORVOBRENDLE_UI_IDS", "1");
    FormWithControls form;
    form.load();
    MnemonicLabel late("lblLate", QStringLiteral("Late"), &form);
    form.showModeless();
    EXPECT_EQ(descriptionOf(late), "#lblLate");
    form.unload();
}

TEST_F(UiIdsTest, AToolButtonHasItsToolsId)
{
    qputenv("ZORVOBRENDLE_UI_IDS", "1");
    ToolPool pool;
    Tool tool;
    tool.sId = "ID_WORD";
    tool.sToolbarCaption = "Word";
    tool.sToolTip = "New Blank Document";
    pool.addTool(tool);
    pool.addBand({"Standard", BandKind::toolbar, {"ID_Word"}});
    const ToolBands bands("tbMain", pool);
    EXPECT_EQ(descriptionOf(*bands.findChild<QToolButton*>(QStringLiteral("ID_WORD"))), "#ID_WORD");
}

TEST_F(UiIdsTest, PanelsHaveIds)
{
    qputenv("ZORVOBRENDLE_UI_IDS", "1");
    StatusPanels bar("sbZorvoBrendle");
    EXPECT_EQ(descriptionOf(bar.panel(bar.addPanel())), "#sbZorvoBrendle.2");
}

} // namespace
} // namespace zorvo
