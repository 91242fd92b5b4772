#pragma once

#include <functional>

namespace zorvo {

/// Lets the user edit the preferences. Unless the form was cancelled they become the session's, are stored,
/// and `reload` brings the main window in line, whether or not anything changed. A failure is reported.
void editOptions(const std::function<void()>& reload);

} // namespace zorvo
