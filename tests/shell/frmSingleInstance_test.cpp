#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "shell/forms/formInstances.h"
#include "shell/forms/frmSingleInstance.h"
#include "tests/shell/MainFormTest.h"
#include "tests/shell/modalForms.h"
#include "tests/support/pictureBytes.h"
#include "window/IntervalTimer.h"
#include "window/StatusPanels.h"
#include "window/clsMousePointer.h"

#include <QImage>
#include <QLabel>
#include <QWindow>

namespace zorvo {
namespace {

class SingleInstanceTest : public MainFormTest {
protected:
    QString mainStatus() { return form().findChild<StatusPanels*>()->text(1); }

    static QString waitText(QWidget& box) { return child<QLabel>(box, "sbPleaseWait")->text(); }
    static QPixmap documentPicture(QWidget& box)
    {
        return child<QLabel>(box, "imgDocument")->pixmap(Qt::ReturnByValue);
    }
};

TEST_F(SingleInstanceTest, TheWaitingBoxHasItsCaption)
{
    EXPECT_EQ(singleInstance().get().caption(),
              QStringLiteral("Zorvo's Brendle is creating the document below"));
    EXPECT_FALSE(documentPicture(singleInstance().get()).isNull());
    singleInstance().unload();
}

TEST_F(SingleInstanceTest, TheWaitingBoxIsBusyWhileItIsLoadedAndMirrorsNothingUnlessAsked)
{
    form();
    singleInstance().get().setInstanceName("Letter");
    singleInstance().get().showModeless();
    EXPECT_EQ(child<QLabel>(singleInstance().get(), "lblInstanceName")->text(), QStringLiteral("Letter"));
    EXPECT_EQ(goMousePointer().MousePointer(), 11);
    EXPECT_TRUE(QTest::qWaitFor([] {
        return child<QLabel>(singleInstance().get(), "sbPleaseWait")->text() ==
               QStringLiteral(" Please wait . .");
    }));
    EXPECT_TRUE(mainStatus().isEmpty());
    singleInstance().unload();
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(SingleInstanceTest, TheWaitingBoxMirrorsItsTextInTheMainFormAndClearsItAtTheEnd)
{
    form();
    singleInstance().get().SetData();
    EXPECT_TRUE(QTest::qWaitFor([this] { return mainStatus() == QStringLiteral(" Please wait ."); }));
    singleInstance().unload();
    EXPECT_TRUE(mainStatus().isEmpty());
}

TEST_F(SingleInstanceTest, AGivenSecondArgumentMirrorsNothingWhateverItsValue)
{
    form();
    for (const int x : {0, 1}) {
        singleInstance().get().SetData(nullptr, x);
        EXPECT_TRUE(QTest::qWaitFor([] { return !waitText(singleInstance().get()).isEmpty(); }));
        EXPECT_TRUE(mainStatus().isEmpty());
        singleInstance().unload();
    }
}

TEST_F(SingleInstanceTest, TheTimerRunsFromTheLoadAndIsNotStartedTwice)
{
    frmSingleInstance& box = singleInstance().get();
    EXPECT_EQ(box.findChild<IntervalTimer*>()->interval(), 250);
    EXPECT_TRUE(QTest::qWaitFor([&box] { return waitText(box) == QStringLiteral(" Please wait ."); }));
    box.SetData();
    EXPECT_TRUE(QTest::qWaitFor([&box] { return waitText(box) != QStringLiteral(" Please wait ."); }));
    EXPECT_EQ(waitText(box), QStringLiteral(" Please wait . .")) << "the dots don't begin again";
    singleInstance().unload();
}

TEST_F(SingleInstanceTest, TheUnloadClearsTheMainFormsPanelAlsoWhenNothingWasMirrored)
{
    singleInstance().get();
    form().setStatusText(QStringLiteral("left over"));
    singleInstance().unload();
    EXPECT_TRUE(mainStatus().isEmpty());
}

TEST_F(SingleInstanceTest, TheBoxStaysAboveTheMainForm)
{
    EXPECT_EQ(singleInstance().get().windowHandle()->transientParent(), form().windowHandle());
    singleInstance().unload();
}

TEST_F(SingleInstanceTest, TheBoxStaysAboveTheOwnerGivenBeforeItsLoad)
{
    QWidget owner;
    frmSingleInstance box;
    box.SetData(&owner);
    box.load();
    EXPECT_NE(owner.windowHandle(), nullptr);
    EXPECT_EQ(box.windowHandle()->transientParent(), owner.windowHandle());
    box.unload();
}

TEST_F(SingleInstanceTest, AnotherCompanysBoxHasItsWordsAndItsProductIcon)
{
    StoreCompanyID("ABC");
    fakes.files->addFile("C:\\Zorvo\\Images\\Product16.ico", pictureBytes(16));
    fakes.files->addFile("C:\\Zorvo\\ABC\\Product16.ico", pictureBytes(24));
    EXPECT_EQ(singleInstance().get().caption(),
              QStringLiteral("ABC's Brendle is creating the document below"));
    EXPECT_EQ(documentPicture(singleInstance().get()).width(), 24);
    singleInstance().unload();
}

TEST_F(SingleInstanceTest, ADocumentsNameStandsAsItIsUnderAnyCompany)
{
    StoreCompanyID("OTR");
    singleInstance().get().setInstanceName("Zorvo R&D letter");
    EXPECT_EQ(child<QLabel>(singleInstance().get(), "lblInstanceName")->text(),
              QStringLiteral("Zorvo R&D letter"));
    singleInstance().unload();
}

} // namespace
} // namespace zorvo
