#pragma once

#include "platform/Files.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// A file tree in memory with the roots C:\ and Z:\, with failures to order. Native paths: drive C lies at
/// "/fake/drive_c", drive Z is "/".
class FakeFiles : public Files {
public:
    enum class Operation {
        read,
        write,
        append,
        remove,
        copy,
        size,
        lastModified,
        clearAttributes,
        makeFolder
    };

    struct Call {
        Operation operation;
        std::string sPath; // of a copy, the target
    };

    FakeFiles();

    bool fileExists(const std::string& path) override;
    bool folderExists(const std::string& path) override;
    std::string read(const std::string& path) override;
    void write(const std::string& path, std::string_view bytes) override;
    void append(const std::string& path, std::string_view bytes) override;
    void remove(const std::string& path) override;
    void copy(const std::string& source, const std::string& target) override;
    std::uint64_t size(const std::string& path) override;
    std::int64_t lastModified(const std::string& path) override;
    void clearAttributes(const std::string& path) override;
    void makeFolder(const std::string& path) override;
    std::vector<Entry> list(const std::string& folder) override;
    std::string toNative(const std::string& path) override;
    std::string fromNative(const std::string& native) override;

    /// Fill the tree, folders made as needed; not recorded, never failing by order.
    void addFile(const std::string& path, const std::string& bytes = {});
    void addFolder(const std::string& path);
    void setReadOnly(const std::string& path, bool bReadOnly);
    void setLastModified(const std::string& path, std::int64_t nanoseconds);

    /// The bytes, or nothing when there is no such file; not recorded.
    std::optional<std::string> content(const std::string& path) const;
    bool isReadOnly(const std::string& path) const;

    /// From now on the operation on this path throws the number; an empty path means on every path, number 0
    /// ends it.
    void failOn(Operation operation, const std::string& path, int number);

    /// Every operation of the enumeration, failed ones too, in order, the path as it was given.
    std::vector<Call> calls;
    /// Run ahead of each.
    std::function<void(const Call& call)> onCall;

private:
    struct Node {
        std::string sName;
        bool bFolder = false;
        bool bReadOnly = false;
        std::int64_t nModified = 0;
        std::string sBytes;
    };

    void begin(Operation operation, const std::string& path);
    Node* find(const std::string& path);
    const Node* find(const std::string& path) const;
    Node& existingFile(const std::string& path);
    Node& fileToWrite(const std::string& path);
    Node& add(const std::string& path);
    bool parentExists(const std::string& path) const;

    std::map<std::string, Node> nodes_; // by upper-cased path
    std::map<std::pair<Operation, std::string>, int> failures_;
    std::int64_t nClock_ = 1'700'000'000'000'000'000;
};

} // namespace zorvo
