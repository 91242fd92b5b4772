#pragma once

#include <functional>

namespace zorvo {

/// What works on the finished selection document (`sessionState().sSelectedDocuments`): the making of
/// documents, which stands on a higher floor and puts itself in here.
using SelectionConsumer = std::function<void()>;

/// Gives back the one before. Without one nothing happens to a selection.
SelectionConsumer setSelectionConsumer(SelectionConsumer consumer);

void consumeSelection();

} // namespace zorvo
