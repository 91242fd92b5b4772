#include "pages/PageHost.h"

#include "pages/GuardedPage.h"
#include "pages/RequestGuard.h"
#include "pages/accessiblePage.h"
#include "pages/keyboardSelection.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QWindow>

#include <ostream>

namespace zorvo {

namespace {

constexpr QSize kFirstSize{640, 480};
constexpr int kNoticeMargin = 28;
std::ostream* gOutput = nullptr;

void write(const std::string& sLine)
{
    if (gOutput)
        *gOutput << sLine << std::endl; // the program waits for it
}

} // namespace

/// Its page's first and last link lead back to the program's controls.
class PageHost::View : public QWebEngineView {
public:
    using QWebEngineView::QWebEngineView;

    void tabPressed() { sinceTab_.start(); }

protected:
    /// Comes some time after the key, when the page has no further link; but also when the engine exchanges
    /// the part of the view that had the focus.
    bool focusNextPrevChild(bool bNext) override
    {
        constexpr int kAnswerMs = 2000;
        if (sinceTab_.isValid() && !sinceTab_.hasExpired(kAnswerMs))
            write(pageProtocol::line(pageProtocol::kLeave, bNext ? "next" : "previous"));
        else
            QTimer::singleShot(0, this, [this] { setFocus(); });
        sinceTab_.invalidate();
        return true;
    }

private:
    QElapsedTimer sinceTab_;
};

PageHost::PageHost()
    : page_(new GuardedPage(&profile_, folders_))
    , view_(new View(this))
    , notice_(new QLabel(tr("This page can't be shown."), this))
{
    profile_.installUrlSchemeHandler(FolderScheme::kName, &folders_);
    profile_.setUrlRequestInterceptor(new RequestGuard(&profile_));
    profile_.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    page_->setParent(view_);
    view_->setPage(page_);
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    view_->setAcceptDrops(false);
    setFocusProxy(view_);
    makeAccessible(*this);
    resize(kFirstSize);
    notice_->setMargin(kNoticeMargin);
    notice_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    notice_->setAutoFillBackground(true);
    notice_->setBackgroundRole(QPalette::Base);
    notice_->hide();
    connect(page_, &GuardedPage::pageFinished, this,
            [this](const QUrl& address) { tell(pageProtocol::kFinished, address); });
    connect(page_, &GuardedPage::pageFailed, this,
            [this](const QUrl& address) { tell(pageProtocol::kFailed, address); });
    connect(page_, &GuardedPage::pageStarted, notice_, &QWidget::hide);
    connect(page_, &GuardedPage::nothingToShow, notice_, &QWidget::show);
    connect(page_, &GuardedPage::pageStopped, this, [this] { tell(pageProtocol::kStopped); });
    // The program starts this process anew; half of it is of no use.
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, [] { QApplication::exit(1); });
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &PageHost::followFocus);
    qApp->installEventFilter(this);
}

PageHost::~PageHost() = default;

void PageHost::setOutput(std::ostream& output)
{
    gOutput = &output;
}

void PageHost::showIn(quintptr parent)
{
    if (shownIn_ == parent)
        return;
    // Once: flags that are set anew make a window of their own again.
    if (!shownIn_)
        setWindowFlags(Qt::FramelessWindowHint);
    shownIn_ = parent;
    winId();
    // Without one it is a window of its own, for who looks at this process alone.
    if (parent != 0) {
        windowHandle()->setParent(QWindow::fromWinId(static_cast<WId>(parent)));
        setGeometry(QRect(QPoint(), size()));
    }
    show();
    selectKeys(*this, parent == 0 || bHasFocus_);
}

void PageHost::greet()
{
    write(pageProtocol::line(pageProtocol::kHello, pageProtocol::kVersion));
}

void PageHost::tell(const char* sWord, const QUrl& address)
{
    write(pageProtocol::line(sWord, sNumber_ + " " + address.toEncoded().toStdString()));
}

void PageHost::navigate(const pageProtocol::Message& numbered)
{
    sNumber_ = numbered.sWord;
    page_->open(QUrl::fromEncoded(QByteArray::fromStdString(numbered.sRest)));
}

void PageHost::take(const pageProtocol::Message& command)
{
    if (command.sWord == pageProtocol::kNavigate)
        navigate(pageProtocol::parse(command.sRest));
    else if (command.sWord == pageProtocol::kShowIn)
        showIn(QString::fromStdString(command.sRest).toULongLong());
    else if (command.sWord == pageProtocol::kSize)
        setSize(QString::fromStdString(command.sRest));
    else if (command.sWord == pageProtocol::kBlock)
        view_->setEnabled(false);
    else if (command.sWord == pageProtocol::kUnblock)
        view_->setEnabled(true);
    else if (command.sWord == pageProtocol::kTakeFocus)
        takeFocus(command.sRest);
}

void PageHost::setSize(const QString& sSize)
{
    constexpr int kMost = 16384;
    const QStringList sizes = sSize.split(u' ');
    if (sizes.size() == 2)
        setGeometry(0, 0, qBound(1, sizes[0].toInt(), kMost), qBound(1, sizes[1].toInt(), kMost));
}

void PageHost::takeFocus(const std::string& sWhere)
{
    if (sWhere != "same")
        enter_ = sWhere == "first" ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    selectKeys(*this, true);
    takeKeyboard(*this);
    if (bHasFocus_)
        enter();
}

/// The engine goes to its first or last link when it gets the focus for that reason, and for no other.
void PageHost::enter()
{
    if (!enter_)
        return;
    view_->clearFocus();
    view_->setFocus(*enter_);
    enter_.reset();
}

void PageHost::followFocus()
{
    const bool bHasFocus = QGuiApplication::focusWindow() != nullptr;
    if (bHasFocus == bHasFocus_)
        return;
    bHasFocus_ = bHasFocus;
    selectKeys(*this, bHasFocus);
    write(pageProtocol::line(bHasFocus ? pageProtocol::kFocusIn : pageProtocol::kFocusOut));
    if (bHasFocus)
        QTimer::singleShot(0, this, &PageHost::enter);
}

bool PageHost::eventFilter(QObject* watched, QEvent* event)
{
    // The engine also makes up keys for its own ends.
    const bool bKey = event->type() == QEvent::KeyPress && event->spontaneous();
    const bool bClick = event->type() == QEvent::MouseButtonPress && event->spontaneous();
    if (bKey || bClick)
        page_->userActed();
    // Qt takes a window within another's for the one with the keyboard as soon as it is clicked at.
    if (bClick)
        takeKeyboard(*this);
    const int nKey = bKey ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (nKey == Qt::Key_Tab || nKey == Qt::Key_Backtab)
        view_->tabPressed();
    // The way out of a page for who has no mouse.
    if (nKey == Qt::Key_Escape) {
        write(pageProtocol::line(pageProtocol::kLeave, "previous"));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PageHost::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    view_->setGeometry(rect());
    notice_->setGeometry(rect());
}

} // namespace zorvo
