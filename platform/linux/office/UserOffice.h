#pragma once

#include "platform/linux/office/OfficeGate.h"
#include "platform/linux/office/OfficeInstallation.h"

#include <atomic>

namespace zorvo {

/// The user's own LibreOffice, with his settings and his windows: joined when it runs, started when not, and
/// never ended by us.
class UserOffice : public OfficeGate {
public:
    /// Throws RunTimeError 429 when there is no screen to show a window on.
    explicit UserOffice(const OfficeInstallation& office);

    std::unique_ptr<OfficeConnection> connect() override;
    void close() override { bClosed_ = true; }
    std::string crashText() const override;
    std::string hangText() const override;

private:
    void start() const;

    OfficeInstallation office_;
    std::string pipe_;
    std::atomic<bool> bClosed_ = false;
};

} // namespace zorvo
