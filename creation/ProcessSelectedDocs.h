#pragma once

namespace zorvo {

/// Makes the documents of the session's selection document: one comes up new and unsaved in its application,
/// several are saved in a folder that the user names. A text that can't be parsed or holds no document makes
/// nothing. A failure is reported and ends the creation.
void ProcessSelectedDocs();

/// From now on a confirmed selection goes to ProcessSelectedDocs.
void installSelectionConsumer();

} // namespace zorvo
