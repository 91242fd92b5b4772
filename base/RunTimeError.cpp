#include "base/RunTimeError.h"

#include <utility>

namespace zorvo {

RunTimeError::RunTimeError(int number)
    : RunTimeError(number, standardErrorDescription(number))
{
}

RunTimeError::RunTimeError(int number, const std::string& description, std::string source)
    : std::runtime_error(description)
    , number_(number)
    , source_(std::move(source))
{
}

std::string standardErrorDescription(int number)
{
    switch (number) {
    case kInvalidCall:
        return "Invalid procedure call or argument";
    case kOverflow:
        return "Overflow";
    case kIndexOutOfRange:
        return "Subscript out of range";
    case kTypeMismatch:
        return "Type mismatch";
    case kFileNotFound:
        return "File not found";
    case kFileAlreadyExists:
        return "File already exists";
    case kDiskFull:
        return "Disk full";
    case kInputPastEnd:
        return "Input past end of file";
    case kPermissionDenied:
        return "Permission denied";
    case kPathOrFileAccess:
        return "Path/File access error";
    case kPathNotFound:
        return "Path not found";
    case kObjectNotSet:
        return "Object variable not set";
    case kObjectRequired:
        return "Object required";
    case kCannotCreateObject:
        return "Component can't create object";
    case kMemberNotFound:
        return "Object doesn't support this property or method";
    case kKeyAlreadyUsed:
        return "This key is already associated with an element of this collection";
    case kInvalidPicture:
        return "Invalid picture";
    default:
        return "Application-defined or object-defined error";
    }
}

} // namespace zorvo
