#pragma once

#include <string>
#include <vector>

/// What a help desk asks of a machine. Asking changes nothing: nothing is made, touched or started but a
/// program that is asked for its version.
namespace zorvo {

/// Something that is wrong.
struct Fault {
    /// What scripts go by: "template.missing".
    std::string sCode;
    /// A sentence for people, without its end.
    std::string sText;
    /// The native path of the file it is about, and the line in it from 1; empty and 0 when it is about none.
    std::string sFile = {};
    long nLine = 0;
};

class Inspection {
public:
    struct Program {
        std::string sName;
        std::string sVersion; // empty when it can't be told
        std::string sPlace;   // a native path, or an address; empty when there is none
        std::vector<Fault> faults = {};
    };

    struct Folder {
        std::string sName;
        std::string sPath; // native
        bool bThere = false;
        bool bWritable = false; // of one that isn't there: it could be made
        std::vector<Fault> faults = {};
    };

    struct Store {
        std::string sName;
        std::string sPath; // native
        bool bThere = false;
        std::vector<Fault> faults = {};
    };

    virtual ~Inspection() = default;

    /// Our own programs, the office suite and the bus.
    virtual std::vector<Program> programs() = 0;
    /// The folders that the program reads and writes.
    virtual std::vector<Folder> folders() = 0;
    /// The registry's files and the settings. A store that isn't there yet is empty, which is no fault.
    virtual std::vector<Store> stores() = 0;
    /// An object server of that name runs, or the bus can start it, or `executable` (native) is a program.
    virtual bool canServe(const std::string& busName, const std::string& executable) = 0;
};

} // namespace zorvo
