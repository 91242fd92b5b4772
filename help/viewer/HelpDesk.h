#pragma once

#include "platform/HelpViewer.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <cstdint>
#include <functional>
#include <vector>

namespace zorvo {
class SettingsStore;
} // namespace zorvo

namespace zorvo::help {

class HelpWindow;

/// Answers the commands of the help viewer: one window per book, whoever asks. A book that can't be shown is
/// told in a box, and nobody waits for it.
class HelpDesk : public QObject {
    Q_OBJECT
public:
    /// `readerProgram` is the native path of the reader; `openWeb` takes addresses that the user clicks;
    /// `settings` keep where the window was.
    HelpDesk(QString readerProgram, std::function<void(const QString&)> openWeb, SettingsStore& settings);
    ~HelpDesk() override;

    /// Carries a command out for `client`, a name by which the same caller is known again. Gives the native
    /// handle of the window, 0 when none could be shown. An unknown command shows the book as it is. On close
    /// all, the windows go that this client was the last to ask for; others stay with those who asked.
    std::uintptr_t show(std::uintptr_t owner, const QString& file, int nCommand, std::uint32_t nData,
                        const QString& client);
    /// A window that has gone, or was never there, is passed over.
    void setTopMost(std::uintptr_t window, bool bTop);

    /// A window or a box is up.
    bool isBusy() const;

Q_SIGNALS:
    /// The last window or box has gone.
    void becameIdle();

private:
    struct Shown {
        /// Tells the file from others, and from itself once it has been replaced.
        QString key;
        QString path;
        QString client;
        QPointer<HelpWindow> window;
    };

    Shown* find(const QString& path);
    HelpWindow* open(const QString& file, const QString& path, const QString& client, std::uintptr_t owner);
    void tellFailure(const QString& file, bool bMissing);
    void closeAll(const QString& client);
    void placeAsBefore(HelpWindow& window);
    void rememberPlace(const HelpWindow& window);
    void forget();

    QString readerProgram_;
    std::function<void(const QString&)> openWeb_;
    SettingsStore& settings_;
    std::vector<Shown> shown_;
    int nBoxes_ = 0;
};

} // namespace zorvo::help
