#include "platform/linux/RegistryFile.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/RegistryStore.h"
#include "platform/linux/RegistryText.h"
#include "platform/linux/RegistryTextWriter.h"
#include "platform/registryNames.h"

namespace zorvo {

namespace {

std::string below(const std::string& sPath, const std::string& sName)
{
    std::string sBelow = sPath;
    sBelow.append(sPath.empty() ? "" : "\\").append(sName);
    return sBelow;
}

void writeKey(RegistryStore& store, Hive hive, const std::string& sPath, RegistryTextWriter& writer)
{
    writer.key(sPath.empty() ? registryHiveName(hive) : below(registryHiveName(hive), sPath));
    for (const RegistryValue& value : store.values(hive, sPath))
        writer.value(value);
    for (const std::string& sName : store.subKeys(hive, sPath))
        writeKey(store, hive, below(sPath, sName), writer);
}

/// The path of a key that is there, as it was spelled when it was made.
std::string storedSpelling(RegistryStore& store, const RegistryPlace& place)
{
    std::string sPath;
    const auto levels = registryLevels(place.sPath);
    for (const std::string& sLevel : levels.value())
        for (const std::string& sName : store.subKeys(place.hive, sPath))
            if (equalNoCase(sName, sLevel)) {
                sPath = below(sPath, sName);
                break;
            }
    return sPath;
}

} // namespace

void importRegistryText(RegistryStore& store, std::string_view bytes)
{
    store.apply(parseRegistryText(bytes));
}

std::string exportRegistryKey(RegistryStore& store, const std::string& sFullKey, RegistryTextForm form)
{
    const auto place = registryPlace(sFullKey);
    if (!place)
        throw RunTimeError(kInvalidCall, "That is no registry key.");
    const RegistryStore::Snapshot snapshot(store);
    if (!store.hasKey(place->hive, place->sPath))
        throw RunTimeError(kFileNotFound, "There is no such registry key.");
    RegistryTextWriter writer;
    writeKey(store, place->hive, storedSpelling(store, *place), writer);
    return form == RegistryTextForm::utf16 ? writer.utf16() : writer.text();
}

} // namespace zorvo
