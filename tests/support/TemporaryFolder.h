#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorvo {

/// A native folder of a test's own, gone with everything in it when the test ends.
class TemporaryFolder {
public:
    /// `memory` is for tests that write so often that a disk would only slow them down.
    enum class Place { disk, memory };

    explicit TemporaryFolder(Place place = Place::disk);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }
    /// The path of a name in it.
    std::string operator/(const std::string& name) const { return path_ + '/' + name; }

private:
    std::string path_;
};

/// A variable of the environment, changed as long as this lives.
class ScopedEnvironment {
public:
    /// Without a value the variable is missing.
    ScopedEnvironment(const std::string& name, const std::optional<std::string>& value);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    std::string name_;
    std::optional<std::string> before_;
};

/// Native files, straight from and to the disk.
void putFile(const std::string& native, std::string_view bytes);
std::string fileBytes(const std::string& native);

} // namespace zorvo
