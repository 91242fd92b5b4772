#pragma once

#include <optional>
#include <string>

namespace zorvo {

/// The message box through which all messages of the program go. Gives the button pressed (MessageBoxResult).
/// `sPrompt` comes back in the company's wording. `nButtons` is a sum of MessageBoxStyle values, `sTitle` is
/// "Zorvo's Brendle" when not given, `sTitleSuffix` follows it after a colon and two blanks. With a context
/// other than 0 the box has help: `sHelpFile` at that topic.
int BrandedMsgBox(std::string& sPrompt, std::optional<int> nButtons = {},
                  const std::optional<std::string>& sTitle = {},
                  const std::optional<std::string>& sHelpFile = {}, std::optional<int> nContext = {},
                  const std::optional<std::string>& sTitleSuffix = {});

/// For a text that the caller doesn't want back.
int BrandedMsgBox(const std::string& sPrompt, std::optional<int> nButtons = {},
                  const std::optional<std::string>& sTitle = {},
                  const std::optional<std::string>& sHelpFile = {}, std::optional<int> nContext = {},
                  const std::optional<std::string>& sTitleSuffix = {});

} // namespace zorvo
