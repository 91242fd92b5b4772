#include "tree/SelectionConsumer.h"

#include <utility>

namespace zorvo {

namespace {
SelectionConsumer& installedConsumer()
{
    static SelectionConsumer consumer;
    return consumer;
}
} // namespace

SelectionConsumer setSelectionConsumer(SelectionConsumer consumer)
{
    return std::exchange(installedConsumer(), std::move(consumer));
}

void consumeSelection()
{
    if (installedConsumer())
        installedConsumer()();
}

} // namespace zorvo
