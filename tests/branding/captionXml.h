#pragma once

#include <string>

namespace zorvo {

/// The two elements of rebranding pair `n`. The texts go in as they are: no markup signs in them.
inline std::string pairXml(int n, const std::string& sFind, const std::string& sReplace)
{
    const std::string sNumber = std::to_string(n) + ">";
    std::string sXml = "<Find";
    sXml.append(sNumber).append(sFind).append("</Find").append(sNumber);
    sXml.append("<Replace").append(sNumber).append(sReplace).append("</Replace").append(sNumber);
    return sXml;
}

} // namespace zorvo
