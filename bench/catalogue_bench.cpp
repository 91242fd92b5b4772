// How long the product status document takes on large generated machines, against the least that it could
// cost: each registry value read once, and libxml2 alone on each tree order file that is on the machine.
//
//   bench_catalogue [product years [editions]]
//
// 2000 product years by default, four to a product, once with the program's own tree order document alone and
// once with a copy for each year in eight editions. A larger number has no copies unless editions are given:
// they take the room of all their years.
//
// Exit code 1 when the document hasn't a node for every product year.

#include "base/XmlDocument.h"
#include "bench/GeneratedMachine.h"
#include "catalogue/catalogueState.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "platform/Platform.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/RegistryStore.h"
#include "tests/fakes/installFakePlatform.h"

#include <libxml/parser.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace zorvo {

namespace {

constexpr int kDefaultYears = 2000;
constexpr int kDefaultEditions = 8;
constexpr int kYearsPerProduct = 4;
constexpr int kRounds = 5;

double milliseconds(const std::function<void()>& work)
{
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count());
    }
    return best;
}

/// Each value opened and read once: the year's folders and the products' titles.
double bareRegistry(const GeneratedMachine& machine)
{
    return milliseconds([&] {
        for (const GeneratedMachine::Value& value : machine.registry) {
            std::unique_ptr<RegistryKey> key;
            std::string sData;
            RegistryType type{};
            if (platform().registry->openKey(value.hive, value.sKey, kKeyReadAccess, key) == kRegistrySuccess)
                key->queryValue(value.sName, kLargestRegistryValue, sData, type);
        }
    });
}

/// libxml2 alone, the bytes in memory.
double bareParse(const GeneratedMachine& machine)
{
    return milliseconds([&] {
        for (const GeneratedMachine::File& file : machine.files) {
            if (!file.sPath.ends_with("\\TreeOrder.xml"))
                continue;
            xmlFreeDoc(
                xmlReadMemory(file.bytes->data(), static_cast<int>(file.bytes->size()), nullptr, nullptr, 0));
        }
    });
}

/// Prints one row; false when a product year is missing.
bool measure(const char* store, const GeneratedMachine& machine)
{
    clsZorvoProductStatus status;
    std::string sText;
    const double treeOrder = milliseconds([&] { status.sGetTreeOrderXML(); });
    const double whole = milliseconds([&] {
        catalogueState() = CatalogueState();
        sText = status.sGetProductStatusXML();
    });
    XmlDocument document;
    document.loadXML(sText);
    const std::size_t nFound = document.selectNodes("//ProductRegistryNode").size();
    const double values = bareRegistry(machine);
    const double parse = bareParse(machine);
    std::printf("%-8s %7zu %7zu %10.2f %10.2f %10.2f %10.2f %8.2f\n", store, machine.nProductYears,
                machine.files.size() - 1, treeOrder, whole, values, parse, whole / (values + parse));
    if (nFound != machine.nProductYears)
        std::fprintf(stderr, "%zu of %zu product years are in the document\n", nFound, machine.nProductYears);
    return nFound == machine.nProductYears;
}

bool measureInMemory(const GeneratedMachineSize& size)
{
    const FakePlatform fakes = installFakePlatform();
    const GeneratedMachine machine = generateMachine(size, fakes.folders->sProgram);
    writeRegistry(machine);
    writeFiles(machine);
    return measure("memory", machine);
}

/// The registry in SQLite and the files on the disk, as on a user's machine.
bool measureOnDisk(const GeneratedMachineSize& size, const std::filesystem::path& folder)
{
    const FakePlatform fakes = installFakePlatform();
    const DosPaths paths((folder / "data").string());
    const auto store =
        std::make_shared<RegistryStore>((folder / "user.db").string(), (folder / "machine.db").string());
    platform().registry = store;
    platform().files = std::make_shared<LinuxFiles>(paths);
    fakes.folders->sProgram = paths.fromNative((folder / "program").string());
    const GeneratedMachine machine = generateMachine(size, fakes.folders->sProgram);
    std::vector<RegistryChange> changes;
    for (const GeneratedMachine::Value& value : machine.registry)
        changes.push_back({RegistryChange::Kind::setValue,
                           value.hive,
                           value.sKey,
                           {value.sName, RegistryType::string, value.sText + '\0'}});
    store->apply(changes); // at once: key by key each would wait for the disk
    writeFiles(machine);
    return measure("disk", machine);
}

bool measureOnDisk(const GeneratedMachineSize& size)
{
    std::string pattern = (std::filesystem::temp_directory_path() / "bench-catalogue-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    const bool bComplete = measureOnDisk(size, folder);
    std::filesystem::remove_all(folder);
    return bComplete;
}

} // namespace

} // namespace zorvo

int main(int argc, char** argv)
{
    using namespace zorvo;
    const int nYears = argc > 1 ? std::atoi(argv[1]) : kDefaultYears;
    GeneratedMachineSize size;
    size.nProducts = std::max(1, nYears / kYearsPerProduct);
    size.nYearsPerProduct = kYearsPerProduct;
    std::printf(
        "Best of %d, in milliseconds. The ratio is the status document's time to the sum of the last two:\n"
        "\"values\" reads each registry value once, \"parse\" is libxml2 alone on all tree order files.\n\n",
        kRounds);
    std::printf("%-8s %7s %7s %10s %10s %10s %10s %8s\n", "store", "years", "files", "treeorder", "status",
                "values", "parse", "ratio");
    bool bComplete = true;
    std::vector<int> editions = {0};
    if (argc != 2)
        editions.push_back(argc > 2 ? std::atoi(argv[2]) : kDefaultEditions);
    for (const int nEditions : editions) {
        size.nTreeOrderEditions = nEditions;
        bComplete = measureInMemory(size) && bComplete;
        bComplete = measureOnDisk(size) && bComplete;
    }
    return bComplete ? EXIT_SUCCESS : EXIT_FAILURE;
}
