#pragma once

#include <QAbstractItemModel>

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// The machine's folders by their native names, below one root. A folder is listed when it is first looked
/// into. Names that begin with "." are left out, except on the way to a folder that was asked for.
class FolderModel : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit FolderModel(QObject* parent = nullptr);
    ~FolderModel() override;

    /// The folder of that native path, or else the last one on the way to it that is there.
    QModelIndex indexOf(const std::string& sNativePath);
    /// Empty for an invalid index.
    std::string nativePath(const QModelIndex& index) const;
    /// Looks again into every folder that was looked into; what is still there keeps its place.
    void refresh();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Folder;

    Folder* folderAt(const QModelIndex& index) const;
    QModelIndex indexOfFolder(const Folder& folder) const;
    std::string pathOf(const Folder& folder) const;
    /// Looks into the folder; a hidden one named `sAlso` is taken in.
    void look(Folder& folder, const std::string& sAlso = {});
    std::vector<std::string> namesIn(const Folder& folder, const std::string& sAlso) const;
    void removeMissing(Folder& folder, const std::vector<std::string>& names);
    void addNew(Folder& folder, const std::vector<std::string>& names);
    void refreshBelow(Folder& folder);

    std::unique_ptr<Folder> root_;
};

} // namespace zorvo
