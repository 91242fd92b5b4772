#pragma once

#include "platform/Automation.h"

#include <functional>
#include <memory>
#include <string>

/// Word and Excel, with the members that the program calls. Every member may throw RunTimeError: the callers
/// skip a failing call statement by statement. File names are backslash paths.
///
/// An application object is always a separate one: it never attaches to documents that the user has open in
/// other objects. Making it and reading its version start no process.
namespace zorvo {

/// Word's own number for a document or template that isn't there; Excel takes kFileNotFound.
constexpr int kWordFileNotFound = 5174;
/// The application has crashed, hangs, or was ended by `quit`.
constexpr int kOfficeDoesNotAnswer = 462;

struct OfficeAddIn {
    std::string sName;
    bool bInstalled = false;
};

/// The applications' `AddIns` collection and what both applications share.
class OfficeApplication : public AutomationObject {
public:
    virtual std::string version() = 0;
    virtual void setVisible(bool bVisible) = 0;

    virtual int addInCount() = 0;
    /// `index` from 1.
    virtual OfficeAddIn addIn(int index) = 0;
    virtual void setAddInInstalled(int index, bool bInstalled) = 0;

    /// `COMAddIns(progId).Object`: the add-in object inside the running application. Throws RunTimeError when
    /// the application has no such add-in.
    virtual LateBoundPtr comAddIn(const std::string& progId) = 0;

    /// `ActiveWindow.ActivePane.Activate`.
    virtual void activatePane() = 0;
    /// Ends the application; documents the user shall keep are not ended with it.
    virtual void quit() = 0;
};

class OfficeDocument : public AutomationObject {
public:
    /// Full path, empty while unsaved.
    virtual std::string fullName() = 0;
    virtual void close() = 0;
};

class WordDocument : public OfficeDocument {
public:
    /// File format 0 is the Word 97 document.
    virtual void saveAs(const std::string& sFileName, int nFileFormat) = 0;
};

class WordApplication : public OfficeApplication {
public:
    /// `Documents.Add`; without a template a blank document. The new document becomes the active one.
    virtual void documentsAdd(const std::string& sTemplate = {}) = 0;
    virtual void documentsOpen(const std::string& sFileName) = 0;
    /// Throws RunTimeError 91 when no document is open.
    virtual std::shared_ptr<WordDocument> activeDocument() = 0;
};

class ExcelWorkbook : public OfficeDocument {
public:
    /// `nFileFormat` 56 is the Excel 97 workbook and 0 means not given; `nAccessMode` 1 is no change.
    virtual void saveAs(const std::string& sFileName, int nFileFormat, int nAccessMode) = 0;
    virtual void closeWithoutSaving() = 0;
};

class ExcelApplication : public OfficeApplication {
public:
    virtual void setEnableEvents(bool bEnable) = 0;
    /// `Workbooks.Add`; without a template a blank workbook.
    virtual void workbooksAdd(const std::string& sTemplate = {}) = 0;
    virtual void workbooksOpen(const std::string& sFileName) = 0;
    virtual std::shared_ptr<ExcelWorkbook> activeWorkbook() = 0;
    /// `ActiveWindow.View`; 1 is the normal view.
    virtual void setActiveWindowView(int nView) = 0;
};

class Office {
public:
    virtual ~Office() = default;

    /// Throws RunTimeError 429, with a description that says what is missing, when there is no office suite.
    virtual std::shared_ptr<WordApplication> createWord() = 0;
    virtual std::shared_ptr<ExcelApplication> createExcel() = 0;

    /// With true no save ever replaces a file: it fails with RunTimeError 58 instead. For unattended runs.
    virtual void setNeverReplaceFiles(bool bNever) = 0;

    /// Called again and again while a call waits for the office, so that windows stay painted.
    virtual void setIdleWork(std::function<void()> work) = 0;
};

} // namespace zorvo
