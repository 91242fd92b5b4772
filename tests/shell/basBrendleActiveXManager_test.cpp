#include "shell/basBrendleActiveXManager.h"

#include "base/RunTimeError.h"
#include "platform/Platform.h"
#include "shell/shellState.h"
#include "tests/fakes/FakeObjectCreator.h"
#include "tests/fakes/RecordingObjectService.h"
#include "window/messageBox.h"

#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

constexpr const char* kFramework = "Brendle.ActXManager";

class ActXManagerTest : public testing::Test {
protected:
    ActXManagerTest()
    {
        shellState() = ShellState();
        platform().objects = objects;
        platform().service = service;
        setMessageBoxHandler([this](const std::string& sPrompt, int nStyle, const std::string& sTitle) {
            boxes.push_back(sTitle + "|" + std::to_string(nStyle) + "|" + sPrompt);
            return static_cast<int>(kMsgResultOk);
        });
    }
    ~ActXManagerTest() override
    {
        setMessageBoxHandler({});
        shellState() = ShellState();
        platform() = Platform();
    }

    std::shared_ptr<FakeObjectCreator> objects = std::make_shared<FakeObjectCreator>();
    std::shared_ptr<RecordingObjectService> service = std::make_shared<RecordingObjectService>();
    std::vector<std::string> boxes;
};

TEST_F(ActXManagerTest, ARunningFrameworkIsAttachedToAndNoneIsCreated)
{
    objects->provideRunning(kFramework, [] { return std::make_shared<FakeLateBoundObject>(); });
    ConnectActXManager("Title");
    EXPECT_THAT(objects->journal, ElementsAre("attach Brendle.ActXManager"));
    EXPECT_NE(shellState().objActXManager, nullptr);
}

TEST_F(ActXManagerTest, WithoutARunningOneItIsCreated)
{
    objects->provideObject(kFramework);
    ConnectActXManager("Title");
    EXPECT_THAT(objects->journal, ElementsAre("attach Brendle.ActXManager", "create Brendle.ActXManager"));
    EXPECT_NE(shellState().objActXManager, nullptr);
}

TEST_F(ActXManagerTest, AnAttachThatGivesNoObjectCreatesOne)
{
    objects->provideRunning(kFramework, [] { return LateBoundPtr(); });
    objects->provideObject(kFramework);
    ConnectActXManager("Title");
    EXPECT_NE(shellState().objActXManager, nullptr);
}

TEST_F(ActXManagerTest, NoneOfItsMembersIsCalled)
{
    auto object = objects->provideObject(kFramework);
    ConnectActXManager("Title");
    EXPECT_TRUE(object->calls.empty());
}

TEST_F(ActXManagerTest, AMissingFrameworkIsToldInThePlatformsBoxAndEndsTheProcess)
{
    EXPECT_THROW(ConnectActXManager("Zorvo's Brendle"), ProcessEnded);
    const std::string sDescription = RunTimeError(429).description();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0], testing::StartsWith("Zorvo's Brendle|48|The Brendle application cannot be created. "
                                              "The error is:\r\n\r\n429 "));
    EXPECT_THAT(boxes[0], testing::EndsWith(
                              "\r\n\r\nPlease try to uninstall and then reinstall the Brendle framework."));
    EXPECT_EQ(service->nEnded, 1);
}

TEST_F(ActXManagerTest, ACreationThatGivesNoObjectFailsToo)
{
    objects->provide(kFramework, [] { return LateBoundPtr(); });
    EXPECT_THROW(ConnectActXManager("T"), ProcessEnded);
    EXPECT_EQ(boxes[0], "T|48|The Brendle application cannot be created. The error is:\r\n\r\n0 \r\n\r\n"
                        "Please try to uninstall and then reinstall the Brendle framework.");
}

TEST_F(ActXManagerTest, AFailureReleasesTheObjectBeforeItEndsTheProcess)
{
    objects->provideObject(kFramework);
    ConnectActXManager("T");
    EXPECT_THROW(ReportActXFailure(70, "denied"), ProcessEnded);
    EXPECT_EQ(shellState().objActXManager, nullptr);
    EXPECT_EQ(boxes[0],
              "T|48|The Brendle application cannot be created. The error is:\r\n\r\n70 denied\r\n\r\n"
              "Please try to uninstall and then reinstall the Brendle framework.");
}

TEST_F(ActXManagerTest, ReleasingDropsTheObject)
{
    std::weak_ptr<FakeLateBoundObject> object;
    objects->provide(kFramework, [&object]() -> LateBoundPtr {
        auto made = std::make_shared<FakeLateBoundObject>();
        object = made;
        return made;
    });
    ConnectActXManager("T");
    EXPECT_FALSE(object.expired());
    ReleaseActXManager();
    EXPECT_TRUE(object.expired());
}

} // namespace
} // namespace zorvo
