#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// The years of the three library products that the scans of this process met. A row is never taken out: a
/// second scan of a product adds its rows again. The arrays are longer than the count; only rows 0 to
/// `SWDInstalledCount` - 1 are filled, and those of an unnamed year hold two empty texts.
struct SwdInstalledTable {
    bool bSWDInstalledInit = false;
    std::int16_t SWDInstalledCount = 0;
    std::vector<std::string> SWDInstalledYears;
    std::vector<std::string> SWDInstalledProducts;

    /// Sets the table up once in its life; later calls change nothing.
    void setUp();
    /// Writes the row behind the last one, which `closeRow` then makes count.
    void writeRow(const std::string& sYear, const std::string& sProduct);
    /// Counts the row and makes room for the next. Throws RunTimeError 6 past 32767 rows.
    void closeRow();
};

/// The product key is one of the three libraries, to the letter.
bool bIsLibraryProduct(const std::string& sProduct);

} // namespace zorvo
