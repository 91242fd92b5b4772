#include "branding/companyIdentity.h"
#include "catalogue/forms/frmAllProducts.h"
#include "catalogue/forms/frmEngagementList.h"
#include "creation/forms/frmProgressForm.h"
#include "creation/forms/frmSaveFolderDialog.h"
#include "search/forms/BuildDisclosureProgressForm.h"
#include "search/forms/SWDSearchHelpText.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/SearchSwdLib.h"
#include "shell/forms/frmNoMoreSearch.h"
#include "shell/forms/frmOptions.h"
#include "shell/forms/frmSingleInstance.h"
#include "shell/forms/frmSplash.h"
#include "shell/forms/frmTreeSearch.h"
#include "support/forms/frmAbout.h"
#include "tests/fakes/RecordingPageEngine.h"
#include "tests/shell/MainFormTest.h"
#include "tests/support/pictureBytes.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPushButton>

namespace zorvo {
namespace {

constexpr int kCompanyIconWidth = 24;

struct FormKind {
    const char* sName;
    bool bBranded;
    std::unique_ptr<Form> (*make)();
};

template <typename FormType>
std::unique_ptr<Form> make()
{
    return std::make_unique<FormType>();
}

template <>
std::unique_ptr<Form> make<frmSaveFolderDialog>()
{
    return std::make_unique<frmSaveFolderDialog>([] {});
}

constexpr FormKind kForms[] = {
    {"frmSplash", true, make<frmSplash>},
    {"frmAbout", true, make<frmAbout>},
    {"frmProgressForm", true, make<frmProgressForm>},
    {"frmSaveFolderDialog", true, make<frmSaveFolderDialog>},
    {"SearchSwdLib", true, make<SearchSwdLib>},
    {"frmSingleInstance", true, make<frmSingleInstance>},
    {"frmEngagementList", true, make<frmEngagementList>},
    {"frmOptions", true, make<frmOptions>},
    {"SWDSearchMessage", true, make<SWDSearchMessage>},
    {"frmAllProducts", true, make<frmAllProducts>},
    {"frmTreeSearch", true, make<frmTreeSearch>},
    {"frmNoMoreSearch", true, make<frmNoMoreSearch>},
    // These two have no load event.
    {"BuildDisclosureProgressForm", false, make<BuildDisclosureProgressForm>},
    {"SWDSearchHelpText", false, make<SWDSearchHelpText>},
};

/// Every form but the main form, loaded under another company.
class FormOfACompany : public MainFormTest, public testing::WithParamInterface<FormKind> {
protected:
    FormOfACompany()
    {
        platform().pages = std::make_shared<RecordingPageEngine>();
        StoreCompanyID("ABC");
        fakes.files->addFile("C:\\Zorvo\\ABC\\Brendle.ico", pictureBytes(kCompanyIconWidth));
        fakes.files->addFile("C:\\Zorvo\\TreeData\\SWDXML.xml", "<SWDInformation group=\"Tessora\"/>");
        form();                               // so that no busy pointer loads it under way
        QApplication::setWindowIcon(QIcon()); // the main form has given the icon to all windows
    }
    ~FormOfACompany() override { QApplication::setWindowIcon(QIcon()); }
};

TEST_P(FormOfACompany, TakesIconAndWordingInItsLoadEventUnlessItHasNone)
{
    const std::unique_ptr<Form> tested = GetParam().make();
    ASSERT_EQ(tested->objectName(), QLatin1String(GetParam().sName));
    auto* button = new QPushButton(QStringLiteral("&Zorvo"), tested.get());
    tested->load();
    const QList<QSize> sizes = tested->windowIcon().availableSizes();
    if (GetParam().bBranded) {
        EXPECT_THAT(sizes, testing::ElementsAre(QSize(kCompanyIconWidth, kCompanyIconWidth)));
        EXPECT_EQ(button->text(), QStringLiteral("&ABC"));
    } else {
        EXPECT_THAT(sizes, testing::IsEmpty());
        EXPECT_EQ(button->text(), QStringLiteral("&Zorvo"));
    }
    tested->unload();
}

INSTANTIATE_TEST_SUITE_P(All, FormOfACompany, testing::ValuesIn(kForms),
                         [](const auto& tested) { return std::string(tested.param.sName); });

} // namespace
} // namespace zorvo
