#include "pages/PageHost.h"

#include "pages/GuardedPage.h"
#include "pages/RequestGuard.h"
#include "pages/keyboardSelection.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include <ostream>

namespace zorvo {

namespace {

constexpr QSize kFirstSize{640, 480};
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

protected:
    bool focusNextPrevChild(bool bNext) override
    {
        write(pageProtocol::line(pageProtocol::kLeave, bNext ? "next" : "previous"));
        return true;
    }
};

PageHost::PageHost()
    : page_(new GuardedPage(&profile_, folders_))
    , view_(new View(this))
{
    profile_.installUrlSchemeHandler(FolderScheme::kName, &folders_);
    profile_.setUrlRequestInterceptor(new RequestGuard(&profile_));
    profile_.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    page_->setParent(view_);
    view_->setPage(page_);
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    view_->setAcceptDrops(false);
    setFocusProxy(view_);
    resize(kFirstSize);
    connect(page_, &GuardedPage::pageFinished, this,
            [this](const QUrl& address) { tell(pageProtocol::kFinished, address); });
    connect(page_, &GuardedPage::pageFailed, this,
            [this](const QUrl& address) { tell(pageProtocol::kFailed, address); });
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
    setWindowFlags(Qt::FramelessWindowHint);
    winId();
    // Without one it is a window of its own, for who looks at this process alone.
    if (parent != 0) {
        windowHandle()->setParent(QWindow::fromWinId(static_cast<WId>(parent)));
        move(0, 0);
    }
    show();
    selectKeys(*this, parent == 0);
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
    selectKeys(*this, true);
    windowHandle()->requestActivate();
    view_->setFocus(sWhere == "first"  ? Qt::TabFocusReason
                    : sWhere == "last" ? Qt::BacktabFocusReason
                                       : Qt::OtherFocusReason);
}

void PageHost::followFocus()
{
    const bool bHasFocus = QGuiApplication::focusWindow() != nullptr;
    if (bHasFocus == bHasFocus_)
        return;
    bHasFocus_ = bHasFocus;
    selectKeys(*this, bHasFocus);
    write(pageProtocol::line(bHasFocus ? pageProtocol::kFocusIn : pageProtocol::kFocusOut));
}

bool PageHost::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)
        page_->userActed();
    // The way out of a page for who has no mouse.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
        watched->isWidgetType()) {
        write(pageProtocol::line(pageProtocol::kLeave, "previous"));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PageHost::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    view_->setGeometry(rect());
}

} // namespace zorvo
