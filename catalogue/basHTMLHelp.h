#pragma once

#include <cstdint>
#include <optional>

/// The one instance of the help, made by the first request.
namespace zorvo {

/// Makes the instance if there is none, and says whether it did. Only at that moment is a given owner window
/// stored.
bool EnsureHTMLHelp(std::optional<std::uintptr_t> hWnd = {});
/// Drops the instance, and with it the help windows that are open.
void ReleaseHTMLHelp();

/// Shows the topic of that number.
void ShowHelpContext(std::uint32_t nContext);
void ShowHelpContents();

} // namespace zorvo
