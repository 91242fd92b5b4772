#pragma once

#include "platform/linux/office/OfficeGate.h"
#include "platform/linux/office/OfficeProcess.h"
#include "platform/linux/office/PrivateProfile.h"

#include <atomic>

namespace zorvo {

/// An office of our own: without windows, with settings of ours, gone when this object goes.
class PrivateOffice : public OfficeGate {
public:
    /// Throws RunTimeError when its folder can't be made.
    explicit PrivateOffice(const OfficeInstallation& office);

    std::unique_ptr<OfficeConnection> connect() override;
    void close() override;
    std::string crashText() const override;
    std::string hangText() const override;

    /// It was up, and is no more.
    bool hasCrashed() { return bConnected_ && process_.exitCode().has_value(); }

    /// Bytes of memory it holds now.
    std::uint64_t memory() const { return process_.residentMemory(); }

private:
    /// Starts it again when it has asked for that.
    void mindExit();

    OfficeInstallation office_;
    std::string pipe_;
    PrivateProfile profile_;
    mutable OfficeProcess process_; // asking for its exit code takes the code from the system
    std::atomic<bool> bClosed_ = false;
    std::atomic<bool> bConnected_ = false;
    int nStarts_ = 0;
};

} // namespace zorvo
