#include "search/SWDSearchSupport.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "branding/BrandedMsgBox.h"
#include "catalogue/InstallInfo.h"
#include "catalogue/catalogueState.h"
#include "platform/Machine.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "platform/xmlFiles.h"
#include "search/searchState.h"
#include "window/messageBox.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace zorvo {

namespace {

constexpr double kOldestExcel = 9;
constexpr std::int32_t kFirstYear = 2002;
/// The one edition year that was installed for a user instead of for the machine.
constexpr std::int32_t kYearOfUsers = 2003;
/// Editions whose version may be known from the scan of the registry, of the editions there is room for.
constexpr std::size_t kEditionsScanned = 3;
constexpr std::size_t kMostEditions = 4;
/// A longer name than a year's is a version of its own, which no walk over the years would find.
constexpr std::size_t kYearLength = 4;

using KnownVersions = std::array<std::optional<std::string>, kMostEditions>;

void sizeTables(std::size_t nEditions)
{
    if (nEditions > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
        throw RunTimeError(kOverflow);
    SearchState& state = searchState();
    state.nSWDCount = static_cast<std::int16_t>(nEditions);
    for (auto* table : {&state.sSWDID, &state.sSWDTitle, &state.sSWDName, &state.sSWDRdfExt,
                        &state.sSWDTemplate, &state.sSWDPath, &state.sSWDVersion})
        table->assign(nEditions + 1, {});
    state.bSWDInstalled.assign(nEditions + 1, false);
}

void readEditions(const std::vector<XmlNode>& products)
{
    SearchState& state = searchState();
    for (std::size_t i = 0; i < products.size(); ++i) {
        state.sSWDName[i] = trimBlanks(products[i].childText("name"));
        state.sSWDID[i] = trimBlanks(products[i].childText("ID"));
        state.sSWDTitle[i] = trimBlanks(products[i].childText("title"));
        state.sSWDRdfExt[i] = trimBlanks(products[i].childText("rdfExt"));
        state.sSWDTemplate[i] = trimBlanks(products[i].childText("template"));
    }
}

/// The last row of an edition counts.
KnownVersions knownVersions()
{
    KnownVersions known;
    const SwdInstalledTable& table = catalogueState().swdInstalled;
    const SearchState& state = searchState();
    const std::size_t nEditions = std::min(kEditionsScanned, state.sSWDID.size());
    for (std::size_t j = 0; j < static_cast<std::size_t>(table.SWDInstalledCount); ++j) {
        if (characterCount(table.SWDInstalledYears[j]) <= kYearLength)
            continue;
        for (std::size_t e = 0; e < nEditions; ++e) {
            if (table.SWDInstalledProducts[j] == state.sSWDID[e])
                known[e] = table.SWDInstalledYears[j];
        }
    }
    return known;
}

class EditionFinder {
public:
    EditionFinder(const LibrarySources& sources, std::string sGroup)
        : sources_(sources)
        , sGroup_(std::move(sGroup))
    {
    }

    void findVersion(std::size_t i, const std::string& sVersion, Hive hHive) const
    {
        SearchState& state = searchState();
        bool bInstalled = false;
        sources_.GetQBKInfo(state.sSWDID[i], sGroup_, sVersion, bInstalled, state.sSWDPath[i], hHive);
        state.bSWDInstalled[i] = bInstalled;
        if (bInstalled)
            state.sSWDVersion[i] = sVersion;
    }

    /// The newest year that is there.
    void walkYears(std::size_t i) const
    {
        for (std::int32_t nYear = sources_.nYear; nYear >= kFirstYear && !searchState().bSWDInstalled[i];
             --nYear)
            findVersion(i, std::to_string(nYear),
                        nYear == kYearOfUsers ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE);
    }

private:
    const LibrarySources& sources_;
    std::string sGroup_;
};

void findEditions(const LibrarySources& sources, const std::string& sGroup)
{
    const EditionFinder finder(sources, sGroup);
    const KnownVersions known = knownVersions();
    const auto nEditions = static_cast<std::size_t>(searchState().nSWDCount);
    for (std::size_t i = 0; i < nEditions; ++i) {
        if (i >= known.size())
            throw RunTimeError(kIndexOutOfRange);
        if (known[i])
            finder.findVersion(i, *known[i], HKEY_LOCAL_MACHINE);
        else
            finder.walkYears(i);
    }
}

void listEditions(std::vector<std::string>& sList, std::int16_t& nCount)
{
    nCount = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(searchState().nSWDCount); ++i) {
        if (!searchState().bSWDInstalled[i])
            continue;
        const auto nEntry = static_cast<std::size_t>(nCount++);
        if (nEntry >= sList.size())
            sList.resize(nEntry + 1);
        sList[nEntry] = sLibraryText(i);
    }
}

} // namespace

bool bExcelIsRecentEnough()
{
    const double nVersion = leadingNumber(platform().office->createExcel()->version());
    if (nVersion >= kOldestExcel)
        return true;
    BrandedMsgBox("This feature requires Excel 9.0 or later. You are using Excel " + numberText(nVersion) +
                      ".    ",
                  kMsgCritical, {}, {}, {}, kLibraryTitleSuffix);
    return false;
}

void LoadLibraries(std::vector<std::string>& sList, std::int16_t& nCount, bool& bFound, bool bCheckOnly)
{
    nCount = 0;
    if (!bExcelIsRecentEnough())
        return;
    const LibrarySources sources{.nYear = platform().machine->now().year,
                                 .index = loadXmlFile(GetZorvoPath(true) + "TreeData\\SWDXML.xml"),
                                 .GetQBKInfo = GetQBKInfo};
    LoadLibrariesFrom(sources, sList, nCount, bFound, bCheckOnly);
}

void LoadLibrariesFrom(const LibrarySources& sources, std::vector<std::string>& sList, std::int16_t& nCount,
                       bool& bFound, bool bCheckOnly)
{
    const XmlNode root = sources.index.selectSingleNode("SWDInformation");
    const std::string sGroup = trimBlanks(root.attribute("group"));
    const std::vector<XmlNode> products = root.childElements("Product");
    sizeTables(products.size());
    readEditions(products);
    findEditions(sources, sGroup);

    const std::vector<bool>& bInstalled = searchState().bSWDInstalled;
    const bool bAny = std::find(bInstalled.begin(), bInstalled.end(), true) != bInstalled.end();
    if (bCheckOnly) {
        bFound = bAny;
        return;
    }
    if (bAny)
        bFound = true;
    listEditions(sList, nCount);
}

std::string sLibraryText(std::size_t i)
{
    return searchState().sSWDName[i] + " " + searchState().sSWDVersion[i];
}

} // namespace zorvo
