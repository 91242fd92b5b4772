#pragma once

#include "base/sessionState.h"
#include "tree/TreeWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// A tree window that remembers what was done to it.
class RecordingTreeWindow : public TreeWindow {
public:
    explicit RecordingTreeWindow(TreeNodes& nodes)
        : nodes_(nodes)
    {
    }

    TreeNodes& tree() override { return nodes_; }

    void setNewDocumentEnabled(bool bEnabled) override
    {
        calls.push_back(std::string("new document ") + (bEnabled ? "on" : "off") +
                        (sessionState().gbLoading ? " while loading" : ""));
    }

    void setDescription(const std::string& caption) override { calls.push_back("description " + caption); }

    void unload() override
    {
        calls.emplace_back("unload");
        if (atUnload)
            atUnload();
    }

    std::vector<std::string> calls;
    std::function<void()> atUnload;

private:
    TreeNodes& nodes_;
};

} // namespace zorvo
