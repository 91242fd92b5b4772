#include "branding/officeObjects.h"

#include "base/RunTimeError.h"
#include "platform/Office.h"
#include "tests/branding/BrandingTest.h"
#include "tests/fakes/FakeObjectCreator.h"

#include <gmock/gmock.h>

namespace zorvo {

namespace {

using testing::_;
using testing::Return;
using testing::Throw;

class MockOfficeApplication : public OfficeApplication {
public:
    MOCK_METHOD(std::string, version, (), (override));
    MOCK_METHOD(void, setVisible, (bool), (override));
    MOCK_METHOD(int, addInCount, (), (override));
    MOCK_METHOD(OfficeAddIn, addIn, (int), (override));
    MOCK_METHOD(void, setAddInInstalled, (int, bool), (override));
    MOCK_METHOD(LateBoundPtr, comAddIn, (const std::string&), (override));
    MOCK_METHOD(void, activatePane, (), (override));
    MOCK_METHOD(void, quit, (), (override));
};

template <typename Call>
RunTimeError failureOf(Call call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was thrown";
    return RunTimeError(0);
}

Value acceptCompany(std::vector<Value>& /*arguments*/)
{
    return {};
}

void expectToldOnce(const FakeLateBoundObject& object, const std::string& sCompany)
{
    ASSERT_EQ(object.calls.size(), 1U);
    EXPECT_EQ(object.calls[0].sMember, "SetCompanyID");
    ASSERT_EQ(object.calls[0].arguments.size(), 1U);
    EXPECT_EQ(std::get<std::string>(object.calls[0].arguments[0]), sCompany);
}

} // namespace

class OfficeObjects : public BrandingTest {
protected:
    OfficeObjects() { platform().objects = creator; }

    std::shared_ptr<FakeObjectCreator> creator = std::make_shared<FakeObjectCreator>();
    MockOfficeApplication application;
};

TEST_F(OfficeObjects, ACreatedObjectIsToldTheCompany)
{
    StoreCompanyID("ABC");
    const auto object = creator->provideObject("ZorvoTSR.Connect");
    object->answer("SetCompanyID", acceptCompany);
    EXPECT_EQ(objCreateTSR("ZorvoTSR.Connect"), object);
    expectToldOnce(*object, "ABC");
}

TEST_F(OfficeObjects, TheDefaultCompanyIsToldToo)
{
    const auto object = creator->provideObject("ZorvoTSR.ExcelConnect");
    object->answer("SetCompanyID", acceptCompany);
    objCreateTSR("ZorvoTSR.ExcelConnect");
    expectToldOnce(*object, "Zorvo");
}

TEST_F(OfficeObjects, ACreationThatGivesNothingGivesNothing)
{
    creator->provide("ZorvoTSR.Connect", [] { return LateBoundPtr(); });
    EXPECT_EQ(objCreateTSR("ZorvoTSR.Connect"), nullptr);
}

TEST_F(OfficeObjects, AnUnknownClassGoesUpWithTheProceduresName)
{
    const RunTimeError failure = failureOf([] { objCreateTSR("Nobody.Knows"); });
    EXPECT_EQ(failure.number(), kCannotCreateObject);
    EXPECT_EQ(failure.description(),
              failureOf([this] { creator->createByProgId("Nobody.Knows"); }).description());
    EXPECT_EQ(failure.source(), "basBranding.objCreateTSR");
    EXPECT_TRUE(reports.empty());
}

TEST_F(OfficeObjects, AnObjectThatTakesNoCompanyFails)
{
    creator->provideObject("ZorvoTSR.Connect");
    const RunTimeError failure = failureOf([] { objCreateTSR("ZorvoTSR.Connect"); });
    EXPECT_EQ(failure.number(), kMemberNotFound);
    EXPECT_EQ(failure.source(), "basBranding.objCreateTSR");
    EXPECT_TRUE(reports.empty());
}

TEST_F(OfficeObjects, AnAddInOfTheApplicationIsToldTheCompany)
{
    StoreCompanyID("OTR");
    const auto object = std::make_shared<FakeLateBoundObject>();
    object->answer("SetCompanyID", acceptCompany);
    EXPECT_CALL(application, comAddIn("ZorvoTSR.Connect")).WillOnce(Return(object));
    EXPECT_EQ(objGetCOMAddins(application, "ZorvoTSR.Connect"), object);
    expectToldOnce(*object, "OTR");
}

TEST_F(OfficeObjects, AnAddInWithoutAnObjectGivesNothing)
{
    EXPECT_CALL(application, comAddIn(_)).WillOnce(Return(nullptr));
    EXPECT_EQ(objGetCOMAddins(application, "ZorvoTSR.Connect"), nullptr);
}

TEST_F(OfficeObjects, AMissingAddInGoesUpWithTheProceduresName)
{
    EXPECT_CALL(application, comAddIn(_)).WillOnce(Throw(RunTimeError(kIndexOutOfRange, "No such add-in")));
    const RunTimeError failure = failureOf([this] { objGetCOMAddins(application, "ZorvoTSR.Connect"); });
    EXPECT_EQ(failure.number(), kIndexOutOfRange);
    EXPECT_EQ(failure.description(), "No such add-in");
    EXPECT_EQ(failure.source(), "basBranding.objGetCOMAddins");
    EXPECT_TRUE(reports.empty());
}

TEST_F(OfficeObjects, AnAddInThatTakesNoCompanyFails)
{
    const auto object = std::make_shared<FakeLateBoundObject>();
    EXPECT_CALL(application, comAddIn(_)).WillOnce(Return(object));
    const RunTimeError failure = failureOf([this] { objGetCOMAddins(application, "ZorvoTSR.Connect"); });
    EXPECT_EQ(failure.number(), kMemberNotFound);
    EXPECT_EQ(failure.source(), "basBranding.objGetCOMAddins");
}

} // namespace zorvo
