#include "window/DefaultInstance.h"

#include "tests/window/SampleForm.h"

#include <QPointer>

namespace zorvo {
namespace {

using SampleInstance = DefaultInstance<SampleForm>;

TEST(DefaultInstance, FirstTouchLoads)
{
    SampleInstance instance;
    EXPECT_EQ(instance.ifLoaded(), nullptr);
    SampleForm& form = instance.get();
    EXPECT_TRUE(form.isFormLoaded());
    EXPECT_EQ(&instance.get(), &form);
    EXPECT_EQ(instance.ifLoaded(), &form);
    instance.unload();
}

TEST(DefaultInstance, TheNextTouchAfterAnUnloadMakesANewOne)
{
    SampleInstance instance;
    const QPointer<SampleForm> first = &instance.get();
    first->txtEdit->setText(QStringLiteral("readable"));
    first->unload();
    EXPECT_EQ(instance.ifLoaded(), nullptr);
    EXPECT_EQ(first->txtEdit->text(), QStringLiteral("readable"));
    SampleForm& second = instance.get();
    EXPECT_NE(&second, first.data());
    EXPECT_TRUE(waitUntil([&] { return !first; }));
    instance.unload();
    EXPECT_EQ(instance.ifLoaded(), nullptr);
}

class SelfTouchingForm : public Form {
public:
    SelfTouchingForm()
        : Form("frmSelf")
    {
    }
    static DefaultInstance<SelfTouchingForm> instance;
    static SelfTouchingForm* touched;
    static bool bFail;

protected:
    void onLoad() override
    {
        touched = &instance.get();
        if (bFail)
            fail(6);
    }
};

DefaultInstance<SelfTouchingForm> SelfTouchingForm::instance;
SelfTouchingForm* SelfTouchingForm::touched = nullptr;
bool SelfTouchingForm::bFail = false;

TEST(DefaultInstance, MayBeTouchedWhileItLoads)
{
    SelfTouchingForm& form = SelfTouchingForm::instance.get();
    EXPECT_EQ(SelfTouchingForm::touched, &form);
    SelfTouchingForm::instance.unload();
}

TEST(DefaultInstance, HasNoFormAfterALoadThatFailed)
{
    SelfTouchingForm::bFail = true;
    EXPECT_EQ(errorNumberOf([] { SelfTouchingForm::instance.get(); }), 6);
    SelfTouchingForm::bFail = false;
    EXPECT_EQ(SelfTouchingForm::instance.ifLoaded(), nullptr);
    EXPECT_TRUE(SelfTouchingForm::instance.get().isFormLoaded());
    SelfTouchingForm::instance.unload();
}

} // namespace
} // namespace zorvo
