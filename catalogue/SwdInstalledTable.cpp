#include "catalogue/SwdInstalledTable.h"

#include "base/RunTimeError.h"

#include <limits>

namespace zorvo {

namespace {
constexpr std::size_t kFirstRows = 2;
} // namespace

void SwdInstalledTable::setUp()
{
    if (bSWDInstalledInit)
        return;
    bSWDInstalledInit = true;
    SWDInstalledYears.assign(kFirstRows, {});
    SWDInstalledProducts.assign(kFirstRows, {});
    SWDInstalledCount = 0;
}

void SwdInstalledTable::writeRow(const std::string& sYear, const std::string& sProduct)
{
    const auto nRow = static_cast<std::size_t>(SWDInstalledCount);
    SWDInstalledYears.at(nRow) = sYear;
    SWDInstalledProducts.at(nRow) = sProduct;
}

void SwdInstalledTable::closeRow()
{
    if (SWDInstalledCount == std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(kOverflow);
    SWDInstalledYears.emplace_back();
    SWDInstalledProducts.emplace_back();
    ++SWDInstalledCount;
}

bool bIsLibraryProduct(const std::string& sProduct)
{
    return sProduct == "SablewoodLibrary" || sProduct == "SablewoodGovernment" ||
           sProduct == "SablewoodNonprofit";
}

} // namespace zorvo
