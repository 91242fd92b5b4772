#include "companions/referenceLocation.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <QFileDialog>

namespace zorvo {

namespace {
constexpr const char* kKey = "Software\\Zorvo\\Reference";
constexpr const char* kValue = "Location";
constexpr std::size_t kValueCapacity = 4096;
} // namespace

std::string storedReferenceLocation(Registry& registry)
{
    std::unique_ptr<RegistryKey> key;
    std::string sData;
    RegistryType type{};
    if (registry.openKey(HKEY_CURRENT_USER, kKey, kKeyQueryValue, key) != kRegistrySuccess ||
        key->queryValue(kValue, kValueCapacity, sData, type) != kRegistrySuccess)
        return {};
    return cutAtNull(sData);
}

void storeReferenceLocation(Registry& registry, const std::string& sFolder)
{
    std::unique_ptr<RegistryKey> key;
    if (registry.createKey(HKEY_CURRENT_USER, kKey, key) != kRegistrySuccess ||
        key->setValue(kValue, RegistryType::string, sFolder + '\0') != kRegistrySuccess)
        throw RunTimeError(kPathOrFileAccess);
}

void chooseReferenceLocation(Registry& registry, Files& files)
{
    const std::string sStored = storedReferenceLocation(registry);
    const QString start = sStored.empty() ? QString() : QString::fromStdString(files.toNative(sStored));
    const QString chosen = QFileDialog::getExistingDirectory(
        nullptr, QStringLiteral("Location of reference material"), start, QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty())
        storeReferenceLocation(registry, files.fromNative(chosen.toStdString()));
}

} // namespace zorvo
