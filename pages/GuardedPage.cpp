#include "pages/GuardedPage.h"

#include "pages/FolderScheme.h"
#include "pages/RequestGuard.h"

#include <QDateTime>
#include <QPointer>
#include <QWebEngineCertificateError>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineSettings>

namespace zorvo {

namespace {

/// A user who has no connection hears of it within ten seconds.
constexpr int kLongestSilenceMs = 8500;
constexpr int kLastWordMs = 700;
/// A page that goes over to another one ends its own loading first.
constexpr int kGoingOverMs = 1500;
/// As many redirections as browsers follow, of whatever kind.
constexpr int kMostSelfMade = 20;
/// A page that has stood for so long and then leads elsewhere is no redirection.
constexpr int kStandsMs = 5000;

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
    connect(&silence_, &QTimer::timeout, this, &GuardedPage::takeSilence);
    connect(this, &QWebEnginePage::loadingChanged, this, &GuardedPage::follow);
    lastWord_.setSingleShot(true);
    lastWord_.setInterval(kLastWordMs);
    connect(&lastWord_, &QTimer::timeout, this, [this] { fail(underWay_); });
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
    nAsked_ = QDateTime::currentMSecsSinceEpoch();
    silence_.start(kLongestSilenceMs);
    lastWord_.stop();
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
    if (++nSelfMade_ > kMostSelfMade) {
        fail(url);
        return false;
    }
    if (state_ == State::waiting || state_ == State::leaving) {
        state_ = State::leaving;
        underWay_ = url;
    }
    return true;
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
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        if (state_ != State::asked)
            nAsked_ = QDateTime::currentMSecsSinceEpoch();
        state_ = State::waiting;
        underWay_ = info.url();
        silence_.start(kLongestSilenceMs);
        lastWord_.stop();
        Q_EMIT pageStarted();
        return;
    }
    // A page that takes over from one under way begins without a word.
    if (state_ == State::asked && info.status() == QWebEngineLoadingInfo::LoadSucceededStatus &&
        info.url() == underWay_)
        askWhetherItIsNew([this](bool bNew) {
            if (bNew && state_ == State::asked && url() == underWay_)
                finish(url());
        });
    // What the engine still tells of a page before the one asked for, or of one that was given up.
    if (state_ == State::asked || state_ == State::quiet)
        return;
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus)
        finish(info.url());
    else if (info.status() == QWebEngineLoadingInfo::LoadStoppedStatus)
        takeStop();
    else // what the site itself says of a page that it doesn't have stays to be read
        fail(info.url(), info.errorDomain() != QWebEngineLoadingInfo::HttpStatusCodeDomain);
}

void GuardedPage::takeStop()
{
    if (state_ == State::leaving)
        silence_.start(kGoingOverMs);
    else
        stop();
}

void GuardedPage::stop()
{
    state_ = State::quiet;
    silence_.stop();
    lastWord_.stop();
    Q_EMIT pageStopped();
}

void GuardedPage::takeSilence()
{
    if (state_ == State::leaving && silence_.interval() == kGoingOverMs) {
        stop();
        return;
    }
    // A page that is there may go without the pictures that still keep it waiting.
    lastWord_.start();
    askWhetherItIsNew([this](bool bNew) {
        if (!lastWord_.isActive())
            return;
        if (bNew)
            finish(url());
        else
            fail(underWay_);
    });
}

void GuardedPage::askWhetherItIsNew(const std::function<void(bool)>& take)
{
    // The empty page that a process begins with is as young as a page asked for first of all.
    runJavaScript(QStringLiteral("location.href === 'about:blank' ? 0 : performance.timeOrigin"),
                  QWebEngineScript::ApplicationWorld,
                  [page = QPointer<GuardedPage>(this), take](const QVariant& begun) {
                      constexpr double kClocksDifferMs = 50;
                      if (page)
                          take(begun.toDouble() > static_cast<double>(page->nAsked_) - kClocksDifferMs);
                  });
}

void GuardedPage::finish(const QUrl& address)
{
    state_ = State::quiet;
    silence_.stop();
    lastWord_.stop();
    standing_.start();
    Q_EMIT pageFinished(folders_.fileAddress(address));
}

void GuardedPage::fail(const QUrl& address, bool bNothingToShow)
{
    state_ = State::quiet;
    silence_.stop();
    lastWord_.stop();
    Q_EMIT pageFailed(folders_.fileAddress(address));
    if (bNothingToShow)
        Q_EMIT nothingToShow();
    // Not from within the engine's own call.
    QTimer::singleShot(0, this, [this] {
        if (state_ == State::quiet)
            triggerAction(Stop);
    });
}

} // namespace zorvo
