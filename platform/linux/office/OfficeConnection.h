#pragma once

#include "platform/Automation.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// The seam between the adaptor, which never links the office's libraries, and the part that speaks to a
/// running office and is loaded when the first document needs it. Paths are native ones.
namespace zorvo {

enum class OfficeDocumentKind { text, spreadsheet };

struct OfficeLoad {
    OfficeDocumentKind kind = OfficeDocumentKind::text;
    std::string sPath; // empty: a blank document
    bool bAsTemplate = false;
    /// The user's own macro settings hold; otherwise no macro of the document runs.
    bool bMacrosAsConfigured = false;
    /// A file that is open in this office already isn't opened once more: two windows would save over each
    /// other.
    bool bOpenOnce = false;
};

/// Why the office didn't do a thing.
class OfficeFailure : public std::runtime_error {
public:
    enum class Kind {
        lost,       // the connection is gone: crashed, ended, or broken off
        noDocument, // the document was closed meanwhile
        refused,    // the office can't load, store or close it
        noMember,
        badArguments,
        raised, // the component's own failure
    };

    OfficeFailure(Kind kind, const std::string& description)
        : std::runtime_error(description)
        , kind_(kind)
    {
    }

    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

/// How a document of the connection is handed to an add-in.
class OfficeDocumentHandle : public AutomationObject {
public:
    explicit OfficeDocumentHandle(int nDocument)
        : nDocument_(nDocument)
    {
    }

    int document() const { return nDocument_; }

private:
    int nDocument_;
};

/// A connection to one office process. Everything throws OfficeFailure, and may block for as long as the
/// office hangs. Only `breakOff` may be called from another thread.
class OfficeConnection {
public:
    virtual ~OfficeConnection() = default;

    /// The first words with the office; everything else comes after it.
    virtual void greet() = 0;

    /// Loads hidden and makes sure that it is what was asked for; gives the number of the document.
    virtual int load(const OfficeLoad& request) = 0;
    /// A copy of the document goes to `path`.
    virtual void storeCopy(int nDocument, const std::string& path, const std::string& filter) = 0;
    /// The document is stored at `path` and belongs there from now on.
    virtual void storeAs(int nDocument, const std::string& path, const std::string& filter) = 0;
    /// Changes are dropped.
    virtual void close(int nDocument) = 0;
    /// Leaves the document open and forgets its number.
    virtual void forget(int nDocument) = 0;

    /// Native path, empty while unsaved.
    virtual std::string path(int nDocument) = 0;
    virtual bool isModified(int nDocument) = 0;
    /// Shows the window and brings it to the front. False when the office has no screen to show it on.
    virtual bool show(int nDocument) = 0;
    /// Whether `show` can be done.
    virtual bool isShowable(int nDocument) = 0;
    virtual void toFront(int nDocument) = 0;
    virtual void maximize(int nDocument) = 0;
    virtual void showNormalView(int nDocument) = 0;
    virtual void showPageView(int nDocument) = 0;

    // A text document's body and the cursor in it, which begins at its start. Until the document is shown or
    // stored its window isn't kept up to date: that takes longer than the work itself.

    /// The file's contents come in at the cursor, which is then behind them. A file that holds nothing is
    /// refused.
    virtual void insertFile(int nDocument, const std::string& path) = 0;
    virtual void goToStart(int nDocument) = 0;
    virtual int tableCount(int nDocument) = 0;
    /// The number of the body's table, `index` from 1; 0 when it has none there.
    virtual int tableAt(int nDocument, int index) = 0;
    /// As WordTable has it.
    virtual std::string tableText(int nDocument, int nTable) = 0;
    virtual void selectTable(int nDocument, int nTable) = 0;
    virtual void removeTable(int nDocument, int nTable) = 0;
    virtual bool isWithinTable(int nDocument) = 0;
    /// False when there is nothing to delete.
    virtual bool deleteForward(int nDocument) = 0;

    /// The number of the component of that name inside the office, 0 when there is none.
    virtual int addIn(const std::string& name) = 0;
    /// The same after the office has loaded the component from a library, where it is an implementation of
    /// that name; it stays loaded as long as the office runs. 0 when the library can't be loaded.
    virtual int addInFrom(const std::string& library, const std::string& name) = 0;
    /// Documents among the arguments are OfficeDocumentHandle; what comes back by reference is put there.
    virtual Value invoke(int nAddIn, const std::string& member, std::vector<Value>& arguments) = 0;
    virtual void forgetAddIn(int nAddIn) = 0;

    /// Ends calls that wait for an answer: they fail as lost.
    virtual void breakOff() noexcept = 0;
};

/// What the loaded part gives.
struct OfficeConnector {
    /// Null while nobody listens at the pipe; doesn't wait for an answer. `programFolder` is that of the
    /// office.
    std::unique_ptr<OfficeConnection> (*connect)(const std::string& programFolder, const std::string& pipe);
    /// Lets go of everything; after it only `connect` may be called. No connection may live.
    void (*shutDown)();
};

} // namespace zorvo
