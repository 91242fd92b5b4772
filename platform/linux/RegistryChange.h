#pragma once

#include "platform/Registry.h"

#include <string>
#include <vector>

namespace zorvo {

/// A value with its name as spelled and its bytes as stored.
struct RegistryValue {
    std::string sName;
    RegistryType type = RegistryType::none;
    std::string sData;
};

/// The types whose bytes are text: UTF-8 in the store, UTF-16 elsewhere.
inline bool isTextType(RegistryType type)
{
    return type == RegistryType::string || type == RegistryType::expandString ||
           type == RegistryType::multiString;
}

/// One change of the registry; several are made together or not at all.
struct RegistryChange {
    enum class Kind { makeKey, deleteKey, setValue, deleteValue };

    Kind kind = Kind::makeKey;
    Hive hive = kHiveNone;
    std::string sPath;
    /// For the two kinds about values; a deletion needs the name alone.
    RegistryValue value;
};

} // namespace zorvo
