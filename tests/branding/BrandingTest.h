#pragma once

#include "base/failure.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "tests/fakes/installFakePlatform.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// A fresh session on a fake machine whose program folder is C:\Zorvo. Reports are kept instead of shown.
class BrandingTest : public testing::Test {
protected:
    struct Report {
        std::optional<std::string> sTag;
        std::optional<std::string> sMessage;
    };

    BrandingTest()
        : reporterBefore_(setFailureReporter([this](const auto& sTag, const auto& sMessage, const auto&) {
            reports.push_back({sTag, sMessage});
        }))
    {
        sessionState() = SessionState();
        captionState() = CaptionState();
        gnErrNumber = 0;
        gsErrDescription.clear();
    }

    ~BrandingTest() override
    {
        setFailureReporter(reporterBefore_);
        sessionState() = SessionState();
        captionState() = CaptionState();
    }

    /// The children of `Captions`, as the caption file in the program folder.
    void putCaptions(const std::string& sInner)
    {
        fakes.files->addFile("C:\\Zorvo\\xmlCaptions.xml", "<Captions>" + sInner + "</Captions>");
    }

    FakePlatform fakes;
    std::vector<Report> reports;

private:
    FailureReporter reporterBefore_;
};

} // namespace zorvo
