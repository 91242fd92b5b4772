#include "window/IntervalTimer.h"

#include "window/guardedSlot.h"

#include <algorithm>
#include <utility>

namespace zorvo {

IntervalTimer::IntervalTimer(std::function<void()> handler, QObject* parent)
    : QObject(parent)
    , handler_(std::move(handler))
{
    connect(&timer_, &QTimer::timeout, this, [this] {
        // A copy: the handler may destroy this timer.
        const std::function<void()> current = handler_;
        runGuarded(this, current);
    });
}

void IntervalTimer::setInterval(int nMilliseconds)
{
    nInterval_ = std::max(nMilliseconds, 0);
    if (nInterval_ == 0)
        timer_.stop();
    else
        timer_.start(nInterval_);
}

} // namespace zorvo
