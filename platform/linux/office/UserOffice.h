#pragma once

#include "platform/linux/office/OfficeGate.h"
#include "platform/linux/office/OfficeInstallation.h"

#include <sys/types.h>

#include <atomic>

namespace zorvo {

/// The user's own LibreOffice, with his settings and his windows: joined when it runs, started when not, and
/// never ended by us.
class UserOffice : public OfficeGate {
public:
    /// Throws RunTimeError 429 when there is no screen to show a window on.
    explicit UserOffice(const OfficeInstallation& office);
    ~UserOffice() override;
    UserOffice(const UserOffice&) = delete;
    UserOffice& operator=(const UserOffice&) = delete;

    std::unique_ptr<OfficeConnection> connect() override;
    void close() override { bClosed_ = true; }
    std::string crashText() const override;
    std::string hangText() const override;

private:
    /// Throws when the launcher has failed.
    void mindLauncher();

    OfficeInstallation office_;
    std::string pipe_;
    std::atomic<bool> bClosed_ = false;
    /// It stays as long as the office that it has started, and goes at once when one was running; 0 for none.
    pid_t launcher_ = 0;
};

} // namespace zorvo
