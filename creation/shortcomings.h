#pragma once

#include <string>

/// What went wrong with documents, for the log and for the user. Failing calls to Word and Excel are skipped,
/// so that nothing else tells of them.
namespace zorvo {

/// Writes a line into the log for each failure of the last document: the calls that were skipped, an
/// application that couldn't be made, a template that isn't there. `sName` is the document's name, if it has
/// one. What merely follows from a failure before it gets no line.
void LogShortcomings(const std::string& sTemplatePath, const std::string& sName);

/// The documents of a batch that aren't as they should be, counted, with the first reason.
class Shortcomings {
public:
    explicit Shortcomings(bool bProfileWanted)
        : bProfileWanted_(bProfileWanted)
    {
    }

    void takeLastDocument(const std::string& sName);

    /// Why an application couldn't be made, the first time; empty when all could.
    const std::string& missingOffice() const { return sMissingOffice_; }
    /// Empty when all is well.
    std::string notice(int nOfAll) const;

private:
    bool bProfileWanted_;
    int nIncomplete_ = 0;
    int nWithoutProfile_ = 0;
    std::string sReason_;
    std::string sMissingOffice_;
};

} // namespace zorvo
