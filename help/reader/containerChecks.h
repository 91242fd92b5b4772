#pragma once

#include <cstdint>
#include <string_view>

namespace zorvo::help {

/// How many bytes of a file containerLooksWhole wants to see at its beginning, and at its directory.
inline constexpr std::size_t kContainerHeaderSize = 0x60;
inline constexpr std::size_t kDirectoryHeaderSize = 0x54;

/// Where the directory of a container stands; size 0 when the bytes aren't a container's header or name a
/// place outside the file.
struct DirectoryPlace {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
};
DirectoryPlace findDirectory(std::string_view header, std::uint64_t fileSize);

/// The directory's own numbers are those of `place`: its blocks have a sensible size and lie inside it, and
/// the first ones to be read are among them. The library that reads the container relies on all of this.
bool directoryIsSound(std::string_view directoryHeader, const DirectoryPlace& place);

} // namespace zorvo::help
