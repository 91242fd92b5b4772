#include "pages/GuardedPage.h"

#include "pages/FolderScheme.h"
#include "pages/RequestGuard.h"

#include <QWebEngineCertificateError>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace zorvo {

namespace {

/// A user who has no connection hears of it within ten seconds.
constexpr int kLongestSilenceMs = 9000;
/// As many redirections as browsers follow, of whatever kind.
constexpr int kMostSelfMade = 20;
/// A page that has stood for so long and then leads elsewhere is no redirection.
constexpr int kStandsMs = 5000;

constexpr const char* kNotice =
    "<!DOCTYPE html><html><head><style>body{font:11pt sans-serif;margin:24px 28px;"
    "color:#5b6b7f;background:#fff}</style></head><body><p>This page can't be "
    "shown.</p></body></html>";

/// Takes the place of a window that a page wants to open: its address opens in the page itself.
class NewWindow : public QWebEnginePage {
public:
    explicit NewWindow(GuardedPage& opener)
        : QWebEnginePage(opener.profile(), &opener)
        , opener_(opener)
    {
    }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType /*type*/, bool /*isMainFrame*/) override
    {
        if (mayLead(opener_.url(), url))
            opener_.load(url);
        deleteLater();
        return false;
    }

private:
    GuardedPage& opener_;
};

} // namespace

GuardedPage::GuardedPage(QWebEngineProfile* profile, FolderScheme& folders, QObject* parent)
    : QWebEnginePage(profile, parent)
    , folders_(folders)
{
    limitWhatPagesMay();
    silence_.setSingleShot(true);
    silence_.setInterval(kLongestSilenceMs);
    connect(&silence_, &QTimer::timeout, this, &GuardedPage::takeSilence);
    connect(this, &QWebEnginePage::loadingChanged, this, &GuardedPage::follow);
    // The engine tells of no first byte, but it goes ahead with one, or shows where it has arrived.
    connect(this, &QWebEnginePage::loadProgress, this, [this](int nPercent) {
        if (nPercent > 0)
            takeAnswer();
    });
    connect(this, &QWebEnginePage::urlChanged, this, &GuardedPage::takeAnswer);
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
}

void GuardedPage::limitWhatPagesMay()
{
    QWebEngineSettings& may = *settings();
    may.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    may.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
    may.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    may.setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
    may.setAttribute(QWebEngineSettings::ScreenCaptureEnabled, false);
    may.setAttribute(QWebEngineSettings::FullScreenSupportEnabled, false);
    may.setAttribute(QWebEngineSettings::PluginsEnabled, false);
    may.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    may.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

void GuardedPage::open(const QUrl& address)
{
    userActed();
    const QUrl page = address.isLocalFile() ? folders_.pageAddress(address) : address;
    if (!address.isLocalFile() && !mayLead({}, page)) {
        fail(address);
        return;
    }
    state_ = State::asked;
    silence_.start();
    underWay_ = page;
    load(page);
}

bool GuardedPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    if (!isMainFrame)
        return mayLead(this->url(), url) || url.scheme() == QStringLiteral("about") ||
               url.scheme() == QStringLiteral("data") || url.scheme() == QStringLiteral("blob");
    // What is typed is what the program asks for.
    if (type == NavigationTypeTyped)
        return true;
    if (!mayLead(this->url(), url))
        return false;
    if (standing_.isValid() && standing_.hasExpired(kStandsMs))
        nSelfMade_ = 0;
    standing_.invalidate();
    if (++nSelfMade_ <= kMostSelfMade)
        return true;
    fail(url);
    return false;
}

QWebEnginePage* GuardedPage::createWindow(WebWindowType /*type*/)
{
    return new NewWindow(*this);
}

QStringList GuardedPage::chooseFiles(FileSelectionMode /*mode*/, const QStringList& /*oldFiles*/,
                                     const QStringList& /*acceptedMimeTypes*/)
{
    return {};
}

void GuardedPage::javaScriptAlert(const QUrl& /*securityOrigin*/, const QString& /*msg*/) {}

bool GuardedPage::javaScriptConfirm(const QUrl& /*securityOrigin*/, const QString& /*msg*/)
{
    return false;
}

bool GuardedPage::javaScriptPrompt(const QUrl& /*securityOrigin*/, const QString& /*msg*/,
                                   const QString& /*defaultValue*/, QString* /*result*/)
{
    return false;
}

void GuardedPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                           const QString& /*message*/, int /*lineNumber*/,
                                           const QString& /*sourceID*/)
{
}

void GuardedPage::follow(const QWebEngineLoadingInfo& info)
{
    const bool bStarted = info.status() == QWebEngineLoadingInfo::LoadStartedStatus;
    if (state_ == State::notice || (state_ == State::asked && !bStarted))
        return;
    switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus:
        state_ = State::waiting;
        underWay_ = info.url();
        silence_.start();
        break;
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        standing_.start();
        finish(info.url());
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        fail(info.url());
        // What the site itself says of a page that it doesn't have stays to be read.
        if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
            state_ = State::quiet;
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        state_ = State::quiet;
        silence_.stop();
        Q_EMIT pageStopped();
        break;
    }
}

void GuardedPage::takeAnswer()
{
    if (state_ != State::waiting)
        return;
    state_ = State::answered;
    silence_.start();
}

void GuardedPage::takeSilence()
{
    // A page that is there may go without the pictures that still keep it waiting.
    if (state_ == State::answered)
        finish(url());
    else
        fail(underWay_);
}

void GuardedPage::finish(const QUrl& address)
{
    if (state_ != State::waiting && state_ != State::answered)
        return;
    state_ = State::quiet;
    silence_.stop();
    Q_EMIT pageFinished(folders_.fileAddress(address));
}

void GuardedPage::fail(const QUrl& address)
{
    state_ = State::notice;
    silence_.stop();
    Q_EMIT pageFailed(folders_.fileAddress(address));
    // Not from within the engine's own call.
    QMetaObject::invokeMethod(this, &GuardedPage::showNotice, Qt::QueuedConnection);
}

void GuardedPage::showNotice()
{
    if (state_ == State::notice)
        setHtml(QString::fromLatin1(kNotice));
}

} // namespace zorvo
