#pragma once

#include <string>
#include <string_view>

/// Registry text files against the store.
namespace zorvo {

class RegistryStore;

/// Applies a text (RegistryText.h). The whole text is read before anything is changed, and the changes are
/// made together: on any failure the store is as it was. Throws RunTimeError: 5 with "line 12: ..." for a
/// damaged text, else as the store says.
void importRegistryText(RegistryStore& store, std::string_view bytes);

enum class RegistryTextForm { utf8, utf16 };

/// The key and all below it, as they are at one moment. Throws RunTimeError 5 for a text that is no key, 53
/// for a key that isn't there.
std::string exportRegistryKey(RegistryStore& store, const std::string& sFullKey, RegistryTextForm form);

} // namespace zorvo
