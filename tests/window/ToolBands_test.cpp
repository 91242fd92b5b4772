#include "tests/window/WindowTest.h"
#include "window/Form.h"
#include "window/ToolBands.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusTipEvent>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

Tool tool(const char* id, const char* menu, const char* toolbar)
{
    Tool made;
    made.sId = id;
    made.sMenuCaption = menu;
    made.sToolbarCaption = toolbar;
    return made;
}

Tool title(const char* id, const char* caption)
{
    Tool made = tool(id, caption, "");
    made.type = ToolType::ownsSubBand;
    made.sSubBand = caption;
    return made;
}

void fillSample(ToolPool& pool)
{
    pool.addTool(title("ID_FILE", "&File"));
    pool.addTool(title("ID_HELP", "&Help"));
    Tool make = tool("ID_NEW", "&New...", "&New Document");
    make.sStatusText = "New selected document(s).";
    make.sToolTip = "New Selected Document(s)";
    pool.addTool(make);
    pool.addTool(tool("ID_EXIT", "E&xit", ""));
    Tool current = tool("ID_CURRENT", "My &Current Only", "");
    current.state = 0;
    pool.addTool(current);
    pool.addTool(tool("ID_ALL", "", "View &All Zorvo's..."));
    pool.addTool(tool("ID_HELPTOPICS", "Zorvo's &Help", ""));
    pool.addTool(tool("ID_NOWHERE", "Nowhere", ""));
    pool.addBand({"Menu Bar", BandKind::menuBar, {"ID_FILE", "ID_HELP"}});
    pool.addBand({"&File", BandKind::subBand, {"ID_New", "-", "ID_CURRENT", "-", "ID_EXIT"}});
    pool.addBand({"&Help", BandKind::subBand, {"ID_HELPTOPICS"}});
    pool.addBand({"Standard", BandKind::toolbar, {"ID_NEW", "-", "ID_ALL", "-", "ID_HELPTOPICS"}});
}

TEST(ToolPool, ComparesIdsInUpperCase)
{
    ToolPool pool;
    fillSample(pool);
    EXPECT_EQ(pool.tool("id_new").sId, "ID_NEW");
    EXPECT_EQ(errorNumberOf([&] { pool.addTool(tool("Id_New", "", "")); }), 457);
    EXPECT_EQ(errorNumberOf([&] { pool.tool("ID_MISSING"); }), 5);
    EXPECT_EQ(errorNumberOf([&] { pool.setEnabled("ID_MISSING", true); }), 5);
}

TEST(ToolPool, TellsOfChangesAndOfNothingElse)
{
    ToolPool pool;
    fillSample(pool);
    std::vector<std::string> told;
    pool.setListener([&](const Tool* changed) { told.push_back(changed->sId); });
    pool.setEnabled("ID_NEW", true);
    pool.setVisible("ID_NEW", true);
    pool.setState("ID_CURRENT", 0);
    EXPECT_THAT(told, ElementsAre());
    pool.setEnabled("ID_NEW", false);
    pool.setVisible("ID_ALL", false);
    pool.setState("ID_CURRENT", 1);
    pool.setState("ID_EXIT", 0); // it had none
    EXPECT_THAT(told, ElementsAre("ID_NEW", "ID_ALL", "ID_CURRENT", "ID_EXIT"));
}

TEST(ToolPool, RefusesABandOfUnknownToolsAndASecondOfOneName)
{
    ToolPool pool;
    fillSample(pool);
    EXPECT_EQ(errorNumberOf([&] { pool.addBand({"Other", BandKind::toolbar, {"ID_MISSING"}}); }), 5);
    EXPECT_EQ(errorNumberOf([&] { pool.addBand({"Standard", BandKind::toolbar, {}}); }), 457);
    EXPECT_EQ(errorNumberOf([&] { pool.band("Missing"); }), 5);
}

TEST(ToolPool, OneCaptionServesBothPlaces)
{
    ToolPool pool;
    fillSample(pool);
    EXPECT_EQ(pool.tool("ID_EXIT").sToolbarCaption, "E&xit");
    EXPECT_EQ(pool.tool("ID_ALL").sMenuCaption, "View &All Zorvo's...");
}

TEST(ToolPool, RewritesTheCaptionsOfEveryBandOnce)
{
    ToolPool pool;
    fillSample(pool);
    pool.rewriteCaptions([](const std::string& sCaption) { return "*" + sCaption; });
    EXPECT_EQ(pool.tool("ID_FILE").sMenuCaption, "*&File");
    EXPECT_EQ(pool.tool("ID_NEW").sMenuCaption, "*&New...");
    EXPECT_EQ(pool.tool("ID_NEW").sToolbarCaption, "*&New Document");
    EXPECT_EQ(pool.tool("ID_HELPTOPICS").sMenuCaption, "*Zorvo's &Help");
    EXPECT_EQ(pool.tool("ID_NOWHERE").sMenuCaption, "Nowhere");
}

TEST(ToolPool, RewritesTheHintsOfEveryToolAndNoCaption)
{
    ToolPool pool;
    fillSample(pool);
    pool.rewriteHints([](const std::string& sHint) { return "*" + sHint; });
    EXPECT_EQ(pool.tool("ID_NEW").sStatusText, "*New selected document(s).");
    EXPECT_EQ(pool.tool("ID_NEW").sToolTip, "*New Selected Document(s)");
    EXPECT_EQ(pool.tool("ID_NEW").sMenuCaption, "&New...");
    EXPECT_EQ(pool.tool("ID_NEW").sToolbarCaption, "&New Document");
}

class ToolBandsTest : public testing::Test {
protected:
    ToolBandsTest()
    {
        fillSample(pool_);
        bands_ = new ToolBands("tbMain", pool_, &form_);
        auto* layout = new QVBoxLayout(&form_);
        layout->addWidget(bands_);
        layout->addStretch();
        form_.resize(700, 200);
        QObject::connect(bands_, &ToolBands::toolClicked, bands_,
                         [this](const QString& id) { clicked_.push_back(id.toStdString()); });
        form_.showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form_));
    }
    ~ToolBandsTest() override { form_.unload(); }

    QAction* menuAction(const char* id)
    {
        for (QAction* each : bands_->findChildren<QAction*>(QLatin1String(id)))
            for (const QObject* where : each->associatedObjects())
                if (qobject_cast<const QMenu*>(where))
                    return each;
        return nullptr;
    }
    QToolButton& button(const char* id) { return *bands_->findChild<QToolButton*>(QLatin1String(id)); }
    QMenu& menu(const char* id) { return *bands_->findChild<QMenu*>(QLatin1String(id)); }

    ToolPool pool_;
    Form form_{"frmSample"};
    ToolBands* bands_ = nullptr;
    std::vector<std::string> clicked_;
};

TEST_F(ToolBandsTest, ShowsMenusAndToolbarInOrder)
{
    std::vector<std::string> titles;
    for (const QAction* each : bands_->menuBar()->actions())
        titles.push_back(each->text().toStdString());
    EXPECT_THAT(titles, ElementsAre("&File", "&Help"));
    std::vector<std::string> texts;
    for (const QAction* each : menu("ID_FILE").actions())
        texts.push_back(each->isSeparator() ? "-" : each->text().toStdString());
    EXPECT_THAT(texts, ElementsAre("&New...", "-", "My &Current Only", "-", "E&xit"));
    EXPECT_EQ(button("ID_NEW").text(), QStringLiteral("&New Document"));
}

TEST_F(ToolBandsTest, TellsTheIdOfTheToolChosen)
{
    QTest::mouseClick(&button("ID_ALL"), Qt::LeftButton);
    menuAction("ID_EXIT")->trigger();
    EXPECT_THAT(clicked_, ElementsAre("ID_ALL", "ID_EXIT"));
}

TEST_F(ToolBandsTest, IsReachedByAlt)
{
    QTest::keyClick(&form_, Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), &menu("ID_FILE"));
    EXPECT_THAT(clicked_, testing::IsEmpty());
    QTest::keyClick(&menu("ID_FILE"), Qt::Key_X);
    QTest::keyClick(&form_, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([&] { return clicked_.size() == 2; }));
    EXPECT_THAT(clicked_, ElementsAre("ID_EXIT", "ID_ALL"));
}

TEST_F(ToolBandsTest, AKeyThatOpensAMenuPressesNoTool)
{
    QTest::keyClick(&form_, Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), &menu("ID_HELP"));
    menu("ID_HELP").close();
    EXPECT_EQ(button("ID_HELPTOPICS").text(), QStringLiteral("Zorvo's Help"));
}

TEST_F(ToolBandsTest, ToolsAreReachedByTab)
{
    button("ID_NEW").setFocus();
    QTest::keyClick(&button("ID_NEW"), Qt::Key_Tab);
    EXPECT_TRUE(button("ID_ALL").hasFocus());
    QTest::keyClick(&button("ID_ALL"), Qt::Key_Space);
    EXPECT_THAT(clicked_, ElementsAre("ID_ALL"));
}

TEST_F(ToolBandsTest, StateOneIsCheckedAndAClickAloneChangesNothing)
{
    QAction* action = menuAction("ID_CURRENT");
    EXPECT_TRUE(action->isCheckable());
    EXPECT_FALSE(action->isChecked());
    pool_.setState("ID_CURRENT", 1);
    EXPECT_TRUE(action->isChecked());
    action->trigger();
    EXPECT_TRUE(action->isChecked());
    pool_.setState("ID_CURRENT", 0);
    EXPECT_FALSE(action->isChecked());
    EXPECT_FALSE(menuAction("ID_EXIT")->isCheckable());
}

TEST_F(ToolBandsTest, FollowsEnabledAndVisible)
{
    pool_.setEnabled("id_new", false);
    EXPECT_FALSE(button("ID_NEW").isEnabled());
    EXPECT_FALSE(menuAction("ID_NEW")->isEnabled());
    QTest::mouseClick(&button("ID_NEW"), Qt::LeftButton);
    QTest::keyClick(&form_, Qt::Key_N, Qt::AltModifier);
    EXPECT_THAT(clicked_, testing::IsEmpty());
    pool_.setVisible("ID_ALL", false);
    EXPECT_TRUE(waitUntil([this] { return !button("ID_ALL").isVisible(); }));
    pool_.setVisible("ID_ALL", true);
    EXPECT_TRUE(waitUntil([this] { return button("ID_ALL").isVisible(); }));
}

TEST_F(ToolBandsTest, AHiddenToolLeavesNoSeparatorsBehind)
{
    const auto visibleKinds = [this] {
        std::string kinds;
        for (const QAction* each : bands_->toolBar()->actions())
            if (each->isVisible())
                kinds += each->isSeparator() ? '-' : 't';
        return kinds;
    };
    EXPECT_EQ(visibleKinds(), "t-t-t");
    pool_.setVisible("ID_ALL", false);
    EXPECT_EQ(visibleKinds(), "t-t");
    pool_.setVisible("ID_HELPTOPICS", false);
    EXPECT_EQ(visibleKinds(), "t");
    pool_.setVisible("ID_NEW", false);
    EXPECT_EQ(visibleKinds(), "");
    for (const char* id : {"ID_ALL", "ID_HELPTOPICS", "ID_NEW"})
        pool_.setVisible(id, true);
    EXPECT_EQ(visibleKinds(), "t-t-t");
}

TEST_F(ToolBandsTest, ShowsRewrittenCaptions)
{
    pool_.rewriteCaptions([](const std::string& sCaption) { return "OT&&R " + sCaption; });
    EXPECT_EQ(bands_->menuBar()->actions().front()->text(), QStringLiteral("OT&&R &File"));
    EXPECT_EQ(menuAction("ID_NEW")->text(), QStringLiteral("OT&&R &New..."));
    EXPECT_EQ(button("ID_NEW").text(), QStringLiteral("OT&&R &New Document"));
    EXPECT_EQ(accessibleText(button("ID_NEW")), "OT&R New Document");
}

TEST_F(ToolBandsTest, ShowsRewrittenHints)
{
    pool_.rewriteHints([](const std::string& sHint) { return sHint.empty() ? sHint : "OT&R: " + sHint; });
    EXPECT_EQ(button("ID_NEW").toolTip(), QStringLiteral("OT&R: New Selected Document(s)"));
    EXPECT_EQ(button("ID_NEW").defaultAction()->statusTip(),
              QStringLiteral("OT&R: New selected document(s)."));
    EXPECT_EQ(button("ID_ALL").toolTip(), QStringLiteral("View All Zorvo's...")) << "it has the caption's";
}

TEST_F(ToolBandsTest, NamesAreWithoutMarks)
{
    EXPECT_EQ(accessibleText(button("ID_ALL")), "View All Zorvo's...");
    EXPECT_EQ(accessibleText(*bands_->menuBar()), "Menu Bar");
    EXPECT_EQ(accessibleText(*bands_->toolBar()), "Standard");
    QAccessibleInterface* menus = QAccessible::queryAccessibleInterface(bands_->menuBar());
    ASSERT_EQ(menus->childCount(), 2);
    EXPECT_EQ(menus->child(0)->text(QAccessible::Name), QStringLiteral("File"));
    EXPECT_EQ(menus->child(0)->role(), QAccessible::MenuItem);
}

TEST_F(ToolBandsTest, ShowsToolTipsAndStatusTexts)
{
    EXPECT_EQ(button("ID_NEW").toolTip(), QStringLiteral("New Selected Document(s)"));
    EXPECT_EQ(button("ID_ALL").toolTip(), QStringLiteral("View All Zorvo's..."));
    QStringList told;
    QObject::connect(bands_, &ToolBands::statusTextChanged, bands_,
                     [&](const QString& text) { told << text; });
    QTest::keyClick(&form_, Qt::Key_F, Qt::AltModifier);
    menu("ID_FILE").setActiveAction(menuAction("ID_NEW"));
    EXPECT_TRUE(told.contains(QStringLiteral("New selected document(s).")));
    menu("ID_FILE").close();
    told.clear();
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(&button("ID_NEW"), &enter);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&button("ID_NEW"), &leave);
    EXPECT_EQ(told, (QStringList{QStringLiteral("New selected document(s)."), QString()}));
}

TEST_F(ToolBandsTest, DrawsTheSideStripBesideTheMenus)
{
    QImage image(24, 40, QImage::Format_ARGB32);
    image.fill(Qt::magenta);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "BMP");
    const int nPlain = menu("ID_FILE").sizeHint().width();
    pool_.setSideStrip(Picture::fromBytes(bytes.toStdString()));
    EXPECT_EQ(menu("ID_FILE").sizeHint().width(), nPlain + 24);
    menu("ID_FILE").popup({10, 10});
    const QImage shown = menu("ID_FILE").grab().toImage();
    EXPECT_EQ(shown.pixelColor(8, shown.height() - 8), QColor(Qt::magenta));
    EXPECT_NE(shown.pixelColor(60, shown.height() - 8), QColor(Qt::magenta));
    menu("ID_FILE").close();
    pool_.setSideStrip(nullptr);
    EXPECT_EQ(menu("ID_FILE").sizeHint().width(), nPlain);
}

TEST_F(ToolBandsTest, ToolsThatDoNotFitAreBehindAButtonOfTheirOwn)
{
    form_.resize(bands_->minimumSizeHint().width() + 40, 200);
    QToolButton& more = *bands_->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    EXPECT_TRUE(waitUntil([&] { return more.isVisible(); }));
    EXPECT_EQ(more.focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(accessibleText(more), "More tools");
}

} // namespace
} // namespace zorvo
