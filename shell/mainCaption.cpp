#include "shell/mainCaption.h"

namespace zorvo {

std::string sMainCaption(const std::string& sCompany)
{
    return (sCompany == "OTR" ? "OT&R" : sCompany) + "'s Brendle";
}

} // namespace zorvo
