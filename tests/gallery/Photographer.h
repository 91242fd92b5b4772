#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

class QWidget;

namespace zorvo {

/// A window to be pictured when it comes up.
struct Sight {
    /// Object name of the window; empty for a message box.
    QString window{};
    /// Name of the picture's file, without ending; empty for none.
    QString picture{};
    /// What is done with the window then. Without it, it is closed.
    std::function<void(QWidget&)> then{};
    /// When the window is worth a picture; without it, as soon as it stands still.
    std::function<bool(const QWidget&)> isReady{};
    /// How long it stands still before the picture.
    int nStillMs = 250;
};

/// Takes pictures of windows as they stand on the screen, frame and all. It looks for them by itself, so that
/// it finds those of a modal show too.
class Photographer : public QObject {
public:
    /// `folder` exists.
    explicit Photographer(QString folder);

    /// Waits for these windows, one after the other. `open` brings the first one up and may block until the
    /// last has gone. Each that doesn't come is told on standard error.
    void take(std::deque<Sight> sights, const std::function<void()>& open);

    int pictures() const { return nPictures_; }
    int missing() const { return nMissing_; }

private:
    void look();
    void finishSight(QWidget& window);
    void giveUp();
    bool save(const QWidget& window, const QString& picture);

    QString folder_;
    QTimer timer_;
    std::deque<Sight> sights_;
    QPointer<QWidget> seen_;
    QRect seenAt_;
    int nStillMs_ = 0;
    int nWaitedMs_ = 0;
    int nPictures_ = 0;
    int nMissing_ = 0;
};

} // namespace zorvo
