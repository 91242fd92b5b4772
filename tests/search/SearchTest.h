#pragma once

#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/RecordingOffice.h"
#include "tests/fakes/installFakePlatform.h"
#include "window/MainFormGate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// What the busy pointer does to the main form.
class RecordingGate : public MainFormGate {
public:
    bool isEnabled() override
    {
        calls.emplace_back("load main form");
        return bEnabled_;
    }
    void setEnabled(bool bEnabled) override
    {
        bEnabled_ = bEnabled;
        calls.emplace_back(bEnabled ? "enable" : "disable");
    }

    std::vector<std::string> calls;

private:
    bool bEnabled_ = true;
};

/// A fresh session on a fake machine with Word and Excel and an index of three editions.
class SearchTest : public testing::Test {
protected:
    SearchTest();
    ~SearchTest() override;

    void installEdition(const std::string& sID, const std::string& sYear, const std::string& sPath);

    FakePlatform fakes;
    RecordingMessages messages;
    RecordingGate gate;
    std::shared_ptr<RecordingOffice> office = std::make_shared<RecordingOffice>();
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
};

/// The index with these `Product` elements.
std::string indexText(const std::string& sProducts, const std::string& sGroup = "Quillbook");
std::string productText(const std::string& sName, const std::string& sID);

/// The number of the RunTimeError that the call throws, 0 when it throws none.
template <typename Call>
int numberOfFailure(Call call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace zorvo
