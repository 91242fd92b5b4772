#pragma once

namespace zorvo {

/// Tells the add-ins whether to show their menu for the documents of others. True only when the state was
/// stored and is on: a key that isn't there, or can't be written, gives false.
bool SetAddinMenuState(bool bOn);

/// On, unless the registry says "Off". Makes the key when it isn't there.
bool GetAddinMenuState();

} // namespace zorvo
