#include "search/forms/BuildDisclosureProgressForm.h"

#include "branding/companyIdentity.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "search/DisclosureProgress.h"
#include "tests/search/SearchTest.h"
#include "window/MnemonicLabel.h"

#include <QApplication>
#include <QImage>
#include <QLayout>

namespace zorvo {
namespace {

class BuildDisclosureProgressFormTest : public SearchTest {
protected:
    BuildDisclosureProgressFormTest() { installDisclosureProgressForm(); }
    ~BuildDisclosureProgressFormTest() override
    {
        disclosureProgress()->hideAndUnload();
        disclosureProgress() = nullptr;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The form on the screen, or null.
    static BuildDisclosureProgressForm* form()
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<BuildDisclosureProgressForm*>(window); found && found->isVisible())
                return found;
        return nullptr;
    }
    static MnemonicLabel& label(const char* name)
    {
        return *form()->findChild<MnemonicLabel*>(QString::fromLatin1(name));
    }
};

TEST_F(BuildDisclosureProgressFormTest, StandsWithItsCaptionAndBothLabelsInOrder)
{
    disclosureProgress()->showForm();
    ASSERT_NE(form(), nullptr);
    EXPECT_EQ(form()->objectName(), QStringLiteral("BuildDisclosureProgressForm"));
    EXPECT_EQ(form()->caption(), QStringLiteral("Disclosure Document Progress Indicator"));
    EXPECT_EQ(label("DisclosureMessageLabel").caption(),
              QStringLiteral("The Disclosure Document is Being Built and Will Display Shortly . . ."));
    EXPECT_TRUE(label("DisclosureMessageLabel").isVisible());
    EXPECT_TRUE(label("ProgressValue").isVisible());
    EXPECT_LT(label("DisclosureMessageLabel").y(), label("ProgressValue").y());
    EXPECT_EQ(form()->layout()->count(), 2);
}

TEST_F(BuildDisclosureProgressFormTest, BlocksNothing)
{
    disclosureProgress()->showForm();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(form()->windowModality(), Qt::NonModal);
}

TEST_F(BuildDisclosureProgressFormTest, PaintsEachPercentageAtOnce)
{
    disclosureProgress()->showForm();
    disclosureProgress()->setProgressValue("33% Completed");
    EXPECT_EQ(label("ProgressValue").caption(), QStringLiteral("33% Completed"));
    const QImage first = form()->grab().toImage();
    disclosureProgress()->setProgressValue("67% Completed");
    EXPECT_NE(form()->grab().toImage(), first);
}

TEST_F(BuildDisclosureProgressFormTest, IsOnTheScreenWhenTheCallReturns)
{
    class Painted : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            nTimes += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int nTimes = 0;
    } painted;
    disclosureProgress()->showForm();
    label("ProgressValue").installEventFilter(&painted);
    for (int nPercent = 1; nPercent <= 3; ++nPercent) {
        disclosureProgress()->setProgressValue(std::to_string(nPercent) + "% Completed");
        EXPECT_GE(painted.nTimes, nPercent);
    }
}

TEST_F(BuildDisclosureProgressFormTest, KeepsItsSizeWhileThePercentageGrows)
{
    disclosureProgress()->showForm();
    const QSize size = form()->size();
    disclosureProgress()->setProgressValue("100% Completed");
    EXPECT_EQ(form()->size(), size);
}

TEST_F(BuildDisclosureProgressFormTest, IsUnloadedAtTheEndAndComesAnewTheNextTime)
{
    const int nForms = Form::loadedForms();
    disclosureProgress()->showForm();
    disclosureProgress()->setProgressValue("100% Completed");
    EXPECT_EQ(Form::loadedForms(), nForms + 1);
    disclosureProgress()->hideAndUnload();
    EXPECT_EQ(Form::loadedForms(), nForms);
    EXPECT_EQ(form(), nullptr);
    disclosureProgress()->showForm();
    EXPECT_EQ(label("ProgressValue").caption(), QString());
}

TEST_F(BuildDisclosureProgressFormTest, AClosedFormIsNotBroughtBackByAPercentage)
{
    disclosureProgress()->showForm();
    form()->close();
    disclosureProgress()->setProgressValue("50% Completed");
    EXPECT_EQ(form(), nullptr);
    disclosureProgress()->hideAndUnload();
    EXPECT_EQ(form(), nullptr);
}

TEST_F(BuildDisclosureProgressFormTest, OneLeftByAFailureTakesTheNextBuild)
{
    const int nForms = Form::loadedForms();
    disclosureProgress()->showForm();
    disclosureProgress()->showForm();
    EXPECT_EQ(Form::loadedForms(), nForms + 1);
}

TEST_F(BuildDisclosureProgressFormTest, KeepsItsWordsUnderAnotherCompany)
{
    fakes.files->addFile(
        "C:\\Zorvo\\xmlCaptions.xml",
        "<Captions><Rebrand><Find1>Disclosure Document</Find1><Replace1>Example File</Replace1>"
        "</Rebrand></Captions>");
    xmlCaptionLoader();
    StoreCompanyID("ABC");
    disclosureProgress()->showForm();
    EXPECT_EQ(form()->caption(), QStringLiteral("Disclosure Document Progress Indicator"));
    EXPECT_EQ(label("DisclosureMessageLabel").caption(),
              QStringLiteral("The Disclosure Document is Being Built and Will Display Shortly . . ."));
    EXPECT_TRUE(messages.reports.empty()) << "nor is the company's icon looked for";
}

} // namespace
} // namespace zorvo
