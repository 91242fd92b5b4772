#include "tests/support/TemporaryFolder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace zorvo {

namespace {

void putVariable(const std::string& name, const std::optional<std::string>& value)
{
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}

std::filesystem::path parentFolder(TemporaryFolder::Place place)
{
    const bool bMemory = place == TemporaryFolder::Place::memory && access("/dev/shm", W_OK) == 0;
    return bMemory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
}

} // namespace

TemporaryFolder::TemporaryFolder(Place place)
    : path_((parentFolder(place) / "zorvo-test-XXXXXX").string())
{
    if (mkdtemp(path_.data()) == nullptr)
        throw std::runtime_error("no temporary folder for a test");
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

ScopedEnvironment::ScopedEnvironment(const std::string& name, const std::optional<std::string>& value)
    : name_(name)
{
    if (const char* before = std::getenv(name.c_str()))
        before_ = before;
    putVariable(name, value);
}

ScopedEnvironment::~ScopedEnvironment()
{
    putVariable(name_, before_);
}

void putFile(const std::string& native, std::string_view bytes)
{
    std::filesystem::create_directories(std::filesystem::path(native).parent_path());
    std::ofstream(native, std::ios::binary) << bytes;
}

std::string fileBytes(const std::string& native)
{
    std::ifstream file(native, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace zorvo
