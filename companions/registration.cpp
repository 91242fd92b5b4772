#include "companions/registration.h"

#include "base/text.h"
#include "companions/classIds.h"

#include <filesystem>
#include <optional>
#include <unistd.h>

namespace zorvo {

namespace {

constexpr std::size_t kValueCapacity = 4096;
constexpr const char* kServerExecutable = "ServerExecutable";
constexpr const char* kAddInLibrary = "libzorvo-addin.so";

std::string classKey(const std::string& sClassId)
{
    return "CLSID\\" + sClassId;
}

std::string serverKey(const std::string& sClassId)
{
    return classKey(sClassId) + "\\LocalServer32";
}

/// What the office loads lies with the libraries of the program, in a build tree and in an installation.
std::string addInLibrary(const std::string& sExecutable)
{
    namespace fs = std::filesystem;
    const fs::path programs = fs::path(sExecutable).parent_path();
    std::error_code ignored;
    for (const fs::path& folder : {programs / "../lib", programs / ".." / ZORVO_INSTALLED_LIB_FOLDER,
                                   programs / "../lib/zorvobrendle"})
        if (fs::exists(folder / kAddInLibrary, ignored))
            return fs::weakly_canonical(folder / kAddInLibrary, ignored).string();
    return {};
}

std::string officeKey(const std::string& sClassId)
{
    return classKey(sClassId) + "\\InprocServer32";
}

std::string progIdKey(const RegisteredClass& registered)
{
    return std::string(registered.progId) + "\\CLSID";
}

/// The value as text; nothing when it isn't there.
std::optional<std::string> text(RegistryStore& registry, const std::string& sKey, const std::string& sName)
{
    std::unique_ptr<RegistryKey> key;
    std::string sData;
    RegistryType type{};
    if (registry.openKey(HKEY_CLASSES_ROOT, sKey, kKeyQueryValue, key) != kRegistrySuccess ||
        key->queryValue(sName, kValueCapacity, sData, type) != kRegistrySuccess)
        return {};
    return cutAtNull(sData);
}

/// The class id that is registered for the class now, which need not be ours.
std::optional<std::string> currentClassId(RegistryStore& registry, const RegisteredClass& registered)
{
    if (*registered.progId == '\0')
        return registered.classId;
    return text(registry, progIdKey(registered), {});
}

RegistryChange textValue(const std::string& sKey, const std::string& sName, const std::string& sText)
{
    return {
        RegistryChange::Kind::setValue, HKEY_CLASSES_ROOT, sKey, {sName, RegistryType::string, sText + '\0'}};
}

void addRegistration(std::vector<RegistryChange>& changes, const RegisteredClass& registered,
                     const std::string& sExecutable)
{
    if (*registered.progId != '\0') {
        changes.push_back(textValue(registered.progId, {}, registered.description));
        changes.push_back(textValue(progIdKey(registered), {}, registered.classId));
    }
    changes.push_back(textValue(classKey(registered.classId), {}, registered.description));
    changes.push_back(textValue(serverKey(registered.classId), {}, kCompanionsBusName));
    changes.push_back(textValue(serverKey(registered.classId), kServerExecutable, sExecutable));
    const std::string sLibrary = registered.bInsideOffice ? addInLibrary(sExecutable) : std::string();
    if (!sLibrary.empty())
        changes.push_back(textValue(officeKey(registered.classId), {}, sLibrary));
}

bool isMissing(RegistryStore& registry, const RegisteredClass& registered)
{
    const auto classId = currentClassId(registry, registered);
    if (!classId)
        return true;
    const auto server = text(registry, serverKey(*classId), {});
    if (!server)
        return true;
    if (*server != kCompanionsBusName)
        return false;
    const std::string sExecutable =
        text(registry, serverKey(*classId), kServerExecutable).value_or(std::string());
    const std::string sLibrary = text(registry, officeKey(*classId), {}).value_or(std::string());
    return access(sExecutable.c_str(), X_OK) != 0 ||
           (registered.bInsideOffice && access(sLibrary.c_str(), R_OK) != 0);
}

void addDeletion(std::vector<RegistryChange>& changes, const std::string& sKey)
{
    changes.push_back({RegistryChange::Kind::deleteKey, HKEY_CLASSES_ROOT, sKey, {}});
}

} // namespace

void registerCompanions(RegistryStore& registry, const std::string& sExecutable)
{
    std::vector<RegistryChange> changes;
    for (const RegisteredClass& registered : kRegisteredClasses)
        addRegistration(changes, registered, sExecutable);
    registry.apply(changes);
}

void registerMissingCompanions(RegistryStore& registry, const std::string& sExecutable)
{
    std::vector<RegistryChange> changes;
    for (const RegisteredClass& registered : kRegisteredClasses)
        if (isMissing(registry, registered))
            addRegistration(changes, registered, sExecutable);
    if (!changes.empty())
        registry.apply(changes);
}

void unregisterCompanions(RegistryStore& registry)
{
    std::vector<RegistryChange> changes;
    for (const RegisteredClass& registered : kRegisteredClasses) {
        if (text(registry, serverKey(registered.classId), {}) == std::string(kCompanionsBusName))
            addDeletion(changes, classKey(registered.classId));
        if (*registered.progId != '\0' && currentClassId(registry, registered) == registered.classId)
            addDeletion(changes, registered.progId);
    }
    if (!changes.empty())
        registry.apply(changes);
}

} // namespace zorvo
