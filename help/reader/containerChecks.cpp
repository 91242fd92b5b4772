#include "help/reader/containerChecks.h"

#include "help/book/littleEndian.h"

namespace zorvo::help {

namespace {

// The header of the container.
constexpr std::size_t kVersion = 0x04;
constexpr std::size_t kDirectoryOffset = 0x48;
constexpr std::size_t kDirectorySize = 0x50;
constexpr std::size_t kContentOffset = 0x58;
constexpr std::uint32_t kOldVersion = 2;
constexpr std::uint32_t kNewVersion = 3;

// The header of the directory.
constexpr std::size_t kOwnSize = 0x08;
constexpr std::size_t kBlockSize = 0x10;
constexpr std::size_t kRootBlock = 0x1c;
constexpr std::size_t kFirstBlock = 0x20;
constexpr std::size_t kBlockCount = 0x2c;
constexpr std::uint32_t kLeastBlock = 64;
constexpr std::uint32_t kMostBlock = 1U << 20U;
constexpr std::uint32_t kNoBlock = 0xffffffffU;

} // namespace

DirectoryPlace findDirectory(std::string_view header, std::uint64_t fileSize)
{
    const auto version = u32At(header, kVersion);
    if (!header.starts_with("ITSF") || (version != kOldVersion && version != kNewVersion))
        return {};
    const auto offset = u64At(header, kDirectoryOffset);
    const auto size = u64At(header, kDirectorySize);
    if (!offset || !size || *offset > fileSize || *size > fileSize - *offset || *size < kDirectoryHeaderSize)
        return {};
    // In the old version the content follows the directory.
    if (version == kNewVersion && u64At(header, kContentOffset).value_or(fileSize + 1) > fileSize)
        return {};
    return {*offset, *size};
}

bool directoryIsSound(std::string_view directoryHeader, const DirectoryPlace& place)
{
    if (!directoryHeader.starts_with("ITSP"))
        return false;
    const auto ownSize = u32At(directoryHeader, kOwnSize);
    const auto blockSize = u32At(directoryHeader, kBlockSize);
    const auto root = u32At(directoryHeader, kRootBlock);
    const auto first = u32At(directoryHeader, kFirstBlock);
    const auto count = u32At(directoryHeader, kBlockCount);
    if (!count || ownSize != kDirectoryHeaderSize || *blockSize < kLeastBlock || *blockSize > kMostBlock)
        return false;
    const std::uint64_t fits = (place.size - kDirectoryHeaderSize) / *blockSize;
    return *count <= fits && *first < *count && (*root == kNoBlock || *root < *count);
}

} // namespace zorvo::help
