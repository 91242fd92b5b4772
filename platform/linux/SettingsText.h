#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorvo {

/// The text of a settings file: sections of `key=value` lines. Line breaks and other control characters, a
/// percent sign, blanks at the ends, and in names also what would read as something else, are written as `%`
/// and two hexadecimal digits; anything else, backslashes too, stands as it is. Lines that are neither
/// (comments) are kept.
///
/// The last line counts only with its line end: without one it is the torn end of a damaged file, and is
/// dropped. Sections and keys match without regard to case and keep the spelling that came first.
class SettingsText {
public:
    explicit SettingsText(std::string_view bytes);

    std::optional<std::string> get(std::string_view section, std::string_view key) const;
    void set(const std::string& section, const std::string& key, const std::string& value);
    /// By upper-cased key.
    std::vector<std::pair<std::string, std::string>> list(std::string_view section) const;

    std::string bytes() const;

private:
    struct Line {
        std::string sText;              // as it stands in the file
        std::optional<std::string> key; // of a setting
        std::string sValue;
    };
    struct Section {
        std::string sName; // the lines ahead of the first section have none
        std::vector<Line> lines;
    };

    static Line readLine(std::string_view text);

    std::vector<Section> sections_;
};

} // namespace zorvo
