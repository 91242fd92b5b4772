#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// A template as the command line names it.
struct TemplateName {
    std::string sProductKey;
    std::string sVersion;
    /// The document's name in the catalogue; "*" is all of the product's.
    std::string sName;

    /// As it was given.
    std::string text() const { return sProductKey + "/" + sVersion + "/" + sName; }
};

/// What `brendle create` was told: a selection file or templates, never both.
struct CreateOptions {
    std::string sFolder;
    std::optional<std::string> sSelectionFile;
    std::vector<TemplateName> templates;
    std::optional<std::string> sCompany;
    std::optional<std::string> sProfileFile;
    bool bJson = false;
};

inline constexpr const char* kCreateArguments =
    "--to FOLDER (--selection FILE | PRODUCT/YEAR/NAME ...) [--company ID] [--profile FILE] [--json]";

/// Nothing for wrong usage. Options come in any order, "--" ends them; the value of an option follows it or
/// stands behind "=".
std::optional<CreateOptions> parseCreateOptions(const std::vector<std::string>& args);

} // namespace zorvo
