#pragma once

#include "platform/Inspection.h"

#include <QDBusConnection>
#include <optional>

namespace zorvo {

/// The port on this platform. The `platform()` ports files, folders and registry must be installed, for
/// looking alone.
class LinuxInspection : public Inspection {
public:
    std::vector<Program> programs() override;
    std::vector<Folder> folders() override;
    std::vector<Store> stores() override;
    bool canServe(const std::string& busName, const std::string& executable) override;

private:
    /// Never starts a bus: without an address there is none.
    const QDBusConnection* bus();
    Program busProgram();

    std::optional<QDBusConnection> bus_;
};

} // namespace zorvo
