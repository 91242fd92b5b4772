#pragma once

#include "base/RunTimeError.h"

#include <cstdint>
#include <string>

namespace zorvo {

/// A failed access to a registry file: the port's status for programs, a sentence for people.
class RegistryFailure : public RunTimeError {
public:
    RegistryFailure(int number, std::int32_t status, const std::string& description)
        : RunTimeError(number, description)
        , status_(status)
    {
    }

    std::int32_t status() const { return status_; }

private:
    std::int32_t status_;
};

} // namespace zorvo
