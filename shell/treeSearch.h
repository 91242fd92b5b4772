#pragma once

#include <memory>
#include <string>

namespace zorvo {

class TreeNodes;

/// One search dialog. It stays alive after it has hidden, so that its answer can be read.
class TreeSearchDialog {
public:
    virtual ~TreeSearchDialog() = default;
    /// Shows the dialog modally. True when the user pressed Find Next.
    virtual bool ask() = 0;
    virtual std::string text() const = 0;
    virtual void setText(const std::string& sText) = 0;
};

/// The dialogs of the tree search; the shell's forms answer.
class TreeSearchForms {
public:
    virtual ~TreeSearchForms() = default;
    virtual std::unique_ptr<TreeSearchDialog> newSearchDialog() = 0;
    /// Tells that nothing more was found. True when the user wants to search from the top again.
    virtual bool askToContinue() = 0;
};

/// The command: takes a text and walks the tree, selecting each match in turn, until the user has had enough.
/// The tree selects single nodes meanwhile. The last text isn't kept.
void SearchTree(TreeNodes& tree, TreeSearchForms& forms);

/// Selects each node whose text contains `sFind`, without regard to case, and asks after each whether to go
/// on. `bNoMore` is true when the end was reached, false when the user closed at a match, which stays
/// selected.
void SearchTreeNodes(TreeNodes& tree, const std::string& sFind, TreeSearchForms& forms, bool& bNoMore);

} // namespace zorvo
