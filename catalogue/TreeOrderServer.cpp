#include "catalogue/TreeOrderServer.h"

#include "base/RunTimeError.h"
#include "platform/LibraryLoader.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

#include <cstdint>

namespace zorvo {

namespace {

constexpr const char* kServerFile = "TreeOrderXmlServer.dll";

using GetXmlLengthFunction = std::int32_t (*)();
using GetXmlFunction = std::int32_t (*)(char* buffer);

template <typename Function>
Function functionOf(LoadedLibrary& library, const char* name)
{
    void* address = library.symbol(name);
    if (!address)
        throw RunTimeError(kInvalidCall, std::string("Can't find ") + name + " in " + kServerFile);
    return reinterpret_cast<Function>(address);
}

} // namespace

bool bHasTreeOrderServer(const std::string& sZorvoPath)
{
    return bFileExists(sZorvoPath + kServerFile);
}

std::string sTreeOrderFromServer(const std::string& sZorvoPath)
{
    const std::unique_ptr<LoadedLibrary> library = platform().libraries->load(sZorvoPath + kServerFile);
    if (!library)
        throw RunTimeError(kFileNotFound, standardErrorDescription(kFileNotFound) + ": " + kServerFile);
    const std::int32_t nLength = functionOf<GetXmlLengthFunction>(*library, "GetXmlLength")();
    if (nLength < 0)
        throw RunTimeError(kInvalidCall);
    std::string sText(static_cast<std::size_t>(nLength), '\1');
    functionOf<GetXmlFunction>(*library, "GetXml")(sText.data());
    return sText;
}

} // namespace zorvo
