#pragma once

namespace zorvo {

/// Puts the program's windows where the plain modules reach for them: the automation classes, the busy
/// pointer and the making of documents. Called once, with the application object there.
void installQtForms();

} // namespace zorvo
