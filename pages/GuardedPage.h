#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWebEnginePage>

#include <functional>

namespace zorvo {

class FolderScheme;

/// A page that goes where it may and no further: to the web, and within its own folder. It shows no boxes of
/// its own, picks no files, saves none, and is told an answer in time.
class GuardedPage : public QWebEnginePage {
    Q_OBJECT

public:
    GuardedPage(QWebEngineProfile* profile, FolderScheme& folders, QObject* parent = nullptr);

    /// What the user asks for: an http, https or file address. Any other fails.
    void open(const QUrl& address);
    /// The user has pressed a button or a key: the page may lead elsewhere anew.
    void userActed() { nSelfMade_ = 0; }

Q_SIGNALS:
    void pageStarted();
    void pageFinished(const QUrl& address);
    void pageFailed(const QUrl& address);
    /// After a failure: there isn't even a page of the site's that says so.
    void nothingToShow();
    void pageStopped();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl& securityOrigin, const QString& msg) override;
    bool javaScriptConfirm(const QUrl& securityOrigin, const QString& msg) override;
    bool javaScriptPrompt(const QUrl& securityOrigin, const QString& msg, const QString& defaultValue,
                          QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int lineNumber,
                                  const QString& sourceID) override;

private:
    enum class State {
        quiet,   // nothing is loading that anyone waits for
        asked,   // a page was asked for; what the engine still tells is of the one before
        waiting, // for the page
        leaving, // the page has gone over to another one while it was loading
    };

    void limitWhatPagesMay();
    void follow(const QWebEngineLoadingInfo& info);
    void takeStop();
    void takeSilence();
    /// Whether the page that stands began after the one under way was asked for, by the page's own clock.
    void askWhetherItIsNew(const std::function<void(bool)>& take);
    void finish(const QUrl& address);
    void fail(const QUrl& address, bool bNothingToShow = true);
    void stop();

    FolderScheme& folders_;
    State state_ = State::quiet;
    /// Where the loading under way leads, and when it was asked for, in ms since the epoch.
    QUrl underWay_;
    qint64 nAsked_ = 0;
    QTimer silence_;
    /// Runs out when the page itself gives no answer either.
    QTimer lastWord_;
    /// Pages in a row that no one asked for, and since when the last one stands.
    int nSelfMade_ = 0;
    QElapsedTimer standing_;
};

} // namespace zorvo
