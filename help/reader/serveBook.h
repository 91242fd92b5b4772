#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace zorvo::help {

/// What makes the process smaller, in two steps: before the library opens the book, and once it is open.
struct Confinement {
    std::function<void()> toReadingFiles;
    std::function<void()> toOpenFiles;
};

/// Opens the book and answers requests, as protocol.h says, until they end. Gives the exit code.
int serveBook(const std::string& file, std::istream& requests, std::ostream& answers,
              const Confinement& confinement);

} // namespace zorvo::help
