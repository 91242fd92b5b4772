#pragma once

#include <string>

namespace zorvo {

/// The text of a product's node needs its year: all products of three groups are told apart by it, and
/// evaluation editions everywhere. Both texts are compared without regard to case.
bool bNeedsYearLabel(const std::string& sGroupTitle, const std::string& sName);

/// Name and year. A year of 8 characters is a date (year, month, two more) and reads "Name (7/07)"; a month
/// of 0 shows nothing before the "/". Any other year follows the name after a blank.
std::string sProductLabel(const std::string& sName, const std::string& sYear);

} // namespace zorvo
