#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "catalogue/basHTMLHelp.h"
#include "shell/forms/formInstances.h"
#include "shell/forms/frmOptions.h"
#include "shell/forms/optionsDialog.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "window/MnemonicLabel.h"
#include "window/clsMousePointer.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace zorvo {
namespace {

constexpr const char* kReferenceLocation = "{3561154C-DACA-40C5-85E8-A020D429B090}";

class OptionsTest : public MainFormTest {
protected:
    static void changeEverything(QWidget& options)
    {
        child<QRadioButton>(options, "optViewCurrentPlusPrior")->setChecked(true);
        child<QCheckBox>(options, "chkDisplaySplash")->setChecked(false);
        child<QCheckBox>(options, "chkZorvoMenuState")->setChecked(false);
    }

    /// Runs the dialog and does that in it. Gives the number of reloads.
    static int edit(const std::function<void(QWidget&)>& act)
    {
        int nReloads = 0;
        whenModal("frmOptions", act);
        editOptions([&nReloads] { ++nReloads; });
        return nReloads;
    }

    /// A busy pointer disables the main form, as it does when no modal form is up.
    void expectBusyPointerLocksTheMainForm()
    {
        goMousePointer().setMousePointer(11);
        EXPECT_FALSE(form().isEnabled());
        goMousePointer().setMousePointer(0);
        EXPECT_TRUE(form().isEnabled());
    }
};

TEST_F(OptionsTest, TheFormAndItsControlsHaveTheirTexts)
{
    frmOptions options;
    EXPECT_EQ(options.objectName(), QStringLiteral("frmOptions"));
    EXPECT_EQ(options.caption(), QStringLiteral("Zorvo's Brendle Options"));
    const std::pair<const char*, const char*> labels[] = {
        {"lblViewSettings", "View Settings"},
        {"lblProgramSettings", "Program Settings"},
        {"Label1", "Content Settings"},
        {"lblSetLocation",
         "Click the Set Location button to set your preferred location of reference material."},
    };
    for (const auto& [name, text] : labels)
        EXPECT_EQ(child<MnemonicLabel>(options, name)->caption(), QLatin1String(text)) << name;
    const std::pair<const char*, const char*> buttons[] = {
        {"optViewCurrentOnly", "View &current Brendle in the list"},
        {"optViewCurrentPlusPrior", "View all Brendle in the list including &prior versions"},
        {"chkDisplaySplash", "Di&splay Zorvo's Brendle splash screen when program starts"},
        {"chkZorvoMenuState", "Show the Zorvo &menu in Excel or Word for non-Zorvo documents"},
        {"cmdSetLocation", "Set &Location"},
        {"cmdOK", "OK"},
        {"cmdCancel", "Cancel"},
        {"cmdHelp", "&Help"},
    };
    for (const auto& [name, text] : buttons)
        EXPECT_EQ(child<QAbstractButton>(options, name)->text(), QLatin1String(text)) << name;
}

TEST_F(OptionsTest, UnderOtrTheTextsReadWithTheirAmpersandAndKeepTheirAccessKeys)
{
    StoreCompanyID("OTR");
    frmOptions options;
    options.load();
    EXPECT_EQ(options.caption(), QStringLiteral("OT&R's Brendle Options"));
    EXPECT_EQ(child<QCheckBox>(options, "chkDisplaySplash")->text(),
              QStringLiteral("Di&splay OT&&R's Brendle splash screen when program starts"));
    EXPECT_EQ(child<QCheckBox>(options, "chkZorvoMenuState")->text(),
              QStringLiteral("Show the OT&&R &menu in Excel or Word for non-OT&&R documents"));
    options.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&options));
    const auto isOn = [&options] { return child<QCheckBox>(options, "chkZorvoMenuState")->isChecked(); };
    QTest::keyClick(&options, Qt::Key_M, Qt::AltModifier); // pressed for a moment, as with the mouse
    EXPECT_TRUE(QTest::qWaitFor(isOn));
    QTest::keyClick(&options, Qt::Key_R, Qt::AltModifier); // the one of the name marks nothing
    QTest::keyClick(&options, Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&isOn] { return !isOn(); }));
    EXPECT_FALSE(child<QCheckBox>(options, "chkDisplaySplash")->isChecked());
    options.unload();
}

TEST_F(OptionsTest, TheLoadShowsTheFields)
{
    for (const bool b : {false, true}) {
        frmOptions options;
        options.SetData(b, false, !b, b, false);
        options.load();
        EXPECT_EQ(child<QRadioButton>(options, "optViewCurrentOnly")->isChecked(), b);
        EXPECT_EQ(child<QRadioButton>(options, "optViewCurrentPlusPrior")->isChecked(), !b);
        EXPECT_EQ(child<QCheckBox>(options, "chkDisplaySplash")->isChecked(), !b);
        EXPECT_EQ(child<QCheckBox>(options, "chkZorvoMenuState")->isChecked(), b);
    }
}

TEST_F(OptionsTest, TheUnloadReadsThreeFieldsBackAndHandsTheOthersThrough)
{
    for (const bool b : {false, true}) {
        frmOptions options;
        options.SetData(true, b, true, true, !b);
        options.load();
        changeEverything(options);
        options.unload();
        bool bCancel = true;
        bool bCurrentOnly = true;
        bool bAllOfferings = !b;
        bool bSplash = true;
        bool bMenu = true;
        bool bView = b;
        options.GetData(bCancel, bCurrentOnly, bAllOfferings, bSplash, bMenu, bView);
        EXPECT_FALSE(bCancel);
        EXPECT_FALSE(bCurrentOnly);
        EXPECT_EQ(bAllOfferings, b);
        EXPECT_FALSE(bSplash);
        EXPECT_FALSE(bMenu);
        EXPECT_EQ(bView, !b);
    }
}

TEST_F(OptionsTest, OptionsShowTheSessionsValuesAndOkTakesTheFormsAndReloads)
{
    form();
    sessionState().bShowViewOnTB = true;
    sessionState().bIncludeAllOfferings = true;
    const int nReloads = edit([](QWidget& options) {
        EXPECT_TRUE(child<QRadioButton>(options, "optViewCurrentOnly")->isChecked());
        EXPECT_TRUE(child<QCheckBox>(options, "chkDisplaySplash")->isChecked());
        EXPECT_TRUE(child<QCheckBox>(options, "chkZorvoMenuState")->isChecked());
        changeEverything(options);
        click(options, "cmdOK");
    });
    EXPECT_EQ(nReloads, 1);
    EXPECT_FALSE(sessionState().bShowCurrentOnly);
    EXPECT_FALSE(sessionState().bDisplaySplash);
    EXPECT_FALSE(sessionState().bMenuState);
    EXPECT_TRUE(sessionState().bShowViewOnTB) << "handed through unchanged";
    EXPECT_TRUE(sessionState().bIncludeAllOfferings);
    EXPECT_EQ(stored("ShowCurrentOnly"), "False");
    EXPECT_EQ(stored("DisplaySplash"), "False");
}

TEST_F(OptionsTest, OkWithNothingChangedReloadsTheTree)
{
    form();
    EXPECT_EQ(edit([](QWidget& options) { click(options, "cmdOK"); }), 1);
}

TEST_F(OptionsTest, CancelAndTheCloseBoxChangeNothingAndReloadNothing)
{
    form();
    for (const bool bCloseBox : {false, true}) {
        const int nReloads = edit([bCloseBox](QWidget& options) {
            changeEverything(options);
            if (bCloseBox)
                options.close();
            else
                click(options, "cmdCancel");
        });
        EXPECT_EQ(nReloads, 0);
        EXPECT_TRUE(sessionState().bShowCurrentOnly);
        EXPECT_TRUE(sessionState().bDisplaySplash);
        EXPECT_TRUE(sessionState().bMenuState);
        EXPECT_EQ(stored("ShowCurrentOnly"), "(absent)");
    }
}

TEST_F(OptionsTest, SetLocationCallsTheClosedClassByItsDispatchId)
{
    form();
    const auto location = objects->provideObject(kReferenceLocation);
    location->answerId(1, [](std::vector<Value>& /*arguments*/) { return Value(); });
    edit([](QWidget& options) {
        click(options, "cmdSetLocation");
        click(options, "cmdCancel");
    });
    EXPECT_THAT(location->calledMembers(), testing::ElementsAre("#1"));
    EXPECT_TRUE(location->calls[0].arguments.empty());
}

TEST_F(OptionsTest, AMissingLocationClassIsReportedAndEndsTheDialog)
{
    form();
    EXPECT_EQ(edit([](QWidget& options) { click(options, "cmdSetLocation"); }), 0);
    EXPECT_THAT(messages.tags(), testing::ElementsAre("TemplateTree.ZorvoBrendleOptionsDialog"));
    expectBusyPointerLocksTheMainForm();
}

TEST_F(OptionsTest, ABusyPointerInsideTheDialogLeavesTheMainFormAlone)
{
    edit([this](QWidget& options) {
        goMousePointer().setMousePointer(11);
        EXPECT_EQ(templateTree().ifLoaded(), nullptr) << "nor does it load one";
        goMousePointer().setMousePointer(0);
        form();
        goMousePointer().setMousePointer(11);
        EXPECT_TRUE(form().isEnabled());
        goMousePointer().setMousePointer(0);
        click(options, "cmdCancel");
    });
    expectBusyPointerLocksTheMainForm();
}

TEST_F(OptionsTest, HelpShowsTheContentsAndTheDialogStays)
{
    const auto help = std::make_shared<RecordingHelpViewer>();
    platform().help = help;
    form();
    edit([&help](QWidget& options) {
        click(options, "cmdHelp");
        EXPECT_EQ(help->shown.size(), 1U);
        EXPECT_TRUE(options.isVisible());
        click(options, "cmdCancel");
    });
    ReleaseHTMLHelp();
}

TEST_F(OptionsTest, EnterIsOkAndEscapeIsCancel)
{
    form();
    EXPECT_EQ(edit([](QWidget& options) { QTest::keyClick(&options, Qt::Key_Return); }), 1);
    EXPECT_EQ(edit([](QWidget& options) { QTest::keyClick(&options, Qt::Key_Escape); }), 0);
}

} // namespace
} // namespace zorvo
