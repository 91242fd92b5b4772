#include "tests/fakes/RecordingOffice.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <algorithm>

namespace zorvo {

namespace {

using StatePtr = std::shared_ptr<RecordedOffice>;

std::string quoted(const std::string& sText)
{
    return "\"" + sText + "\"";
}

std::string lineValue(bool bValue)
{
    return bValue ? "True" : "False";
}

struct ArgumentText {
    std::string operator()(std::monostate) const { return "<missing>"; }
    std::string operator()(bool bValue) const { return lineValue(bValue); }
    std::string operator()(const std::string& sText) const { return quoted(sText); }
    std::string operator()(const std::vector<std::string>& texts) const
    {
        return "<" + std::to_string(texts.size()) + " texts>";
    }
    std::string operator()(const AutomationObjectPtr& object) const
    {
        return dynamic_cast<const OfficeDocument*>(object.get()) ? "<document>" : "<object>";
    }
    template <typename Number>
    std::string operator()(Number number) const
    {
        return std::to_string(number);
    }
};

/// An add-in object as an application gives it: every call is a line, then the object's own members answer.
class RecordedAddIn : public LateBoundObject {
public:
    RecordedAddIn(StatePtr state, std::string sProgId, LateBoundPtr object)
        : state_(std::move(state))
        , sProgId_(std::move(sProgId))
        , object_(std::move(object))
    {
    }
    ~RecordedAddIn() override
    {
        if (state_->bNotesDrops)
            state_->lines.push_back(sProgId_ + " dropped");
    }
    RecordedAddIn(const RecordedAddIn&) = delete;
    RecordedAddIn& operator=(const RecordedAddIn&) = delete;

    Value invoke(const std::string& member, std::vector<Value>& arguments) override
    {
        note(member, arguments);
        return object_->invoke(member, arguments);
    }

    Value invokeById(int dispatchId, std::vector<Value>& arguments) override
    {
        note("#" + std::to_string(dispatchId), arguments);
        return object_->invokeById(dispatchId, arguments);
    }

private:
    void note(const std::string& sMember, const std::vector<Value>& arguments)
    {
        std::string sLine = sProgId_ + "." + sMember;
        for (const Value& argument : arguments)
            sLine += " " + std::visit(ArgumentText{}, argument);
        state_->record(sLine);
    }

    StatePtr state_;
    std::string sProgId_;
    LateBoundPtr object_;
};

/// What documents of both kinds have. `Interface` is WordDocument or ExcelWorkbook.
template <typename Interface>
class RecordedDocument : public Interface {
public:
    RecordedDocument(StatePtr state, std::string sLinePrefix, std::string sFullName)
        : state_(std::move(state))
        , sPrefix_(std::move(sLinePrefix))
        , sFullName_(std::move(sFullName))
    {
    }

    std::string fullName() override
    {
        record(".FullName");
        return sFullName_;
    }

    void close() override
    {
        record(".Close");
        drop();
    }

    bool isOpen() const { return bOpen_; }
    virtual void drop() { bOpen_ = false; }

protected:
    void record(const std::string& sCall)
    {
        state_->record(sPrefix_ + sCall);
        if (!bOpen_)
            throw RunTimeError(kObjectRequired);
    }

    void store(const std::string& sFileName)
    {
        const auto files = platform().files;
        if (files && state_->bNeverReplace && files->fileExists(sFileName))
            throw RunTimeError(kFileAlreadyExists);
        if (files)
            files->write(sFileName, "made by " + sPrefix_);
        sFullName_ = sFileName;
    }

private:
    StatePtr state_;
    std::string sPrefix_;
    std::string sFullName_;
    bool bOpen_ = true;
};

class RecordedTable : public WordTable {
public:
    RecordedTable(StatePtr state, std::string sLine, std::shared_ptr<RecordedBody> body, int nTable)
        : state_(std::move(state))
        , sLine_(std::move(sLine))
        , body_(std::move(body))
        , nTable_(nTable)
    {
    }

    std::string text() override
    {
        state_->record(sLine_ + ".Range.Text");
        return body_->tableText(nTable_);
    }
    void select() override
    {
        state_->record(sLine_ + ".Select");
        body_->select(nTable_);
    }
    void remove() override
    {
        state_->record(sLine_ + ".Delete");
        body_->remove(nTable_);
    }

private:
    StatePtr state_;
    std::string sLine_;
    std::shared_ptr<RecordedBody> body_;
    int nTable_;
};

class RecordedTables : public WordTables {
public:
    RecordedTables(StatePtr state, std::shared_ptr<RecordedBody> body)
        : state_(std::move(state))
        , body_(std::move(body))
    {
    }

    int count() override
    {
        state_->record("Word.ActiveDocument.Tables.Count");
        return body_->tableCount();
    }

    std::shared_ptr<WordTable> item(int index) override
    {
        const int nTable = body_->tableAt(index);
        if (nTable == 0)
            throw RunTimeError(kIndexOutOfRange);
        return std::make_shared<RecordedTable>(
            state_, "Word.ActiveDocument.Tables(" + std::to_string(index) + ")", body_, nTable);
    }

private:
    StatePtr state_;
    std::shared_ptr<RecordedBody> body_;
};

class RecordedWordDocument : public RecordedDocument<WordDocument> {
public:
    RecordedWordDocument(const StatePtr& state, std::string sLinePrefix, std::string sFullName,
                         const std::string& sContents)
        : RecordedDocument(state, std::move(sLinePrefix), std::move(sFullName))
        , state_(state)
        , body_(std::make_shared<RecordedBody>(sContents))
    {
        state_->openBodies.push_back(body_);
    }

    void saveAs(const std::string& sFileName, int nFileFormat) override
    {
        record(".SaveAs " + quoted(sFileName) + " " + std::to_string(nFileFormat));
        store(sFileName);
        state_->savedBodies[sFileName] = body_->lines();
    }

    void drop() override
    {
        RecordedDocument::drop();
        std::erase(state_->openBodies, body_);
    }

    std::shared_ptr<WordTables> tables() override { return std::make_shared<RecordedTables>(state_, body_); }
    RecordedBody& body() { return *body_; }

private:
    StatePtr state_;
    std::shared_ptr<RecordedBody> body_;
};

class RecordedWorkbook : public RecordedDocument<ExcelWorkbook> {
public:
    RecordedWorkbook(const StatePtr& state, std::string sLinePrefix, std::string sFullName,
                     const std::string& /*sContents*/)
        : RecordedDocument(state, std::move(sLinePrefix), std::move(sFullName))
    {
    }

    void saveAs(const std::string& sFileName, int nFileFormat, int nAccessMode) override
    {
        const std::string sFormat = nFileFormat == 0 ? "" : " " + std::to_string(nFileFormat);
        record(".SaveAs " + quoted(sFileName) + sFormat + " " + std::to_string(nAccessMode));
        store(sFileName);
    }

    void closeWithoutSaving() override
    {
        record(".Close False");
        drop();
    }
};

/// What both applications share. `Interface` is WordApplication or ExcelApplication, `Document` the fake of
/// its documents.
template <typename Interface, typename Document>
class RecordedApplication : public Interface {
public:
    struct Names {
        std::string sApplication;
        std::string sDocuments;
        std::string sActiveDocument;
        int nFileNotFound;
    };

    RecordedApplication(StatePtr state, Names names, std::string& sVersion, std::vector<OfficeAddIn>& addIns)
        : state_(std::move(state))
        , names_(std::move(names))
        , sVersion_(sVersion)
        , addIns_(addIns)
    {
        ++state_->nApplicationsAlive;
    }

    ~RecordedApplication() override { --state_->nApplicationsAlive; }
    RecordedApplication(const RecordedApplication&) = delete;
    RecordedApplication& operator=(const RecordedApplication&) = delete;

    std::string version() override
    {
        record(".Version");
        return sVersion_;
    }

    void setVisible(bool bVisible) override { record(".Visible = " + lineValue(bVisible)); }

    int addInCount() override
    {
        record(".AddIns.Count");
        return static_cast<int>(addIns_.size());
    }

    OfficeAddIn addIn(int index) override
    {
        record(".AddIns(" + std::to_string(index) + ")");
        return at(index);
    }

    void setAddInInstalled(int index, bool bInstalled) override
    {
        record(".AddIns(" + std::to_string(index) + ").Installed = " + lineValue(bInstalled));
        at(index).bInstalled = bInstalled;
    }

    LateBoundPtr comAddIn(const std::string& progId) override
    {
        record(".COMAddIns(" + quoted(progId) + ").Object");
        const auto found = state_->addInObjects.find(upperCase(progId));
        if (found == state_->addInObjects.end())
            throw RunTimeError(kCannotCreateObject);
        return std::make_shared<RecordedAddIn>(state_, progId, found->second);
    }

    void activatePane() override
    {
        record(".ActiveWindow.ActivePane.Activate");
        active();
    }

    void quit() override
    {
        record(".Quit");
        closeAll();
        bQuit_ = true;
    }

protected:
    void record(const std::string& sCall)
    {
        state_->record(names_.sApplication + sCall);
        if (bQuit_)
            throw RunTimeError(kOfficeDoesNotAnswer);
    }

    void add(const std::string& sTemplate)
    {
        record("." + names_.sDocuments + ".Add" + (sTemplate.empty() ? "" : " " + quoted(sTemplate)));
        open("", sTemplate.empty() ? std::string() : contentsOf(sTemplate));
    }

    void openFile(const std::string& sFileName)
    {
        record("." + names_.sDocuments + ".Open " + quoted(sFileName));
        open(sFileName, contentsOf(sFileName));
    }

    /// Throws the application's own number for a missing file.
    std::string contentsOf(const std::string& sFileName)
    {
        const auto files = platform().files;
        if (!files)
            return {};
        if (!files->fileExists(sFileName))
            throw RunTimeError(names_.nFileNotFound, standardErrorDescription(kFileNotFound));
        return files->read(sFileName);
    }

    /// Without a line of their own.
    void closeAll()
    {
        for (const auto& document : documents_)
            document->drop();
        documents_.clear();
    }

    std::shared_ptr<Document> active()
    {
        state_->throwIfAsked(names_.sApplication + "." + names_.sActiveDocument);
        std::erase_if(documents_, [](const auto& document) { return !document->isOpen(); });
        if (documents_.empty())
            throw RunTimeError(kObjectNotSet);
        return documents_.back();
    }

private:
    void open(const std::string& sFullName, const std::string& sContents)
    {
        documents_.push_back(std::make_shared<Document>(
            state_, names_.sApplication + "." + names_.sActiveDocument, sFullName, sContents));
    }

    OfficeAddIn& at(int index)
    {
        if (index < 1 || index > static_cast<int>(addIns_.size()))
            throw RunTimeError(kIndexOutOfRange);
        return addIns_[static_cast<std::size_t>(index - 1)];
    }

    StatePtr state_;
    Names names_;
    std::string& sVersion_;
    std::vector<OfficeAddIn>& addIns_;
    std::vector<std::shared_ptr<Document>> documents_;
    bool bQuit_ = false;
};

class RecordedWord : public RecordedApplication<WordApplication, RecordedWordDocument>, public WordSelection {
public:
    explicit RecordedWord(const StatePtr& state)
        : RecordedApplication(state, {"Word", "Documents", "ActiveDocument", kWordFileNotFound},
                              state->sWordVersion, state->wordAddIns)
        , state_(state)
    {
    }

    void documentsAdd(const std::string& sTemplate) override { add(sTemplate); }
    void documentsOpen(const std::string& sFileName) override { openFile(sFileName); }
    std::shared_ptr<WordDocument> activeDocument() override { return active(); }
    WordSelection& selection() override { return *this; }
    WordWindow& activeWindow() override { return window_; }
    void activate() override { record(".Activate"); }

    void changeFileOpenDirectory(const std::string& sFolder) override
    {
        record(".ChangeFileOpenDirectory " + quoted(sFolder));
        if (!sFolder.empty() && platform().files && !platform().files->folderExists(sFolder))
            throw RunTimeError(kPathNotFound);
        sFolder_ = sFolder;
    }
    void setWindowState(int nState) override { record(".WindowState = " + std::to_string(nState)); }

    void insertFile(const std::string& sFileName) override
    {
        record(".Selection.InsertFile " + quoted(sFileName));
        const bool bNameAlone = sFileName.find('\\') == std::string::npos && !sFolder_.empty();
        const auto document = active();
        if (!document->body().insert(contentsOf(bNameAlone ? sFolder_ + "\\" + sFileName : sFileName)))
            throw RunTimeError(kPathOrFileAccess);
    }
    void homeKey(int nUnit) override
    {
        record(".Selection.HomeKey " + std::to_string(nUnit));
        active()->body().goToStart();
    }
    bool withinTable() override
    {
        record(".Selection.Information(12)");
        return active()->body().withinTable();
    }
    void deleteForward() override
    {
        record(".Selection.Delete");
        if (!active()->body().deleteForward())
            throw RunTimeError(kInvalidCall);
    }

private:
    class Window : public WordWindow {
    public:
        explicit Window(RecordedWord& word)
            : word_(word)
        {
        }

        int viewSplitSpecial() override
        {
            record(".View.SplitSpecial");
            return word_.state_->nSplitSpecial;
        }
        void setPaneViewType(int nType) override
        {
            record(".ActivePane.View.Type = " + std::to_string(nType));
        }
        void setViewType(int nType) override { record(".View.Type = " + std::to_string(nType)); }
        void activate() override { record(".Activate"); }
        void closeWithoutSaving() override
        {
            record(".Close 0");
            word_.active()->drop();
        }

    private:
        void record(const std::string& sCall)
        {
            word_.record(".ActiveWindow" + sCall);
            word_.active();
        }

        RecordedWord& word_;
    };

    StatePtr state_;
    std::string sFolder_;
    Window window_{*this};
};

class RecordedExcel : public RecordedApplication<ExcelApplication, RecordedWorkbook> {
public:
    explicit RecordedExcel(const StatePtr& state)
        : RecordedApplication(state, {"Excel", "Workbooks", "ActiveWorkbook", kFileNotFound},
                              state->sExcelVersion, state->excelAddIns)
    {
    }

    void setEnableEvents(bool bEnable) override { record(".EnableEvents = " + lineValue(bEnable)); }
    void setDisplayAlerts(bool bDisplay) override { record(".DisplayAlerts = " + lineValue(bDisplay)); }
    void activateMicrosoftApp(int nApplication) override
    {
        record(".ActivateMicrosoftApp " + std::to_string(nApplication));
    }
    void workbooksAdd(const std::string& sTemplate) override { add(sTemplate); }
    void workbooksOpen(const std::string& sFileName) override { openFile(sFileName); }
    std::shared_ptr<ExcelWorkbook> activeWorkbook() override { return active(); }

    void setActiveWindowView(int nView) override
    {
        record(".ActiveWindow.View = " + std::to_string(nView));
        active();
    }
};

} // namespace

void RecordedOffice::record(const std::string& sLine)
{
    lines.push_back(sLine);
    throwIfAsked(sLine);
}

void RecordedOffice::throwIfAsked(const std::string& sLine)
{
    for (Failure& failure : failures) {
        if (failure.nTimesLeft == 0 || !sLine.starts_with(failure.sLineBeginning))
            continue;
        if (failure.nLetThrough > 0) {
            --failure.nLetThrough;
            continue;
        }
        if (failure.nTimesLeft > 0)
            --failure.nTimesLeft;
        throw RunTimeError(failure.nNumber);
    }
}

RecordingOffice::RecordingOffice() = default;

RecordingOffice::~RecordingOffice()
{
    // The add-ins remember the documents that they were given, and these hold the add-ins.
    for (const auto& [sProgId, object] : state_->addInObjects)
        object->calls.clear();
}

std::shared_ptr<WordApplication> RecordingOffice::createWord()
{
    state_->record("Create Word.Application");
    if (!bWordInstalled)
        throw RunTimeError(kCannotCreateObject);
    return std::make_shared<RecordedWord>(state_);
}

std::shared_ptr<WordApplication> RecordingOffice::createWordForUser()
{
    return createWord();
}

std::optional<std::vector<std::string>> RecordingOffice::wordDocument() const
{
    if (state_->openBodies.empty())
        return {};
    return state_->openBodies.back()->lines();
}

std::shared_ptr<ExcelApplication> RecordingOffice::createExcel()
{
    state_->record("Create Excel.Application");
    if (!bExcelInstalled)
        throw RunTimeError(kCannotCreateObject);
    return std::make_shared<RecordedExcel>(state_);
}

void RecordingOffice::fail(const std::string& sLineBeginning, int nNumber, int nTimes, int nLetThrough)
{
    state_->failures.push_back({sLineBeginning, nNumber, nTimes, nLetThrough});
}

void RecordingOffice::setVersions(const std::string& sWord, const std::string& sExcel)
{
    state_->sWordVersion = sWord;
    state_->sExcelVersion = sExcel;
}

FakeLateBoundObject& RecordingOffice::provideAddIn(const std::string& sProgId)
{
    auto object = std::make_shared<FakeLateBoundObject>();
    for (const char* member : {"SetCompanyID", "SuppressSaveAs", "SetSaveFlag", "SetForceShareFlag",
                               "StuffProperties", "RefreshFields", "ProtectExcelDoc"})
        object->answer(member, [](std::vector<Value>&) { return Value(); });
    state_->addInObjects[upperCase(sProgId)] = object;
    return *object;
}

} // namespace zorvo
