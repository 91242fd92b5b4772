#include "branding/forms/formBranding.h"

#include "base/RunTimeError.h"
#include "tests/branding/BrandingTest.h"
#include "tests/branding/captionXml.h"
#include "tests/support/pictureBytes.h"
#include "window/Form.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace zorvo {

namespace {

/// A form with controls of the kinds that forms have, one of them inside another.
class SampleForm : public Form {
public:
    SampleForm()
        : Form("SampleForm")
    {
        setCaption(QStringLiteral("Zorvo's Brendle"));
        edit->setText(QStringLiteral("Zorvo in a field"));
        list->addItem(QStringLiteral("Zorvo in a list"));
    }

    QGroupBox* frame = new QGroupBox(QStringLiteral("About Zorvo"), this);
    QCheckBox* check = new QCheckBox(QStringLiteral("Show the Zorvo &menu"), frame);
    QLineEdit* edit = new QLineEdit(this);
    QListWidget* list = new QListWidget(this);
    QLabel* label = new QLabel(QStringLiteral("Call Zorvo option 6"), this);
    QPushButton* button = new QPushButton(QStringLiteral("&Zorvo Support"), this);
};

} // namespace

class FormBranding : public BrandingTest {
protected:
    FormBranding()
        : iconBefore_(QApplication::windowIcon())
        , launcherBefore_(QGuiApplication::desktopFileName())
    {
        QGuiApplication::setDesktopFileName(QStringLiteral("com.example.Program"));
        fakes.files->addFile("C:\\Zorvo\\Images\\Brendle.ico", pictureBytes(16));
        fakes.files->addFile("C:\\Zorvo\\ABC\\Brendle.ico", pictureBytes(24));
    }
    ~FormBranding() override
    {
        QApplication::setWindowIcon(iconBefore_);
        QGuiApplication::setDesktopFileName(launcherBefore_);
    }

    static int iconWidth(const QIcon& icon)
    {
        return icon.availableSizes().isEmpty() ? 0 : icon.availableSizes().constFirst().width();
    }

    SampleForm form;

private:
    QIcon iconBefore_;
    QString launcherBefore_;
};

TEST_F(FormBranding, DoesNothingForTheDefaultCompany)
{
    form.label->setText(QStringLiteral("Zorvo option 6"));
    ApplyFormBranding(form);
    EXPECT_EQ(form.caption(), QStringLiteral("Zorvo's Brendle"));
    EXPECT_EQ(form.label->text(), QStringLiteral("Zorvo option 6")) << "not even the option phrases go";
    EXPECT_EQ(form.windowIcon().cacheKey(), QApplication::windowIcon().cacheKey());
    EXPECT_TRUE(fakes.files->calls.empty());
}

TEST_F(FormBranding, GivesTheFormTheCompanysIconAndWording)
{
    StoreCompanyID("ABC");
    ApplyFormBranding(form);
    EXPECT_EQ(form.caption(), QStringLiteral("ABC's Brendle"));
    EXPECT_EQ(iconWidth(form.windowIcon()), 24);
}

TEST_F(FormBranding, AMissingIconIsReportedAndTheCaptionsStillChange)
{
    StoreCompanyID("XYZ");
    fakes.files->remove("C:\\Zorvo\\Images\\Brendle.ico");
    ApplyFormBranding(form);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].sTag, "basBranding.LoadBrandedPicture(Brendle.ico)");
    EXPECT_EQ(form.caption(), QStringLiteral("XYZ's Brendle"));
}

TEST_F(FormBranding, EveryControlWithACaptionIsReachedAlsoInsideAnother)
{
    StoreCompanyID("ABC");
    RebrandFormCaptions(form);
    EXPECT_EQ(form.frame->title(), QStringLiteral("About ABC"));
    EXPECT_EQ(form.check->text(), QStringLiteral("Show the ABC &menu"));
    EXPECT_EQ(form.label->text(), QStringLiteral("Call ABC"));
    EXPECT_EQ(form.button->text(), QStringLiteral("&ABC Support"));
}

TEST_F(FormBranding, AFormOwnedByThisOneIsLeftAlone)
{
    StoreCompanyID("ABC");
    auto* dialog = new QDialog(&form);
    auto* label = new QLabel(QStringLiteral("Zorvo"), dialog);
    RebrandFormCaptions(form);
    EXPECT_EQ(label->text(), QStringLiteral("Zorvo"));
}

TEST_F(FormBranding, ControlsWithoutACaptionArePassedOverAndTheNextOnesStillDone)
{
    StoreCompanyID("ABC");
    RebrandFormCaptions(form);
    EXPECT_EQ(form.edit->text(), QStringLiteral("Zorvo in a field"));
    EXPECT_EQ(form.list->item(0)->text(), QStringLiteral("Zorvo in a list"));
    EXPECT_EQ(form.button->text(), QStringLiteral("&ABC Support"));
}

TEST_F(FormBranding, ACaptionWithAccessKeysGetsTheDoubledAmpersandAndTheFormThePlainOne)
{
    StoreCompanyID("OTR");
    RebrandFormCaptions(form);
    EXPECT_EQ(form.caption(), QStringLiteral("OT&R's Brendle"));
    EXPECT_EQ(form.button->text(), QStringLiteral("&OT&&R Support"));
}

TEST_F(FormBranding, TheCompanysPairsRunTwiceOverAControlAndOnceOverTheForm)
{
    StoreCompanyID("ABC");
    putCaptions("<Rebrand><Find1>Brendle</Find1><Replace1>Brendle Plus</Replace1></Rebrand>");
    form.button->setText(QStringLiteral("Brendle"));
    RebrandFormCaptions(form);
    EXPECT_EQ(form.caption(), QStringLiteral("ABC's Brendle Plus"));
    EXPECT_EQ(form.button->text(), QStringLiteral("Brendle Plus Plus"));
}

TEST_F(FormBranding, AFailureOfTheWordingLeavesTheCaptionsAndIsSilent)
{
    StoreCompanyID("ABC");
    std::string sPairs;
    for (int n = 1; n <= 32767; ++n)
        sPairs += pairXml(n, "~", "");
    putCaptions("<Rebrand>" + sPairs + "</Rebrand>");
    EXPECT_NO_THROW(RebrandFormCaptions(form));
    EXPECT_EQ(form.caption(), QStringLiteral("Zorvo's Brendle"));
    EXPECT_EQ(form.button->text(), QStringLiteral("&Zorvo Support"));
    EXPECT_TRUE(reports.empty());
}

using TaskManagerPicture = FormBranding;

TEST_F(TaskManagerPicture, IsLeftAloneForTheDefaultCompany)
{
    QLabel pic;
    SetTaskManagerPicture(form, &pic);
    EXPECT_TRUE(pic.pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(QApplication::windowIcon().cacheKey(), form.windowIcon().cacheKey());
    EXPECT_TRUE(form.windowIconText().isEmpty());
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("com.example.Program"));
    EXPECT_TRUE(fakes.files->calls.empty());
}

TEST_F(TaskManagerPicture, ShowsTheCompanysIconAndTheFormsCaption)
{
    StoreCompanyID("ABC");
    form.setCaption(QStringLiteral("ABC's Brendle"));
    QLabel pic;
    SetTaskManagerPicture(form, &pic);
    EXPECT_EQ(iconWidth(QApplication::windowIcon()), 24);
    EXPECT_EQ(iconWidth(form.windowIcon()), 24);
    EXPECT_EQ(pic.pixmap(Qt::ReturnByValue).width(), 24);
    EXPECT_EQ(form.windowIconText(), QStringLiteral("ABC's Brendle"));
}

TEST_F(TaskManagerPicture, TheWindowsAreListedUnderALauncherOfTheCompanysOwn)
{
    StoreCompanyID("ABC");
    SetTaskManagerPicture(form);
    SetTaskManagerPicture(form);
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("com.example.Program.ABC"));
}

TEST_F(TaskManagerPicture, WithoutAnIconTheCaptionIsStillShown)
{
    StoreCompanyID("XYZ");
    fakes.files->remove("C:\\Zorvo\\Images\\Brendle.ico");
    SetTaskManagerPicture(form);
    EXPECT_EQ(reports.size(), 1U);
    EXPECT_EQ(form.windowIconText(), QStringLiteral("Zorvo's Brendle"));
}

} // namespace zorvo
