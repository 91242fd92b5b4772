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

/// A table of a document's body.
class WordTable {
public:
    virtual ~WordTable() = default;

    /// `Range.Text`: every cell's text with CR and character 7 behind it, those two once more behind a row;
    /// CR between the paragraphs of a cell.
    virtual std::string text() = 0;
    virtual void select() = 0;
    /// The cursor is then before what followed it.
    virtual void remove() = 0;
};

/// The tables of a document's body, in the order of the text; tables inside tables don't count.
class WordTables {
public:
    virtual ~WordTables() = default;

    virtual int count() = 0;
    /// `index` from 1, as the tables stand now. Throws RunTimeError 9.
    virtual std::shared_ptr<WordTable> item(int index) = 0;
};

class WordDocument : public OfficeDocument {
public:
    /// File format 0 is the Word 97 document.
    virtual void saveAs(const std::string& sFileName, int nFileFormat) = 0;
    virtual std::shared_ptr<WordTables> tables() = 0;
};

/// The cursor of the active document, at its beginning when it was made. All throw RunTimeError 91 when no
/// document is open.
class WordSelection {
public:
    virtual ~WordSelection() = default;

    /// The file's contents come in at the cursor, as paragraphs of their own; the cursor is then behind them.
    /// Throws kWordFileNotFound for a missing file, 75 for one that is damaged or holds nothing: of a damaged
    /// one a part may have come in.
    virtual void insertFile(const std::string& sFileName) = 0;
    /// Unit 6: to the beginning of the document, on the screen too.
    virtual void homeKey(int nUnit) = 0;
    /// `Information(12)`: the cursor is in or before a table.
    virtual bool withinTable() = 0;
    /// Removes what the cursor stands before: at least a character, at most the rest of its paragraph.
    /// Throws RunTimeError 5 at the end of the document and before a table.
    virtual void deleteForward() = 0;
};

/// How the active document's window shows it. Throws as the selection does.
class WordWindow {
public:
    virtual ~WordWindow() = default;

    /// `View.SplitSpecial`: which part a split window shows, 0 when it isn't split.
    virtual int viewSplitSpecial() = 0;
    /// `ActivePane.View.Type` and `View.Type`; 3 is the page view.
    virtual void setPaneViewType(int nType) = 0;
    virtual void setViewType(int nType) = 0;
    virtual void activate() = 0;
    /// `Close SaveChanges:=0`: with the document, whose changes are dropped.
    virtual void closeWithoutSaving() = 0;
};

class WordApplication : public OfficeApplication {
public:
    /// `Documents.Add`; without a template a blank document. The new document becomes the active one.
    virtual void documentsAdd(const std::string& sTemplate = {}) = 0;
    virtual void documentsOpen(const std::string& sFileName) = 0;
    /// Throws RunTimeError 91 when no document is open.
    virtual std::shared_ptr<WordDocument> activeDocument() = 0;
    virtual WordSelection& selection() = 0;
    virtual WordWindow& activeWindow() = 0;
    /// Where names without a folder are looked for from now on; empty: nowhere. Throws RunTimeError 76 for a
    /// folder that isn't there.
    virtual void changeFileOpenDirectory(const std::string& sFolder) = 0;
    virtual void activate() = 0;
    /// State 1 is the maximized window.
    virtual void setWindowState(int nState) = 0;
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
    virtual void setDisplayAlerts(bool bDisplay) = 0;
    /// Application 1 is Word.
    virtual void activateMicrosoftApp(int nApplication) = 0;
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
    /// The same for documents that the user gets in the end: they are made in his own office, hidden until
    /// `setVisible`. Those never shown are gone when the object is.
    virtual std::shared_ptr<WordApplication> createWordForUser() = 0;
    virtual std::shared_ptr<ExcelApplication> createExcel() = 0;

    /// With true no save ever replaces a file: it fails with RunTimeError 58 instead. For unattended runs.
    virtual void setNeverReplaceFiles(bool bNever) = 0;

    /// Called again and again while a call waits for the office, so that windows stay painted.
    virtual void setIdleWork(std::function<void()> work) = 0;
};

} // namespace zorvo
