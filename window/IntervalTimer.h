#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace zorvo {

/// A timer that is its interval: 0 at rest, and writing it starts the wait anew. It goes on firing until it
/// is written again, so a handler that is done with it writes 0.
class IntervalTimer : public QObject {
    Q_OBJECT

public:
    explicit IntervalTimer(std::function<void()> handler, QObject* parent = nullptr);

    /// In milliseconds.
    int interval() const { return nInterval_; }
    void setInterval(int nMilliseconds);

private:
    std::function<void()> handler_;
    QTimer timer_;
    int nInterval_ = 0;
};

} // namespace zorvo
