#pragma once

#include <string>

namespace zorvo {

/// A topic of a help file, a backslash path.
struct MessageBoxHelp {
    std::string sFile;
    int nContext = 0;
};

/// `showMessageBox` with help: F1 in the box shows the topic, and the box stays.
int showMessageBoxWithHelp(const std::string& sPrompt, int nStyle, const std::string& sTitle,
                           const MessageBoxHelp& help);

} // namespace zorvo
