#pragma once

#include <QTreeView>

#include <string>

namespace zorvo {

class FolderModel;

/// The machine's folders as a tree. Paths go in and out in the backslash form; what the user reads is native.
class FolderTree : public QTreeView {
    Q_OBJECT

public:
    explicit FolderTree(const char* name, QWidget* parent = nullptr);

    /// Looks at the disk again.
    void refresh();
    /// Opens the folder and all above it.
    void expandFolder(const std::string& sPath);
    /// Selects the folder and brings it in sight; of one that isn't there, the last one on the way to it. A
    /// text that is no path changes nothing.
    void selectFolder(const std::string& sPath);
    /// Empty when nothing is selected.
    std::string selectedFolder() const;

Q_SIGNALS:
    /// The user has gone to the folder, by mouse or keys.
    void folderClicked(const std::string& sPath);
    void focusGained();
    void focusLost();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    std::string pathAt(const QModelIndex& index) const;

    FolderModel* model_;
    /// The program moves in the tree, not the user.
    bool bMoving_ = false;
};

} // namespace zorvo
