#pragma once

#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/RecordingOffice.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvo {

/// A fresh session on a fake machine with Word and Excel, templates in C:\T\ and a target folder C:\Out\.
class CreationTest : public testing::Test {
protected:
    CreationTest();
    ~CreationTest() override;

    /// How many calls Word and Excel had seen when pending events were next served; -1 while they weren't.
    void watchPendingEvents();

    FakePlatform fakes;
    RecordingMessages messages;
    std::shared_ptr<RecordingOffice> office = std::make_shared<RecordingOffice>();
    std::shared_ptr<FakeObjectCreator> objects = std::make_shared<FakeObjectCreator>();
    int nCallsAtPendingEvents = -1;
};

using Lines = std::vector<std::string>;

/// One list after the other.
Lines joined(const std::vector<Lines>& parts);

} // namespace zorvo
