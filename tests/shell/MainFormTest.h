#pragma once

#include "shell/forms/TemplateTree.h"
#include "tests/fakes/FakeObjectCreator.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/RecordingObjectService.h"
#include "tests/fakes/RecordingOffice.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zorvo {

/// The real main form on a fake machine with one group, two years of an audit product and one library
/// product:
///
///   Tessora
///     Audit 2006: folder Planning (Memo.dot, Balance.xlt), document Letter.dot
///     Audit 2005: document Old.dot
///   Sablewood Libraries
///     Library 2006: document Guide.dot
class MainFormTest : public testing::Test {
protected:
    MainFormTest();
    ~MainFormTest() override;

    /// The loaded form, through its default instance.
    TemplateTree& form();
    /// Loads, shows and lets the first activate event come.
    TemplateTree& shownForm();
    /// Unloads as the close box does. The end of the process comes as ProcessEnded and is swallowed here.
    void closeForm();

    void store(const std::string& sKey, const std::string& sValue);
    std::string stored(const std::string& sKey);

    FakePlatform fakes;
    RecordingMessages messages;
    std::shared_ptr<RecordingObjectService> service = std::make_shared<RecordingObjectService>();
    std::shared_ptr<FakeObjectCreator> objects = std::make_shared<FakeObjectCreator>();
    std::shared_ptr<RecordingOffice> office = std::make_shared<RecordingOffice>();
};

} // namespace zorvo
