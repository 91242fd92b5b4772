#include "help/reader/Container.h"

#include "help/reader/containerChecks.h"

#include <chm_lib.h>

#include <cstring>
#include <fstream>

namespace zorvo::help {

namespace {

constexpr std::size_t kMostPaths = 50000;

std::string bytesAt(std::ifstream& file, std::uint64_t offset, std::size_t size)
{
    std::string bytes(size, '\0');
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

struct Listing {
    std::string& paths;
    std::size_t count = 0;
};

int addPath(chmFile* /*file*/, chmUnitInfo* unit, void* context)
{
    auto& listing = *static_cast<Listing*>(context);
    // A path with a line feed would be taken for two.
    if (std::strchr(unit->path, '\n') == nullptr) {
        listing.paths += unit->path;
        listing.paths += '\n';
    }
    return ++listing.count < kMostPaths ? CHM_ENUMERATOR_CONTINUE : CHM_ENUMERATOR_SUCCESS;
}

} // namespace

ReaderState checkContainer(const std::string& native)
{
    std::ifstream file(native, std::ios::binary);
    if (!file)
        return ReaderState::missing;
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    if (size < static_cast<std::streamoff>(kContainerHeaderSize))
        return ReaderState::damaged;
    const DirectoryPlace place =
        findDirectory(bytesAt(file, 0, kContainerHeaderSize), static_cast<std::uint64_t>(size));
    if (place.size == 0 || !directoryIsSound(bytesAt(file, place.offset, kDirectoryHeaderSize), place))
        return ReaderState::damaged;
    return ReaderState::done;
}

std::unique_ptr<Container> Container::open(const std::string& file)
{
    chmFile* opened = chm_open(file.c_str());
    return opened != nullptr ? std::unique_ptr<Container>(new Container(opened)) : nullptr;
}

Container::~Container()
{
    chm_close(file_);
}

ReaderState Container::read(const std::string& path, std::string& bytes)
{
    chmUnitInfo unit{};
    if (path.size() > CHM_MAX_PATHLEN || path.find('\0') != std::string::npos ||
        chm_resolve_object(file_, path.c_str(), &unit) != CHM_RESOLVE_SUCCESS)
        return ReaderState::missing;
    if (unit.length > kMostAnswer)
        return ReaderState::tooLarge;
    bytes.resize(unit.length);
    if (unit.length == 0)
        return ReaderState::done;
    const LONGINT64 got = chm_retrieve_object(file_, &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                                              static_cast<LONGINT64>(unit.length));
    if (got == static_cast<LONGINT64>(unit.length))
        return ReaderState::done;
    bytes.clear();
    return ReaderState::damaged;
}

ReaderState Container::list(std::string& paths)
{
    Listing listing{paths};
    if (chm_enumerate(file_, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, addPath, &listing) == 0)
        return ReaderState::damaged;
    return paths.size() <= kMostAnswer ? ReaderState::done : ReaderState::tooLarge;
}

} // namespace zorvo::help
