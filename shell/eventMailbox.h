#pragma once

namespace zorvo {

class MainForm;

/// The requests that can lie in the main form's timer. The number is the request: it is the interval, so it
/// also says how long until it is acted on. A second request overwrites a pending one; there is no queue.
enum EventRequest : int {
    kRequestRaise = 252,
    kRequestEndRaise = 250,
    kRequestUnload = 1500,
    kRequestSplashWait = 2000,
    kRequestEndSplash = 1,
};

/// Acts on the request that lies in the timer; called when it fires. The timer is stopped first.
void handleEventTimer(MainForm& form);

/// Unloads the splash, ignoring errors: one that is gone already is what was wanted.
void endSplash();

} // namespace zorvo
