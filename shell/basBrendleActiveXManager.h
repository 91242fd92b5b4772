#pragma once

#include <cstdint>
#include <string>

/// The shared framework component. The program calls none of its members: it requires it to be present, and
/// keeps it alive for as long as the main form lives.
namespace zorvo {

/// Attaches to the running component or creates one. `sCaption` is the title of the message of a failure,
/// which ends the process.
void ConnectActXManager(const std::string& sCaption);

/// Drops the component, ignoring errors.
void ReleaseActXManager();

/// Tells the failure in the platform's own message box and ends the process at once.
void ReportActXFailure(std::int32_t nError, const std::string& sDescription);

} // namespace zorvo
