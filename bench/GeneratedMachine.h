#pragma once

#include "platform/Registry.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

struct GeneratedMachineSize {
    /// Product keys, half of them below each group key, every tenth in the current user's hive.
    int nProducts = 500;
    int nYearsPerProduct = 4;
    int nDocumentsPerYear = 15;
    /// 0: no product year brings a tree order document. Otherwise each one does, in this many editions.
    int nTreeOrderEditions = 0;
};

/// What an installer would leave on a machine, of any size and always the same for the same size. Making it
/// writes nothing; `writeRegistry` and `writeFiles` do.
struct GeneratedMachine {
    struct Value {
        Hive hive = kHiveNone;
        std::string sKey;
        std::string sName;
        std::string sText;
    };
    struct File {
        std::string sPath;
        std::shared_ptr<const std::string> bytes; // copies of one document share it
    };

    std::vector<Value> registry;
    /// In the program folder: `TreeData\TreeOrder.xml`, `TreeData\Zorvo Library.xml`, and the products'
    /// folders.
    std::vector<File> files;
    std::size_t nProductYears = 0;
    std::size_t nDocuments = 0;
};

/// `sProgramFolder` is a backslash path without a closing backslash.
GeneratedMachine generateMachine(const GeneratedMachineSize& size, const std::string& sProgramFolder);

/// Through the installed ports. Throws RunTimeError when something can't be written.
void writeRegistry(const GeneratedMachine& machine);
void writeFiles(const GeneratedMachine& machine);

} // namespace zorvo
