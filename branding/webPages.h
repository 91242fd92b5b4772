#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The company's pages in the user's browser. The addresses stand in the caption document; a missing one is
/// an empty address, which goes to the platform like any other. Failures are reported, never thrown; a page
/// that can't be opened gives no message. `ownerWindow` is the native handle of the window that asks.
namespace zorvo {

/// The contact page: `linkContactUs` and `ID_CONTACTUS`.
void OpenContactUs(std::uintptr_t ownerWindow);
void ZorvoQuickTour(std::uintptr_t ownerWindow);
void ZorvoMyAccount(std::uintptr_t ownerWindow);

/// Belongs to no window. With `sAddress` that address; with neither argument the first on-the-web page; with
/// the first argument alone, whatever its value, the second one.
void ZorvoOnTheWeb(std::optional<bool> bSecondPage = {}, const std::optional<std::string>& sAddress = {});

} // namespace zorvo
