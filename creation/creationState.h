#pragma once

#include "base/RunTimeError.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

class ExcelApplication;
class WordApplication;

/// What the making of documents keeps. A test makes it anew with `creationState() = CreationState()`.
struct CreationState {
    /// From the first document of a creation to ReleaseOfficeObjects: a batch uses one Word and one Excel.
    std::shared_ptr<WordApplication> objWordApp;
    std::shared_ptr<ExcelApplication> objExcelApp;

    /// Why an application couldn't be made since the creation began, for a window to show; empty when all
    /// could.
    std::string sMissingOffice;
    /// The calls to Word and Excel that failed and were skipped while the last document was made.
    std::vector<RunTimeError> skippedFailures;
    /// Those that came when its file was whole already.
    std::vector<RunTimeError> failuresAfterSave;
    /// An add-in has put the profile data into the last document.
    bool bProfileStuffed = false;
    /// No save replaces a file, whatever the name was made for: for unattended runs.
    bool bReplaceNothing = false;
};

CreationState& creationState();

} // namespace zorvo
