#pragma once

#include <string>

namespace zorvo {

/// The folders that the machine names. All in the backslash form; empty when there is none.
class SpecialFolders {
public:
    enum Id : int { kDocuments = 5, kNetworkNeighbourhood = 19, kInternetCache = 32 };

    virtual ~SpecialFolders() = default;

    /// The one folder that holds TreeData, Images and the company folders, without a closing backslash.
    virtual std::string program() = 0;
    virtual std::string documents() = 0;
    /// A folder of the user's own that nobody else can write to, with a closing backslash. Made when missing;
    /// throws RunTimeError 75 when it can't be made safely.
    virtual std::string temporary() = 0;
    virtual std::string special(int id) = 0;
    /// The process's current folder.
    virtual std::string current() = 0;
};

} // namespace zorvo
