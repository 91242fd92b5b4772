#pragma once

class QWidget;

namespace zorvo {

/// Lets assistive programs find the page. A window that lies within another process's is none of the windows
/// that Qt tells them of.
void makeAccessible(QWidget& host);

} // namespace zorvo
