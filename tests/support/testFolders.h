#pragma once

#include <filesystem>

namespace zorvo {

/// The root of the sources that the tests were built from.
std::filesystem::path sourceFolder();

/// The build tree that the tests lie in.
std::filesystem::path buildFolder();

} // namespace zorvo
