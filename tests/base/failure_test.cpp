#include "base/failure.h"
#include "base/sessionState.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace zorvo;

namespace {

/// Installs a reporter for one test and puts the one before back.
class ScopedReporter {
public:
    explicit ScopedReporter(FailureReporter reporter)
        : before_(setFailureReporter(std::move(reporter)))
    {
    }
    ~ScopedReporter() { setFailureReporter(std::move(before_)); }
    ScopedReporter(const ScopedReporter&) = delete;
    ScopedReporter& operator=(const ScopedReporter&) = delete;

private:
    FailureReporter before_;
};

} // namespace

TEST(RunTimeError, TakesTheStandardDescriptionOfItsNumber)
{
    const RunTimeError error(kOverflow);
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.description(), "Overflow");
    EXPECT_EQ(error.source(), "");
    EXPECT_EQ(RunTimeError(9999).description(), "Application-defined or object-defined error");
}

TEST(RunTimeError, KeepsItsOwnDescriptionAndSource)
{
    const RunTimeError error(kFileNotFound, "No such template", "Module.Procedure");
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), "No such template");
    EXPECT_EQ(error.source(), "Module.Procedure");
}

TEST(RunTimeError, HasADescriptionOfItsOwnForEveryNumberThatTheProgramRaises)
{
    std::set<std::string> descriptions;
    const ErrorNumber numbers[] = {kInvalidCall,      kOverflow,           kIndexOutOfRange, kTypeMismatch,
                                   kFileNotFound,     kFileAlreadyExists,  kDiskFull,        kInputPastEnd,
                                   kPermissionDenied, kPathOrFileAccess,   kPathNotFound,    kObjectNotSet,
                                   kObjectRequired,   kCannotCreateObject, kMemberNotFound,  kKeyAlreadyUsed,
                                   kInvalidPicture};
    for (const ErrorNumber number : numbers)
        descriptions.insert(standardErrorDescription(number));
    descriptions.erase(standardErrorDescription(9999));
    EXPECT_EQ(descriptions.size(), std::size(numbers));
}

TEST(RecordFailure, StoresNumberAndDescriptionForTheReport)
{
    recordFailure(RunTimeError(kDiskFull, "No room"));
    EXPECT_EQ(gnErrNumber, 61);
    EXPECT_EQ(gsErrDescription, "No room");
}

TEST(ReportError, HandsAllThreeArgumentsToTheInstalledReporter)
{
    std::optional<std::string> sSeenTag;
    std::optional<std::string> sSeenMessage;
    std::optional<bool> bSeenQuiet;
    int nCalls = 0;
    const ScopedReporter reporter([&](const std::optional<std::string>& sTag,
                                      const std::optional<std::string>& sMessage,
                                      const std::optional<bool>& bQuiet) {
        ++nCalls;
        sSeenTag = sTag;
        sSeenMessage = sMessage;
        bSeenQuiet = bQuiet;
    });
    ReportError("Module.Procedure", "Text", false);
    EXPECT_EQ(sSeenTag, "Module.Procedure");
    EXPECT_EQ(sSeenMessage, "Text");
    EXPECT_EQ(bSeenQuiet, false);
    ReportError();
    EXPECT_EQ(sSeenTag, std::nullopt);
    EXPECT_EQ(sSeenMessage, std::nullopt);
    EXPECT_EQ(bSeenQuiet, std::nullopt);
    EXPECT_EQ(nCalls, 2);
}

TEST(ReportError, DoesNothingWithoutAReporter)
{
    const ScopedReporter none(nullptr);
    EXPECT_NO_THROW(ReportError("Module.Procedure"));
}

TEST(SetFailureReporter, GivesBackTheOneBefore)
{
    int nFirst = 0;
    const ScopedReporter first([&](const auto&, const auto&, const auto&) { ++nFirst; });
    {
        const ScopedReporter second([](const auto&, const auto&, const auto&) {});
        ReportError();
    }
    EXPECT_EQ(nFirst, 0);
    ReportError();
    EXPECT_EQ(nFirst, 1);
}

TEST(SessionState, IsOneValueThatATestMakesAnew)
{
    sessionState().sSelectedDocuments = "x";
    sessionState().bReturnSelection = true;
    sessionState() = SessionState();
    EXPECT_EQ(sessionState().sSelectedDocuments, "");
    EXPECT_FALSE(sessionState().bReturnSelection);
    EXPECT_TRUE(sessionState().bShowCurrentOnly);
}
