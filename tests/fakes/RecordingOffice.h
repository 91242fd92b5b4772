#pragma once

#include "platform/Office.h"
#include "tests/fakes/FakeObjectCreator.h"
#include "tests/fakes/RecordedBody.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// What the objects of one RecordingOffice share; they may outlive it.
struct RecordedOffice {
    struct Failure {
        std::string sLineBeginning;
        int nNumber = 0;
        int nTimesLeft = 0; // below 0: always
        int nLetThrough = 0;
    };

    /// Notes the line, then throws what `fail` asked for.
    void record(const std::string& sLine);
    /// Throws what `fail` asked for, without a note.
    void throwIfAsked(const std::string& sLine);

    std::vector<std::string> lines;
    std::vector<Failure> failures;
    std::map<std::string, std::shared_ptr<FakeLateBoundObject>> addInObjects; // by upper-cased ProgID
    std::vector<OfficeAddIn> wordAddIns;
    std::vector<OfficeAddIn> excelAddIns;
    std::vector<std::shared_ptr<RecordedBody>> openBodies;
    std::map<std::string, std::vector<std::string>> savedBodies;
    int nSplitSpecial = 0;
    std::string sWordVersion = "11.0";
    std::string sExcelVersion = "12.0";
    bool bNeverReplace = false;
    bool bNotesDrops = false;
    int nApplicationsAlive = 0;
};

/// Word and Excel that remember what was called on them, as lines that read like the call:
///
///     Create Word.Application
///     Word.Version
///     Word.Visible = True
///     Word.AddIns.Count
///     Word.AddIns(1)
///     Word.AddIns(1).Installed = True
///     Word.Documents.Add "C:\T\LETTER.DOT"        (no argument: a blank document)
///     Word.Documents.Open "C:\D\Letter.doc"
///     Word.COMAddIns("ZorvoTSR.Connect").Object
///     ZorvoTSR.Connect.StuffProperties <document> "profile"
///     Word.ActiveDocument.SaveAs "C:\D\Letter.doc" 0
///     Word.ActiveDocument.FullName
///     Word.ActiveDocument.Close
///     Word.ActiveWindow.ActivePane.Activate
///     Word.ChangeFileOpenDirectory "C:\D"
///     Word.Selection.InsertFile "C:\D\Lease.rtf"
///     Word.Selection.Information(12)
///     Word.Selection.Delete
///     Word.Selection.HomeKey 6
///     Word.ActiveDocument.Tables.Count
///     Word.ActiveDocument.Tables(2).Range.Text    (taking the table is no line of its own)
///     Word.ActiveDocument.Tables(2).Select
///     Word.ActiveDocument.Tables(2).Delete
///     Word.ActiveWindow.View.SplitSpecial
///     Word.ActiveWindow.ActivePane.View.Type = 3
///     Word.ActiveWindow.View.Type = 3
///     Word.ActiveWindow.Activate
///     Word.ActiveWindow.Close 0                   (closed without saving)
///     Word.Activate
///     Word.WindowState = 1
///     Word.Quit
///     Excel.EnableEvents = False
///     Excel.Workbooks.Add "C:\T\BUDGET.XLT"
///     Excel.ActiveWorkbook.SaveAs "C:\D\Budget.xls" 56 1
///     Excel.ActiveWorkbook.Close False            (closed without saving)
///     Excel.ActiveWindow.View = 1
///     Excel.DisplayAlerts = False
///     Excel.ActivateMicrosoftApp 1
///
/// Taking the active document is no line of its own. Files are those of `platform().files`, when a test has
/// installed one: a template that isn't there fails (Word 5174, Excel 53), a save writes a file. What a
/// template or an inserted file holds is a Word document's body, as RecordedBody has it.
class RecordingOffice : public Office {
public:
    RecordingOffice();
    ~RecordingOffice() override;
    RecordingOffice(const RecordingOffice&) = delete;
    RecordingOffice& operator=(const RecordingOffice&) = delete;

    std::shared_ptr<WordApplication> createWord() override;
    /// The same line.
    std::shared_ptr<WordApplication> createWordForUser() override;
    std::shared_ptr<ExcelApplication> createExcel() override;
    void setNeverReplaceFiles(bool bNever) override { state_->bNeverReplace = bNever; }
    void setIdleWork(std::function<void()> work) override { idleWork = std::move(work); }

    std::vector<std::string> calls() const { return state_->lines; }
    void clearCalls() { state_->lines.clear(); }
    /// A line of the test's own among the calls.
    void note(const std::string& sLine) { state_->lines.push_back(sLine); }

    /// Every call whose line begins with `sLineBeginning` throws RunTimeError `nNumber`, the first `nTimes`
    /// times or, below 0, always; `nLetThrough` such calls go well before. The call is still recorded.
    /// "Word.ActiveDocument" fails the taking of it.
    void fail(const std::string& sLineBeginning, int nNumber, int nTimes = -1, int nLetThrough = 0);

    /// The applications' lists of add-ins.
    std::vector<OfficeAddIn>& wordAddIns() { return state_->wordAddIns; }
    std::vector<OfficeAddIn>& excelAddIns() { return state_->excelAddIns; }
    void setVersions(const std::string& sWord, const std::string& sExcel);

    /// Puts an add-in object into both applications; without it `comAddIn` throws 429. It has the members
    /// that the products' add-ins have, all without a result; `answer` changes or adds one.
    FakeLateBoundObject& provideAddIn(const std::string& sProgId);

    /// From now on letting go of an add-in object is a line too: "ZorvoTSR.Connect dropped".
    void noteDrops() { state_->bNotesDrops = true; }

    /// The lines of the newest Word document that nobody has closed, also when its application has gone.
    std::optional<std::vector<std::string>> wordDocument() const;
    /// Those of a document that was saved.
    std::vector<std::string> savedDocument(const std::string& sFileName) const
    {
        return state_->savedBodies.at(sFileName);
    }
    void setSplitSpecial(int nPart) { state_->nSplitSpecial = nPart; }

    bool neverReplacesFiles() const { return state_->bNeverReplace; }
    /// Application objects that somebody still holds.
    int applicationsAlive() const { return state_->nApplicationsAlive; }

    /// With false the machine has no such application: making it throws 429.
    bool bWordInstalled = true;
    bool bExcelInstalled = true;
    std::function<void()> idleWork;

private:
    std::shared_ptr<RecordedOffice> state_ = std::make_shared<RecordedOffice>();
};

} // namespace zorvo
