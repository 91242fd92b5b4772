// How long a start takes on large generated machines: the product status document and the tree, against the
// bare parse of the same files; and how long the selection document of a product takes, against a plain walk.
//
//   bench_tree [product years [documents per year]]      2000 and 50 by default
//
// Exit code 1 when the tree lacks a node, or when a limit is passed: 3 times the bare parse's time, 2.5 times
// its memory, 2 times the walk over the selected documents, 12 times the time for 10 times the work.

#include "base/XmlDocument.h"
#include "base/sessionState.h"
#include "bench/GeneratedMachine.h"
#include "catalogue/catalogueState.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/RegistryStore.h"
#include "tests/fakes/installFakePlatform.h"
#include "tree/LoadTree.h"
#include "tree/ProcessOK.h"
#include "tree/TreeWindow.h"
#include "tree/treeState.h"
#include "window/ListBarGroups.h"
#include "window/TreeNodes.h"

#include <libxml/parser.h>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <unordered_map>

namespace zorvo {

namespace {

constexpr int kYearsPerProduct = 4;
constexpr int kRounds = 5;

double processorMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Processor time, so that a busy machine doesn't change the picture; nothing here waits for long.
double milliseconds(const std::function<void()>& work)
{
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        malloc_trim(0); // each round begins like a new process
        const double start = processorMilliseconds();
        work();
        best = std::min(best, processorMilliseconds() - start);
    }
    return best;
}

struct Cost {
    double milliseconds = 0;
    long kilobytes = 0;
};

/// What the work costs a process of its own: processor time, and how much its peak of memory grows.
Cost costInOwnProcess(const std::function<void()>& work)
{
    malloc_trim(0); // else the child would find room in what was freed
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        rusage before{};
        getrusage(RUSAGE_SELF, &before);
        const double start = processorMilliseconds();
        work();
        Cost cost{.milliseconds = processorMilliseconds() - start};
        rusage after{};
        getrusage(RUSAGE_SELF, &after);
        cost.kilobytes = after.ru_maxrss - before.ru_maxrss;
        _exit(write(ends[1], &cost, sizeof cost) == sizeof cost ? 0 : 1);
    }
    Cost cost;
    const bool bRead = read(ends[0], &cost, sizeof cost) == sizeof cost;
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return bRead ? cost : Cost();
}

/// The best of several processes.
Cost bestInOwnProcess(const std::function<void()>& work)
{
    Cost best = costInOwnProcess(work);
    for (int round = 1; round < kRounds; ++round)
        best.milliseconds = std::min(best.milliseconds, costInOwnProcess(work).milliseconds);
    return best;
}

class SelectionWindow : public TreeWindow {
public:
    explicit SelectionWindow(TreeNodes& nodes)
        : nodes_(nodes)
    {
    }
    TreeNodes& tree() override { return nodes_; }
    void setNewDocumentEnabled(bool /*bEnabled*/) override {}
    void setDescription(const std::string& /*caption*/) override {}
    void unload() override {}

private:
    TreeNodes& nodes_;
};

/// A generated machine on the disk, installed as long as this lives.
class MachineOnDisk {
public:
    explicit MachineOnDisk(const GeneratedMachineSize& size)
        : folder_(makeFolder())
        , paths_((folder_ / "data").string())
    {
        const auto store = std::make_shared<RegistryStore>((folder_ / "user.db").string(),
                                                           (folder_ / "machine.db").string());
        platform().registry = store;
        platform().files = std::make_shared<LinuxFiles>(paths_);
        fakes_.folders->sProgram = paths_.fromNative((folder_ / "program").string());
        machine = generateMachine(size, fakes_.folders->sProgram);
        std::vector<RegistryChange> changes;
        for (const GeneratedMachine::Value& value : machine.registry)
            changes.push_back({RegistryChange::Kind::setValue,
                               value.hive,
                               value.sKey,
                               {value.sName, RegistryType::string, value.sText + '\0'}});
        store->apply(changes); // at once: key by key each would wait for the disk
        writeFiles(machine);
        sLibrary = fakes_.folders->sProgram + "\\TreeData\\Zorvo Library.xml";
    }
    ~MachineOnDisk() { std::filesystem::remove_all(folder_); }
    MachineOnDisk(const MachineOnDisk&) = delete;
    MachineOnDisk& operator=(const MachineOnDisk&) = delete;

    /// What a start reads, by libxml2 alone. Nothing is given back.
    void bareParse() const
    {
        for (const char* name : {"TreeOrder.xml", "Zorvo Library.xml"}) {
            const std::string sNative = (folder_ / "program" / "TreeData" / name).string();
            xmlReadFile(sNative.c_str(), nullptr, 0);
        }
    }

    static void freshState()
    {
        sessionState() = SessionState();
        sessionState().bShowCurrentOnly = false;
        treeState() = TreeState();
        catalogueState() = CatalogueState();
    }

    GeneratedMachine machine;
    std::string sLibrary;

private:
    static std::filesystem::path makeFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "bench-tree-XXXXXX").string();
        return mkdtemp(pattern.data());
    }

    FakePlatform fakes_;
    std::filesystem::path folder_;
    DosPaths paths_;
};

bool within(double value, double limit)
{
    return value <= limit;
}

struct Times {
    double load = 0;
    bool bGood = false;
};

/// Prints one row.
Times measureLoad(int nYears, int nDocumentsPerYear, bool bCurrentOnly)
{
    GeneratedMachineSize size;
    size.nProducts = std::max(1, nYears / kYearsPerProduct);
    size.nYearsPerProduct = kYearsPerProduct;
    size.nDocumentsPerYear = nDocumentsPerYear;
    const MachineOnDisk disk(size);
    MachineOnDisk::freshState();
    // Nothing is given back: a start isn't an end.
    const auto load = [&] {
        auto* tree = new TreeNodes;
        sessionState().bShowCurrentOnly = bCurrentOnly;
        LoadTree(*tree, new ListBarGroups, false, false);
        return tree->count();
    };
    const Cost bare = bestInOwnProcess([&] { disk.bareParse(); });
    const Cost start = bestInOwnProcess([&] { load(); });
    const Cost status = bestInOwnProcess([] { clsZorvoProductStatus().sGetProductStatusXML(); });
    const int nNodes = load();
    MachineOnDisk::freshState();
    const double ratio = start.milliseconds / bare.milliseconds;
    const double memoryRatio = static_cast<double>(start.kilobytes) / static_cast<double>(bare.kilobytes);
    std::printf("%-8s %6zu %8zu %8d %9.1f %9.1f %9.1f %7.2f %9.1f %9.1f %7.2f\n",
                bCurrentOnly ? "current" : "all", disk.machine.nProductYears, disk.machine.nDocuments, nNodes,
                status.milliseconds, start.milliseconds, bare.milliseconds, ratio,
                static_cast<double>(start.kilobytes) / 1024, static_cast<double>(bare.kilobytes) / 1024,
                memoryRatio);
    const bool bComplete = bCurrentOnly || nNodes > static_cast<int>(disk.machine.nDocuments);
    return {start.milliseconds, bComplete && within(ratio, 3.0) && within(memoryRatio, 2.5)};
}

/// The selection text of the same documents by the plainest walk with an index over the catalogue.
std::string plainWalk(const XmlDocument& library, const std::vector<TreeNode*>& selected)
{
    std::unordered_map<std::string, XmlNode> index;
    for (const XmlNode& document : library.selectNodes("Library/Product/Folder/Document"))
        index.emplace(document.attribute("Guid"), document);
    std::string sText;
    for (const TreeNode* node : selected) {
        const XmlNode& element = index[node->key().substr(0, node->key().find('`'))];
        sText += element.childText("Name") + element.childText("File");
    }
    return sText;
}

bool measureSelection(bool bOwnCopy)
{
    GeneratedMachineSize size;
    size.nProducts = 1;
    size.nYearsPerProduct = 1;
    size.nDocumentsPerYear = 1000;
    MachineOnDisk disk(size);
    if (bOwnCopy) {
        const std::string sFolder = disk.machine.registry.back().sText;
        std::filesystem::create_directories(platform().files->toNative(sFolder));
        platform().files->copy(disk.sLibrary, sFolder + "Zorvo Library.xml");
    }
    MachineOnDisk::freshState();
    TreeNodes tree;
    ListBarGroups listBar;
    LoadTree(tree, &listBar, false, false);
    for (int i = 1; i <= tree.count(); ++i)
        tree.setSelected(tree.item(i), tree.item(i).tag() == 3);
    SelectionWindow window(tree);
    const std::string sBytes = platform().files->read(disk.sLibrary);
    XmlDocument library;
    library.loadBytes(sBytes);
    const double walk = milliseconds([&] {
        if (bOwnCopy)
            library.loadBytes(sBytes);
        plainWalk(library, tree.selectedNodes());
    });
    const double first = milliseconds([&] {
        treeState().objLibraryDoc = std::make_shared<LibraryDocument>(library);
        ProcessOK(window);
    });
    const double again = milliseconds([&] { ProcessOK(window); });
    std::size_t nMade = 0;
    const std::string& sText = sessionState().sSelectedDocuments;
    for (auto nAt = sText.find("<Document>"); nAt != std::string::npos;
         nAt = sText.find("<Document>", nAt + 1))
        ++nMade;
    MachineOnDisk::freshState();
    std::printf("%-8s %6zu %9.2f %9.2f %9.2f %7.2f\n", bOwnCopy ? "own copy" : "central", nMade, walk, first,
                again, first / walk);
    return nMade == 1000 && within(first / walk, 2.0);
}

} // namespace

} // namespace zorvo

int main(int argc, char** argv)
{
    using namespace zorvo;
    const int nYears = argc > 1 ? std::atoi(argv[1]) : 2000;
    const int nDocumentsPerYear = argc > 2 ? std::atoi(argv[2]) : 50;
    std::printf("Best of %d, in milliseconds of processor time and megabytes. \"bare\" is libxml2 alone on "
                "the same files.\n\n",
                kRounds);
    std::printf("%-8s %6s %8s %8s %9s %9s %9s %7s %9s %9s %7s\n", "view", "years", "docs", "nodes", "status",
                "start", "bare", "ratio", "memory", "bare", "ratio");
    const Times small = measureLoad(nYears / 10, nDocumentsPerYear, false);
    const Times large = measureLoad(nYears, nDocumentsPerYear, false);
    const Times current = measureLoad(nYears, nDocumentsPerYear, true);
    std::printf("\n10 times the work takes %.1f times the time.\n\n", large.load / small.load);
    std::printf("%-8s %6s %9s %9s %9s %7s\n", "select", "docs", "walk", "first", "again", "ratio");
    const bool bCentral = measureSelection(false);
    const bool bOwn = measureSelection(true);
    const bool bGood = large.bGood && current.bGood && large.load <= 12 * small.load && bCentral && bOwn;
    return bGood ? EXIT_SUCCESS : EXIT_FAILURE;
}
