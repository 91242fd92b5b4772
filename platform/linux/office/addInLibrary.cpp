#include "platform/linux/office/addInLibrary.h"

#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"

namespace zorvo {

namespace {

constexpr std::size_t kValueCapacity = 4096;

std::string defaultValueOf(const std::string& sKey)
{
    std::unique_ptr<RegistryKey> key;
    std::string sData;
    RegistryType type{};
    if (platform().registry->openKey(HKEY_CLASSES_ROOT, sKey, kKeyQueryValue, key) != kRegistrySuccess ||
        key->queryValue({}, kValueCapacity, sData, type) != kRegistrySuccess)
        return {};
    return cutAtNull(sData);
}

} // namespace

std::string addInLibraryOf(const std::string& sProgId)
{
    const std::string sClassId = defaultValueOf(sProgId + "\\CLSID");
    if (sClassId.empty())
        return {};
    const std::string sLibrary = defaultValueOf("CLSID\\" + sClassId + "\\InprocServer32");
    // A native path stands there as it is.
    return sLibrary.empty() || sLibrary.starts_with("/") ? sLibrary : platform().files->toNative(sLibrary);
}

} // namespace zorvo
