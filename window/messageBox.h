#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// Icon and button values of a message box; they add up.
enum MessageBoxStyle : int {
    kMsgOk = 0,
    kMsgOkCancel = 1,
    kMsgYesNo = 4,
    kMsgCritical = 16,
    kMsgQuestion = 32,
    kMsgExclamation = 48,
    kMsgInformation = 64,
};

enum MessageBoxResult : int { kMsgResultOk = 1, kMsgResultCancel = 2, kMsgResultYes = 6, kMsgResultNo = 7 };

/// The platform's own message box, modal to the whole program; gives the button pressed. The texts stand as
/// they are: "&" marks nothing in them, CR LF parts lines. Without a running user interface the text goes to
/// standard error and the answer is kMsgResultOk.
int showMessageBox(const std::string& sPrompt, int nStyle, const std::string& sTitle);

using MessageBoxHandler =
    std::function<int(const std::string& sPrompt, int nStyle, const std::string& sTitle)>;

/// Takes the place of the box: for console programs and for tests that record. Gives back the one before; an
/// empty one is the real box.
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

} // namespace zorvo
