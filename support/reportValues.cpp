#include "support/reportValues.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/Platform.h"

#include <memory>

namespace zorvo {

namespace {

constexpr std::size_t kNumberSize = 4;

/// The last character goes whatever it is: a text without its terminator loses a letter.
std::string withoutLastCharacter(const std::string& sData)
{
    if (sData.empty())
        throw RunTimeError(kInvalidCall);
    return sData.substr(0, sData.size() - lastCharacters(sData, 1).size());
}

/// Lowest byte first; what a short value lacks is zero.
std::int32_t numberOf(const std::string& sData)
{
    std::uint32_t nNumber = 0;
    for (std::size_t n = sData.size(); n > 0; --n)
        nNumber = nNumber << 8U | static_cast<unsigned char>(sData[n - 1]);
    return static_cast<std::int32_t>(nNumber);
}

std::string textOf(const ReportValue& vValue)
{
    if (const auto* sText = std::get_if<std::string>(&vValue))
        return *sText;
    return std::to_string(std::get<std::int32_t>(vValue));
}

} // namespace

std::int32_t nEnumSubKey(RegistryKey& hKey, std::size_t nIndex, std::string& sName, std::size_t nSize)
{
    sName.clear();
    const std::int32_t nStatus = hKey.enumKey(nIndex, nSize, sName);
    sName = nStatus == kRegistrySuccess ? cutAtNull(sName) : std::string();
    return nStatus;
}

std::int32_t nGetValueAny(RegistryKey& hKey, const std::string& sValueName, ReportValue& vValue)
{
    try {
        std::string sData;
        RegistryType type{};
        const std::int32_t nStatus = hKey.queryValue(sValueName, kLargestRegistryValue, sData, type);
        if (nStatus != kRegistrySuccess)
            return nStatus;
        if (type == RegistryType::dword && sData.size() > kNumberSize)
            return kRegistryMoreData;
        if (type == RegistryType::string)
            vValue = withoutLastCharacter(sData);
        else if (type == RegistryType::dword)
            vValue = numberOf(sData);
        else
            return kOtherValueType;
        return kRegistrySuccess;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

std::string sGetHklmValue(const std::string& sSubKey, const std::string& sValueName)
{
    std::unique_ptr<RegistryKey> key;
    const std::int32_t nOpened =
        platform().registry->openKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\" + sSubKey, kKeyReadAccess, key);
    if (nOpened != kRegistrySuccess)
        return {};
    ReportValue vValue;
    return nGetValueAny(*key, sValueName, vValue) == kRegistrySuccess ? textOf(vValue) : std::string();
}

} // namespace zorvo
