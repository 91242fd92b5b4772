#include "window/IntervalTimer.h"

#include <utility>

namespace zorvo {

IntervalTimer::IntervalTimer(std::function<void()> handler, QObject* parent)
    : QObject(parent)
    , handler_(std::move(handler))
{
    connect(&timer_, &QTimer::timeout, this, [this] { handler_(); });
}

void IntervalTimer::setInterval(int nMilliseconds)
{
    nInterval_ = nMilliseconds;
    if (nMilliseconds > 0)
        timer_.start(nMilliseconds);
    else
        timer_.stop();
}

} // namespace zorvo
