#include "creation/forms/FolderModel.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <algorithm>

namespace zorvo {

struct FolderModel::Folder {
    std::string sName;
    Folder* parent = nullptr;
    int nRow = 0;
    std::vector<std::unique_ptr<Folder>> children;
    bool bListed = false;

    Folder* child(const std::string& sChild) const
    {
        const auto found = std::find_if(children.begin(), children.end(),
                                        [&](const auto& candidate) { return candidate->sName == sChild; });
        return found == children.end() ? nullptr : found->get();
    }
    void numberChildren()
    {
        int nNext = 0;
        for (const auto& each : children)
            each->nRow = nNext++;
    }
};

namespace {

bool isBefore(const std::string& a, const std::string& b)
{
    const int order = compareNoCase(a, b);
    return order != 0 ? order < 0 : a < b;
}

bool isHidden(const std::string& sName)
{
    return sName.starts_with('.');
}

std::vector<std::string> levelsOf(const std::string& sNativePath)
{
    std::vector<std::string> levels;
    for (std::size_t from = 0; from < sNativePath.size();) {
        const std::size_t end = std::min(sNativePath.find('/', from), sNativePath.size());
        if (end > from)
            levels.push_back(sNativePath.substr(from, end - from));
        from = end + 1;
    }
    return levels;
}

} // namespace

FolderModel::FolderModel(QObject* parent)
    : QAbstractItemModel(parent)
    , root_(std::make_unique<Folder>())
{
    root_->sName = "/";
}

FolderModel::~FolderModel() = default;

QModelIndex FolderModel::indexOf(const std::string& sNativePath)
{
    if (!sNativePath.starts_with('/'))
        return {};
    Folder* folder = root_.get();
    for (const std::string& sLevel : levelsOf(sNativePath)) {
        if (!folder->bListed || !folder->child(sLevel))
            look(*folder, sLevel);
        Folder* next = folder->child(sLevel);
        if (!next)
            break;
        folder = next;
    }
    return indexOfFolder(*folder);
}

std::string FolderModel::nativePath(const QModelIndex& index) const
{
    return index.isValid() ? pathOf(*folderAt(index)) : std::string();
}

void FolderModel::refresh()
{
    refreshBelow(*root_);
}

void FolderModel::refreshBelow(Folder& folder)
{
    if (!folder.bListed)
        return;
    look(folder);
    for (const auto& child : folder.children)
        refreshBelow(*child);
}

void FolderModel::look(Folder& folder, const std::string& sAlso)
{
    folder.bListed = true;
    const std::vector<std::string> names = namesIn(folder, sAlso);
    removeMissing(folder, names);
    addNew(folder, names);
}

std::vector<std::string> FolderModel::namesIn(const Folder& folder, const std::string& sAlso) const
{
    std::vector<std::string> names;
    try {
        Files& files = *platform().files;
        for (Files::Entry& entry : files.list(files.fromNative(pathOf(folder)))) {
            if (!entry.bFolder)
                continue;
            if (!isHidden(entry.sName) || entry.sName == sAlso || folder.child(entry.sName))
                names.push_back(std::move(entry.sName));
        }
    } catch (const RunTimeError&) { // a folder that can't be looked into shows as empty
        names.clear();
    }
    std::sort(names.begin(), names.end(), isBefore);
    return names;
}

void FolderModel::removeMissing(Folder& folder, const std::vector<std::string>& names)
{
    for (std::size_t row = folder.children.size(); row-- > 0;) {
        if (std::binary_search(names.begin(), names.end(), folder.children[row]->sName, isBefore))
            continue;
        beginRemoveRows(indexOfFolder(folder), static_cast<int>(row), static_cast<int>(row));
        folder.children.erase(folder.children.begin() + static_cast<std::ptrdiff_t>(row));
        folder.numberChildren();
        endRemoveRows();
    }
}

void FolderModel::addNew(Folder& folder, const std::vector<std::string>& names)
{
    const bool bFirst = folder.children.empty();
    if (bFirst && names.empty())
        return;
    if (bFirst)
        beginInsertRows(indexOfFolder(folder), 0, static_cast<int>(names.size()) - 1);
    for (std::size_t row = 0; row < names.size(); ++row) {
        if (row < folder.children.size() && folder.children[row]->sName == names[row])
            continue;
        if (!bFirst)
            beginInsertRows(indexOfFolder(folder), static_cast<int>(row), static_cast<int>(row));
        auto child = std::make_unique<Folder>();
        child->sName = names[row];
        child->parent = &folder;
        folder.children.insert(folder.children.begin() + static_cast<std::ptrdiff_t>(row), std::move(child));
        if (bFirst)
            continue;
        folder.numberChildren();
        endInsertRows();
    }
    if (!bFirst)
        return;
    folder.numberChildren();
    endInsertRows();
}

FolderModel::Folder* FolderModel::folderAt(const QModelIndex& index) const
{
    return static_cast<Folder*>(index.internalPointer());
}

QModelIndex FolderModel::indexOfFolder(const Folder& folder) const
{
    return createIndex(folder.nRow, 0, const_cast<Folder*>(&folder));
}

std::string FolderModel::pathOf(const Folder& folder) const
{
    if (!folder.parent)
        return folder.sName;
    const std::string sAbove = pathOf(*folder.parent);
    return (sAbove == "/" ? sAbove : sAbove + "/") + folder.sName;
}

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return parent.isValid() ? indexOfFolder(*folderAt(parent)->children[static_cast<std::size_t>(row)])
                            : indexOfFolder(*root_);
}

QModelIndex FolderModel::parent(const QModelIndex& child) const
{
    const Folder* above = child.isValid() ? folderAt(child)->parent : nullptr;
    return above ? indexOfFolder(*above) : QModelIndex();
}

int FolderModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? static_cast<int>(folderAt(parent)->children.size()) : 1;
}

int FolderModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool FolderModel::hasChildren(const QModelIndex& parent) const
{
    return canFetchMore(parent) || rowCount(parent) > 0;
}

bool FolderModel::canFetchMore(const QModelIndex& parent) const
{
    return parent.isValid() && !folderAt(parent)->bListed;
}

void FolderModel::fetchMore(const QModelIndex& parent)
{
    if (canFetchMore(parent))
        look(*folderAt(parent));
}

QVariant FolderModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(folderAt(index)->sName);
    case Qt::DecorationRole:
        return QApplication::style()->standardIcon(QStyle::SP_DirIcon);
    case Qt::ToolTipRole:
        return QString::fromStdString(nativePath(index));
    default:
        return {};
    }
}

} // namespace zorvo
