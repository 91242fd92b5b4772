#include "platform/linux/office/documentChecks.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/nativeFiles.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace zorvo {

namespace {

using namespace std::string_view_literals;

/// The first bytes of the containers that office documents are kept in.
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr std::string_view kZipFile = "PK\x03\x04"sv;
constexpr std::string_view kRichText = "{\\rtf"sv;

struct Promise {
    std::string_view ending;
    std::string_view firstBytes;
};

constexpr std::array kPromises = {
    Promise{".DOT", kCompoundFile}, Promise{".DOC", kCompoundFile}, Promise{".XLT", kCompoundFile},
    Promise{".XLS", kCompoundFile}, Promise{".XLA", kCompoundFile}, Promise{".DOTX", kZipFile},
    Promise{".DOTM", kZipFile},     Promise{".DOCX", kZipFile},     Promise{".DOCM", kZipFile},
    Promise{".XLTX", kZipFile},     Promise{".XLTM", kZipFile},     Promise{".XLSX", kZipFile},
    Promise{".XLSM", kZipFile},     Promise{".ODT", kZipFile},      Promise{".OTT", kZipFile},
    Promise{".ODS", kZipFile},      Promise{".OTS", kZipFile},      Promise{".RTF", kRichText},
};

std::string firstBytes(const std::string& native, int nNotFound)
{
    try {
        const FileDescriptor file = openPlainFile(native);
        std::array<char, 16> bytes{};
        const ssize_t got = read(file.get(), bytes.data(), bytes.size());
        return {bytes.data(), got > 0 ? static_cast<std::size_t>(got) : 0};
    } catch (const RunTimeError& e) {
        if (e.number() == kFileNotFound || e.number() == kPathNotFound)
            throw RunTimeError(nNotFound, "The file wasn't found: " + native);
        throw RunTimeError(e.number(), "The file can't be read: " + native);
    }
}

/// What an interrupted copy of a rich text lacks: the office would take what there is of it as the whole.
bool hasClosingBrace(const std::string& native)
{
    const FileDescriptor file = openPlainFile(native);
    const off_t nSize = lseek(file.get(), 0, SEEK_END);
    std::array<char, 256> bytes{};
    const off_t nTail = std::min<off_t>(nSize, bytes.size());
    const ssize_t got = pread(file.get(), bytes.data(), static_cast<std::size_t>(nTail), nSize - nTail);
    const std::string_view end(bytes.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
    // Some writers put line ends and zero bytes behind it.
    const std::size_t at = end.find_last_not_of("\r\n\t \0"sv);
    return at != std::string_view::npos && end[at] == '}';
}

} // namespace

void checkDocumentFile(const std::string& native, int nNotFound)
{
    const std::string bytes = firstBytes(native, nNotFound);
    if (bytes.empty())
        throw RunTimeError(kPathOrFileAccess, "The file is empty: " + native);
    for (const Promise& promise : kPromises)
        if (endsWithNoCase(native, promise.ending) && !bytes.starts_with(promise.firstBytes))
            throw RunTimeError(kPathOrFileAccess, "The file isn't what its name says: " + native);
    if (bytes.starts_with(kRichText) && !hasClosingBrace(native))
        throw RunTimeError(kPathOrFileAccess, "The file isn't whole: " + native);
}

} // namespace zorvo
