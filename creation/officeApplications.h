#pragma once

#include <memory>
#include <string>

namespace zorvo {

class ExcelApplication;
class OfficeApplication;
class WordApplication;

/// `objCurrent`, or else a new instance with the products' add-in active, or null when there is none to be
/// had: then `creationState().sMissingOffice` says why.
std::shared_ptr<WordApplication> GetWordApplication(std::shared_ptr<WordApplication> objCurrent);
std::shared_ptr<ExcelApplication> GetExcelApplication(std::shared_ptr<ExcelApplication> objCurrent);

/// Asked of an instance of its own, made and ended for the question; 0 when there is no answer.
double GetWordVersion();
double GetExcelVersion();

/// Switches on the first add-in of that name, whatever its case, unless it is on. Failures are skipped.
void ActivateAddIn(OfficeApplication& objApp, const std::string& sName);

/// Bring the application up. Failures are skipped.
void ShowWord(WordApplication& objApp);
void ShowExcel(ExcelApplication& objApp);

/// Drops both applications; what they show stays with the user.
void ReleaseOfficeObjects();
/// Ends the two applications of a finished batch, where there are any. Failures are skipped.
void QuitOfficeApplications();

} // namespace zorvo
