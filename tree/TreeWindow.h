#pragma once

#include <string>

namespace zorvo {

class TreeNodes;

/// The main window as the work on its tree sees it.
class TreeWindow {
public:
    virtual ~TreeWindow() = default;

    virtual TreeNodes& tree() = 0;
    /// The tool that makes new documents.
    virtual void setNewDocumentEnabled(bool bEnabled) = 0;
    /// Caption of the description label; "&&" in it shows one "&".
    virtual void setDescription(const std::string& caption) = 0;
    /// Unloads the window, which ends the process.
    virtual void unload() = 0;
};

} // namespace zorvo
