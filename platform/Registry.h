#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/// The hierarchical store of keys, sub-keys by index and values.
namespace zorvo {

enum Hive : std::uint32_t {
    kHiveNone = 0,
    HKEY_CLASSES_ROOT = 0x80000000U,
    HKEY_CURRENT_USER = 0x80000001U,
    HKEY_LOCAL_MACHINE = 0x80000002U,
    HKEY_USERS = 0x80000003U,
    HKEY_CURRENT_CONFIG = 0x80000005U,
};

/// Status codes. Any other value is a failed call and is used only as "not success".
enum RegistryStatus : std::int32_t {
    kRegistrySuccess = 0,
    kRegistryFileNotFound = 2,
    kRegistryAccessDenied = 5,
    kRegistryInvalidParameter = 87,
    kRegistryDiskFull = 112,
    kRegistryBusy = 170,
    kRegistryMoreData = 234,
    kRegistryNoMoreItems = 259,
    kRegistryCorrupt = 1015,
    kRegistryInputOutput = 1016,
    kRegistryKeyDeleted = 1018,
};

enum class RegistryType : std::uint32_t {
    none = 0,
    string = 1,       // REG_SZ
    expandString = 2, // REG_EXPAND_SZ, read as it stands
    binary = 3,
    dword = 4,
    dwordBigEndian = 5,
    link = 6,
    multiString = 7,
    qword = 11,
};

enum RegistryAccess : std::uint32_t {
    kKeyQueryValue = 0x01,
    kKeySetValue = 0x02,
    kKeyEnumerate = 0x08,
    kKeyReadAccess = 0x19, // query values, enumerate sub-keys, notify
};

/// A value holds at most this many bytes.
constexpr std::size_t kLargestRegistryValue = 16U << 20U;

/// An open key; closing is its destruction. Its listing of sub-keys is taken once, at the first enumeration,
/// so that a walk by index costs one look at the store. A listing that can't be taken gives its status to
/// that one call, whatever its index, and kRegistryNoMoreItems from then on.
class RegistryKey {
public:
    virtual ~RegistryKey() = default;

    /// Name of the sub-key at `index` (from 0), in ascending order of the upper-cased names. A name of
    /// `capacity` UTF-8 bytes or more doesn't fit and yields kRegistryMoreData with an empty name; past the
    /// last one kRegistryNoMoreItems.
    virtual std::int32_t enumKey(std::size_t index, std::size_t capacity, std::string& name) = 0;

    /// The value's bytes as stored (texts with their terminating zero); the empty name is the default value.
    /// kRegistryMoreData, with nothing given, when they are more than `capacity` bytes.
    virtual std::int32_t queryValue(const std::string& name, std::size_t capacity, std::string& data,
                                    RegistryType& type) = 0;

    /// Stores the bytes as they are given: a text brings its terminating zero. kRegistryInvalidParameter for
    /// more than kLargestRegistryValue bytes, or for a name that isn't UTF-8 or holds a line break or a zero.
    virtual std::int32_t setValue(const std::string& name, RegistryType type, const std::string& data) = 0;
};

class Registry {
public:
    virtual ~Registry() = default;

    /// `path` is the key below the hive, levels parted by "\", matched without regard to case; an empty level
    /// opens nothing, the empty path is the hive itself. On success `key` is the open key. The key answers
    /// only what `access` asked for, anything else with kRegistryAccessDenied; kKeySetValue on a store that
    /// can't be written fails here already.
    virtual std::int32_t openKey(Hive hive, const std::string& path, std::uint32_t access,
                                 std::unique_ptr<RegistryKey>& key) = 0;

    /// Opens the key, made with all its parents when it isn't there; what it may be used for is everything.
    virtual std::int32_t createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key) = 0;
};

} // namespace zorvo
