#include "client/RegistryCommand.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "client/registryData.h"
#include "platform/linux/RegistryFile.h"
#include "platform/linux/RegistryStore.h"
#include "platform/linux/nativeFiles.h"
#include "platform/registryNames.h"

#include <algorithm>
#include <optional>

namespace zorvo {

namespace {

constexpr const char* kUsage = "usage: brendle registry import FILE.reg | export KEY [FILE.reg] | list KEY | "
                               "get KEY [VALUE] | set KEY VALUE DATA [--type TYPE] | delete KEY [VALUE]";
constexpr std::size_t kLargestFile = 256U << 20U;

/// The operands of a subcommand and the type that was asked for.
struct Call {
    std::vector<std::string> operands;
    RegistryType type = RegistryType::string;
    bool bTyped = false;
};

std::optional<Call> readCall(const std::vector<std::string>& args)
{
    constexpr std::string_view kType = "--type";
    Call call;
    bool bOptions = true;
    for (std::size_t at = 1; at < args.size(); ++at) {
        if (bOptions && args[at] == "--") {
            bOptions = false;
            continue;
        }
        if (!bOptions || !args[at].starts_with(kType)) {
            call.operands.push_back(args[at]);
            continue;
        }
        std::string sName = args[at].substr(kType.size());
        if (sName.empty() && at + 1 < args.size())
            sName = '=' + args[++at];
        const auto type = sName.starts_with('=') ? registryTypeOfName(sName.substr(1)) : std::nullopt;
        if (!type)
            return std::nullopt;
        call.type = *type;
        call.bTyped = true;
    }
    return call;
}

RegistryPlace requiredPlace(const std::string& sKey)
{
    const auto place = registryPlace(sKey);
    if (!place)
        throw RunTimeError(kInvalidCall, sKey + " is no registry key.");
    return *place;
}

RegistryPlace existingPlace(RegistryStore& store, const std::string& sKey)
{
    RegistryPlace place = requiredPlace(sKey);
    if (!store.hasKey(place.hive, place.sPath))
        throw RunTimeError(kFileNotFound, "There is no registry key " + sKey + '.');
    return place;
}

RegistryValue existingValue(RegistryStore& store, const RegistryPlace& place, const std::string& sName)
{
    for (RegistryValue& value : store.values(place.hive, place.sPath))
        if (equalNoCase(value.sName, sName))
            return std::move(value);
    throw RunTimeError(kFileNotFound, sName.empty() ? "The key has no default value."
                                                    : "The key has no value " + sName + '.');
}

/// A failure about a file, with the file's name.
template <typename Work>
auto about(const std::string& file, Work work)
{
    try {
        return work();
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.number(), file + ": " + error.description());
    }
}

void importFile(RegistryStore& store, const Call& call, std::ostream& /*out*/)
{
    const std::string& file = call.operands[0];
    about(file, [&] { importRegistryText(store, readWholeFile(file, kLargestFile)); });
}

void exportKey(RegistryStore& store, const Call& call, std::ostream& out)
{
    const std::string& sKey = call.operands[0];
    existingPlace(store, sKey);
    if (call.operands.size() == 1) {
        out << exportRegistryKey(store, sKey, RegistryTextForm::utf8);
        return;
    }
    const std::string& file = call.operands[1];
    about(file, [&] { replaceFile(file, 0666, exportRegistryKey(store, sKey, RegistryTextForm::utf16)); });
}

void listKey(RegistryStore& store, const Call& call, std::ostream& out)
{
    const RegistryPlace place = existingPlace(store, call.operands[0]);
    for (const std::string& sName : store.subKeys(place.hive, place.sPath))
        out << sName << "\\\n";
    for (const RegistryValue& value : store.values(place.hive, place.sPath))
        out << (value.sName.empty() ? "@" : value.sName) << '\t' << registryTypeName(value.type) << '\t'
            << registryDataToText(value.type, value.sData, RegistryTextLayout::oneLine) << '\n';
}

void getValue(RegistryStore& store, const Call& call, std::ostream& out)
{
    const RegistryPlace place = existingPlace(store, call.operands[0]);
    const RegistryValue value = existingValue(store, place, call.operands.size() > 1 ? call.operands[1] : "");
    out << registryDataToText(value.type, value.sData, RegistryTextLayout::lines) << '\n';
}

void setValue(RegistryStore& store, const Call& call, std::ostream& /*out*/)
{
    const RegistryPlace place = requiredPlace(call.operands[0]);
    const auto data = registryDataFromText(call.type, call.operands[2]);
    if (!data)
        throw RunTimeError(kTypeMismatch, call.operands[2] + " is no " + registryTypeName(call.type) + '.');
    store.apply(
        {{RegistryChange::Kind::setValue, place.hive, place.sPath, {call.operands[1], call.type, *data}}});
}

void deleteKeyOrValue(RegistryStore& store, const Call& call, std::ostream& /*out*/)
{
    const RegistryPlace place = existingPlace(store, call.operands[0]);
    if (call.operands.size() == 1) {
        store.apply({{RegistryChange::Kind::deleteKey, place.hive, place.sPath, {}}});
        return;
    }
    const RegistryValue value = existingValue(store, place, call.operands[1]);
    store.apply({{RegistryChange::Kind::deleteValue, place.hive, place.sPath, value}});
}

struct Subcommand {
    const char* name;
    std::size_t fewest;
    std::size_t most;
    bool bTakesType;
    void (*run)(RegistryStore&, const Call&, std::ostream&);
};

constexpr Subcommand kSubcommands[] = {
    {"import", 1, 1, false, importFile}, {"export", 1, 2, false, exportKey},
    {"list", 1, 1, false, listKey},      {"get", 1, 2, false, getValue},
    {"set", 3, 3, true, setValue},       {"delete", 1, 2, false, deleteKeyOrValue},
};

const Subcommand* subcommandOf(const std::vector<std::string>& args, const std::optional<Call>& call)
{
    if (args.empty() || !call)
        return nullptr;
    for (const Subcommand& row : kSubcommands) {
        const std::size_t count = call->operands.size();
        if (args[0] == row.name && count >= row.fewest && count <= row.most &&
            (!call->bTyped || row.bTakesType))
            return &row;
    }
    return nullptr;
}

} // namespace

int runRegistryCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const std::optional<Call> call = readCall(args);
    const Subcommand* subcommand = subcommandOf(args, call);
    if (subcommand == nullptr) {
        err << kUsage << '\n';
        return kExitWrongUsage;
    }
    try {
        RegistryStore store;
        subcommand->run(store, *call, out);
        return kExitDone;
    } catch (const RunTimeError& error) {
        err << oneLine(error.description()) << '\n';
        return kExitFailed;
    }
}

} // namespace zorvo
