#pragma once

#include <stdexcept>
#include <string>

namespace zorvo {

/// The numbers of the failures that the program itself raises. A user quotes them to the help desk.
enum ErrorNumber : int {
    kInvalidCall = 5,
    kOverflow = 6,
    kIndexOutOfRange = 9,
    kTypeMismatch = 13,
    kFileNotFound = 53,
    kFileAlreadyExists = 58,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kPermissionDenied = 70,
    kPathOrFileAccess = 75,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kObjectRequired = 424,
    kCannotCreateObject = 429,
    kMemberNotFound = 438,
    kKeyAlreadyUsed = 457,
    kInvalidPicture = 481,
};

/// The one failure type of the program: a number and a description, and the procedure that raised it again.
class RunTimeError : public std::runtime_error {
public:
    /// Takes the standard description of the number.
    explicit RunTimeError(int number);
    RunTimeError(int number, const std::string& description, std::string source = {});

    int number() const { return number_; }
    std::string description() const { return what(); }
    /// "Module.Procedure" of the procedure that passed the failure on, or empty.
    const std::string& source() const { return source_; }

private:
    int number_;
    std::string source_;
};

/// The standard description of a failure number; a general one for numbers that have none.
std::string standardErrorDescription(int number);

} // namespace zorvo
