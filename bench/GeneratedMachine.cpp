#include "bench/GeneratedMachine.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

#include <array>
#include <cstdio>
#include <set>

namespace zorvo {

namespace {

constexpr int kFirstYear = 2003; // the year 2002 is registered in a way of its own
constexpr int kProductsPerGroup = 25;
constexpr int kProductsOfNestedGroup = 5;
constexpr int kDocumentsPerFolder = 5;

std::string numbered(const char* text, int number)
{
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%s%05d", text, number);
    return buffer.data();
}

struct Product {
    int nNumber;
    std::string sKey;
    bool bLibrary;

    std::string sGroup() const { return nNumber % 2 == 0 ? "Tessora" : "Quillbook"; }
    std::string sYear(int n) const { return std::to_string(kFirstYear + n) + (bLibrary ? "1101" : ""); }
};

std::vector<Product> makeProducts(int nCount)
{
    constexpr std::array<const char*, 3> kLibraries = {"SablewoodLibrary", "SablewoodGovernment",
                                                       "SablewoodNonprofit"};
    std::vector<Product> products;
    for (int n = 0; n < nCount; ++n) {
        const bool bLibrary = static_cast<std::size_t>(n) < kLibraries.size();
        products.push_back(
            {n, bLibrary ? kLibraries[static_cast<std::size_t>(n)] : numbered("PRD", n), bLibrary});
    }
    return products;
}

std::string yearFolder(const std::string& sProgramFolder, const Product& product, int nYear)
{
    return sProgramFolder + "\\Products\\" + product.sKey + "\\" + product.sYear(nYear) + "\\";
}

void addRegistry(const Product& product, int nYears, const std::string& sProgramFolder,
                 GeneratedMachine& machine)
{
    const Hive hive = product.nNumber % 10 == 9 ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    const std::string sKey = "Software\\Zorvo\\" + product.sGroup() + "\\" + product.sKey;
    machine.registry.push_back({hive, sKey, "Title", numbered("Generated Product ", product.nNumber)});
    for (int n = 0; n < nYears; ++n) {
        std::string sYearKey = sKey;
        sYearKey.append("\\").append(product.sYear(n)).append("\\InstallDefaults");
        machine.registry.push_back({hive, sYearKey, "AppPath2", yearFolder(sProgramFolder, product, n)});
    }
}

std::string groupStart(const std::string& sTitle)
{
    return "<ProductTreeGroup TreeTitle=\"" + sTitle + "\" TreeTitleShort=\"" + sTitle +
           "\" IconLarge=\"Zorvo32.ico\" IconSmall=\"Zorvo16.ico\">\n";
}

std::string treeOrder(const std::vector<Product>& products, int nEdition)
{
    std::string sText = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<ZorvoTree Version=\"" +
                        std::to_string(nEdition) + "\">\n";
    const int nCount = static_cast<int>(products.size());
    for (int n = 0; n < nCount; ++n) {
        const int nInGroup = n % kProductsPerGroup;
        const int nGroup = n / kProductsPerGroup;
        if (nInGroup == 0)
            sText += groupStart(numbered("Group ", nGroup)) + groupStart(numbered("Nested group ", nGroup));
        const std::string sKey = products[static_cast<std::size_t>(n)].sKey;
        sText.append("<Acronymn numProdClassID=\"").append(std::to_string(1000 + n));
        sText.append("\" Name=\"Offering ").append(sKey).append("\">").append(sKey).append("</Acronymn>\n");
        const bool bLast = n + 1 == nCount;
        if (nInGroup + 1 == kProductsOfNestedGroup || (bLast && nInGroup < kProductsOfNestedGroup))
            sText += "</ProductTreeGroup>\n";
        if (nInGroup + 1 == kProductsPerGroup || bLast)
            sText += "</ProductTreeGroup>\n";
    }
    return sText + "</ZorvoTree>\n";
}

class LibraryWriter {
public:
    LibraryWriter(int nDocuments, GeneratedMachine& machine)
        : nDocuments_(nDocuments)
        , machine_(machine)
    {
    }

    void addYear(const Product& product, int nYear)
    {
        sText_ += "<Product Acronym=\"" + product.sKey + "\" Year=\"" + product.sYear(nYear) +
                  "\" Type=\"GEN\" Guid=\"" + guid() + "\">\n<Name>" +
                  numbered("Generated Product ", product.nNumber) + "</Name>\n";
        for (int n = 0; n < nDocuments_; ++n) {
            if (n % kDocumentsPerFolder == 0)
                sText_ += "<Folder Guid=\"" + guid() + "\">\n<Name>" +
                          numbered("Chapter ", n / kDocumentsPerFolder) + "</Name>\n";
            addDocument(n);
            if ((n + 1) % kDocumentsPerFolder == 0 || n + 1 == nDocuments_)
                sText_ += "</Folder>\n";
        }
        sText_ += "</Product>\n";
    }

    std::string text() const
    {
        return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Library>\n" + sText_ + "</Library>\n";
    }

private:
    std::string guid()
    {
        std::array<char, 64> buffer{};
        std::snprintf(buffer.data(), buffer.size(), "{6D1C3B52-0000-4000-8000-%012d}", nNextGuid_++);
        return buffer.data();
    }

    void addDocument(int n)
    {
        sText_ += "<Document Guid=\"" + guid() + "\">\n<Name>" + numbered("Working paper ", n) +
                  "</Name>\n<File>" + numbered("Paper", n) + (n % 3 == 2 ? ".xlt" : ".dot") +
                  "</File>\n<Desc>" + numbered("What working paper ", n) +
                  " is for, when it is filled in, and who signs it &amp; files it.</Desc>\n</Document>\n";
        ++machine_.nDocuments;
    }

    int nDocuments_;
    GeneratedMachine& machine_;
    int nNextGuid_ = 0;
    std::string sText_;
};

} // namespace

GeneratedMachine generateMachine(const GeneratedMachineSize& size, const std::string& sProgramFolder)
{
    GeneratedMachine machine;
    const std::vector<Product> products = makeProducts(size.nProducts);
    std::vector<std::shared_ptr<const std::string>> editions;
    for (int n = 1; n <= size.nTreeOrderEditions; ++n)
        editions.push_back(std::make_shared<std::string>(treeOrder(products, n)));

    LibraryWriter library(size.nDocumentsPerYear, machine);
    for (const Product& product : products) {
        addRegistry(product, size.nYearsPerProduct, sProgramFolder, machine);
        for (int n = 0; n < size.nYearsPerProduct; ++n) {
            library.addYear(product, n);
            if (!editions.empty())
                machine.files.push_back({yearFolder(sProgramFolder, product, n) + "TreeOrder.xml",
                                         editions[machine.nProductYears % editions.size()]});
            ++machine.nProductYears;
        }
    }
    const std::string sTreeData = sProgramFolder + "\\TreeData\\";
    machine.files.push_back(
        {sTreeData + "TreeOrder.xml", std::make_shared<std::string>(treeOrder(products, 0))});
    machine.files.push_back({sTreeData + "Zorvo Library.xml", std::make_shared<std::string>(library.text())});
    return machine;
}

void writeRegistry(const GeneratedMachine& machine)
{
    for (const GeneratedMachine::Value& value : machine.registry) {
        std::unique_ptr<RegistryKey> key;
        if (platform().registry->createKey(value.hive, value.sKey, key) != kRegistrySuccess ||
            key->setValue(value.sName, RegistryType::string, value.sText + '\0') != kRegistrySuccess)
            throw RunTimeError(kPathOrFileAccess, "Can't write the registry key " + value.sKey);
    }
}

void writeFiles(const GeneratedMachine& machine)
{
    std::set<std::string> made;
    for (const GeneratedMachine::File& file : machine.files) {
        const std::string sFolder = sGetFilePath(file.sPath);
        if (made.insert(sFolder).second)
            MakeNestedFolder(sFolder);
        platform().files->write(file.sPath, *file.bytes);
    }
}

} // namespace zorvo
