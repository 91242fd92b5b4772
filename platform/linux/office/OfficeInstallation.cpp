#include "platform/linux/office/OfficeInstallation.h"

#include "base/RunTimeError.h"
#include "platform/linux/environmentFolders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

bool isProgramFolder(const std::string& folder)
{
    std::error_code ignored;
    return fs::is_regular_file(folder + "/soffice.bin", ignored);
}

std::vector<std::string> usualFolders()
{
    std::vector<std::string> folders;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator("/opt", ignored))
        if (entry.path().filename().string().starts_with("libreoffice"))
            folders.push_back(entry.path().string() + "/program");
    // The newest of those first, after the distribution's own.
    std::sort(folders.rbegin(), folders.rend());
    folders.insert(folders.begin(), {"/usr/lib/libreoffice/program", "/usr/lib64/libreoffice/program"});
    return folders;
}

std::string programFolder()
{
    const char* chosen = std::getenv("ZORVOBRENDLE_OFFICE_DIR");
    const std::vector<std::string> folders =
        chosen != nullptr && chosen[0] != '\0' ? std::vector<std::string>{chosen} : usualFolders();
    const auto found = std::find_if(folders.begin(), folders.end(), isProgramFolder);
    if (found == folders.end())
        throw RunTimeError(kCannotCreateObject,
                           "LibreOffice wasn't found on this computer. Documents are made with it: please "
                           "install the packages libreoffice-writer and libreoffice-calc.");
    return *found;
}

/// The value of a line "Key=value", or empty.
std::string setting(const std::string& file, const std::string& key)
{
    std::ifstream lines(file);
    std::string line;
    while (std::getline(lines, line))
        if (line.starts_with(key + "="))
            return line.substr(key.size() + 1);
    return {};
}

std::string userProfile(const std::string& programFolder)
{
    const std::string folder = setting(programFolder + "/bootstraprc", "UserInstallation");
    const std::string variable = "$SYSUSERCONFIG";
    return configHomeFolder() +
           (folder.starts_with(variable) ? folder.substr(variable.size()) : "/libreoffice/4");
}

void mustHavePart(const std::string& programFolder, OfficeDocumentKind kind)
{
    const bool bText = kind == OfficeDocumentKind::text;
    std::error_code ignored;
    if (fs::exists(programFolder + (bText ? "/libswlo.so" : "/libsclo.so"), ignored))
        return;
    const std::string part = bText ? "Writer" : "Calc";
    const std::string package = bText ? "libreoffice-writer" : "libreoffice-calc";
    throw RunTimeError(kCannotCreateObject,
                       "LibreOffice " + part + " wasn't found on this computer. Please install the package " +
                           package + ".");
}

} // namespace

OfficeInstallation findOffice(OfficeDocumentKind kind)
{
    OfficeInstallation office;
    office.sProgramFolder = programFolder();
    mustHavePart(office.sProgramFolder, kind);
    const std::string product = setting(office.sProgramFolder + "/bootstraprc", "ProductKey");
    office.sVersion = product.substr(product.rfind(' ') + 1);
    office.sBuild = setting(office.sProgramFolder + "/versionrc", "buildid");
    office.sUserProfile = userProfile(office.sProgramFolder);
    return office;
}

} // namespace zorvo
