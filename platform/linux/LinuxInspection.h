#pragma once

#include "platform/Inspection.h"

namespace zorvo {

/// The port on this platform. No bus is ever started: without an address there is none. The `platform()`
/// ports files, folders and registry must be installed, for looking alone.
class LinuxInspection : public Inspection {
public:
    std::vector<Program> programs() override;
    std::vector<Folder> folders() override;
    std::vector<Store> stores() override;
    bool canServe(const std::string& busName, const std::string& executable) override;
};

} // namespace zorvo
