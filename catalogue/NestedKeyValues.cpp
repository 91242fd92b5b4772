#include "catalogue/NestedKeyValues.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "catalogue/registryKeys.h"
#include "platform/Registry.h"

namespace zorvo {

namespace {

constexpr std::size_t kNameCapacity = 2048;
constexpr std::size_t kValueCapacity = 2048;
/// A store that can't be read fails at every index and never comes to its end.
constexpr int kMostFailuresInARow = 1000;
/// `nRetCount` comes from a client: one that no reply could carry must not ask for all memory.
constexpr std::int32_t kLargestIndex = 0xFFFFFF;

class NestedKeyWalk {
public:
    NestedKeyWalk(Hive hive, const std::string& sSearchKey, const std::string& sStringValueKey,
                  std::vector<std::string>& sRetValue, std::int32_t& nRetCount)
        : hive_(hive)
        , sSearchKey_(sSearchKey)
        , sStringValueKey_(sStringValueKey)
        , sRetValue_(sRetValue)
        , nRetCount_(nRetCount)
    {
    }

    std::int32_t walk(const std::string& sPath)
    {
        std::unique_ptr<RegistryKey> key = OpenKeyToRead(hive_, sPath);
        if (!key)
            return kStartingKeyNotOpened;
        std::int32_t nStatus = kRegistrySuccess;
        int nFailures = 0;
        std::string sName;
        for (std::size_t nIndex = 0; nStatus != kRegistryNoMoreItems && nFailures < kMostFailuresInARow;
             ++nIndex) {
            sName.clear();
            nStatus = key->enumKey(nIndex, kNameCapacity, sName);
            nFailures = nStatus == kRegistrySuccess || nStatus == kRegistryMoreData ? 0 : nFailures + 1;
            // An entry whose name can't be given is passed over: only the end of the entries ends the level.
            if (nStatus == kRegistrySuccess && !sName.empty())
                visit(sPath, sName);
        }
        return kRegistryNoMoreItems;
    }

private:
    void visit(const std::string& sParent, const std::string& sName)
    {
        std::string sPath = sParent;
        sPath.append("\\").append(sName);
        if (sName == sSearchKey_)
            takeValue(sPath);
        else
            walk(sPath);
    }

    void takeValue(const std::string& sPath)
    {
        const std::unique_ptr<RegistryKey> key = OpenKeyToRead(hive_, sPath);
        std::string sData;
        RegistryType type{};
        if (!key || key->queryValue(sStringValueKey_, kValueCapacity, sData, type) != kRegistrySuccess)
            return;
        if (nRetCount_ < -1 || nRetCount_ >= kLargestIndex)
            throw RunTimeError(kIndexOutOfRange);
        ++nRetCount_;
        sRetValue_.resize(static_cast<std::size_t>(nRetCount_) + 1);
        sRetValue_.back() = cutAtNull(sData);
    }

    Hive hive_;
    const std::string& sSearchKey_;
    const std::string& sStringValueKey_;
    std::vector<std::string>& sRetValue_;
    std::int32_t& nRetCount_;
};

} // namespace

std::int32_t nGetNestedKeyValues(const std::string& pKey, const std::string& sSearchKey,
                                 const std::string& sStringValueKey, std::vector<std::string>& sRetValue,
                                 std::int32_t& nRetCount)
{
    std::string sHiveName;
    std::string sPath;
    SplitHiveKey(pKey, sHiveName, sPath);
    return NestedKeyWalk(hHiveFromName(sHiveName), sSearchKey, sStringValueKey, sRetValue, nRetCount)
        .walk(sPath);
}

} // namespace zorvo
