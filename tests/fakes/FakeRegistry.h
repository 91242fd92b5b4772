#pragma once

#include "platform/Registry.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorvo {

/// A registry in memory that keeps the port's whole contract, with helpers to fill it, to look into it and to
/// make it fail.
class FakeRegistry : public Registry {
public:
    /// One key; public so that its open handles, which may outlive its deletion, can hold it.
    struct Node {
        struct Value {
            std::string sName;
            RegistryType type = RegistryType::none;
            std::string sData;
        };
        std::string sName;
        std::string sFullName; // "HKEY_...\path", as first spelled
        bool bDeleted = false;
        std::map<std::string, std::shared_ptr<Node>> children; // by upper-cased name
        std::map<std::string, Value> values;                   // by upper-cased name
    };

    FakeRegistry();

    std::int32_t openKey(Hive hive, const std::string& path, std::uint32_t access,
                         std::unique_ptr<RegistryKey>& key) override;
    std::int32_t createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key) override;

    /// Fill the store; keys are made with their parents. A text gets its terminating zero.
    void addKey(Hive hive, const std::string& path);
    void setText(Hive hive, const std::string& path, const std::string& name, const std::string& text);
    void setBytes(Hive hive, const std::string& path, const std::string& name, RegistryType type,
                  const std::string& data);
    void removeKey(Hive hive, const std::string& path);

    bool hasKey(Hive hive, const std::string& path) const;
    /// The text without its terminating zero; nothing when key or value is absent.
    std::optional<std::string> text(Hive hive, const std::string& path, const std::string& name) const;
    std::optional<RegistryType> type(Hive hive, const std::string& path, const std::string& name) const;

    /// From now on opening or making this key gives `status` instead of what it would give.
    void failOn(Hive hive, const std::string& path, std::int32_t status);
    /// From now on a listing of this key's sub-keys can't be taken and gives `status`.
    void failListing(Hive hive, const std::string& path, std::int32_t status);
    std::int32_t listingStatus(const Node& node) const;
    /// From now on every change gives this status: an ordinary user at the machine's store. 0 ends it.
    void failWrites(std::int32_t status) { writeStatus_ = status; }
    std::int32_t writeStatus() const { return writeStatus_; }

    /// "HKEY_CURRENT_USER\path" of each openKey call, found or not, in order.
    std::vector<std::string> opened;
    /// How often a listing of sub-keys was taken; a walk by index shall take one per open key.
    std::size_t listingsTaken = 0;

private:
    std::shared_ptr<Node> find(Hive hive, const std::string& path) const;
    std::shared_ptr<Node> make(Hive hive, const std::string& path);
    std::int32_t injected(Hive hive, const std::string& path) const;

    std::map<Hive, std::shared_ptr<Node>> hives_;
    std::map<std::string, std::int32_t> failures_;
    std::map<std::string, std::int32_t> listingFailures_; // by upper-cased full name
    std::int32_t writeStatus_ = kRegistrySuccess;
};

} // namespace zorvo
