#include "window/PageView.h"

#include "platform/Platform.h"
#include "window/Form.h"
#include "window/RichTextPage.h"
#include "window/spacing.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QStackedLayout>
#include <QTimer>
#include <QWindow>

#include <xcb/xcb.h>

namespace zorvo {

namespace {

/// The desktop gives the keyboard to a window that comes to the front; from a page within the window that is
/// in front already, the window must take it itself.
void takeKeyboard(const QWidget& window)
{
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return;
    xcb_set_input_focus(x11->connection(), XCB_INPUT_FOCUS_PARENT,
                        static_cast<xcb_window_t>(window.internalWinId()), XCB_CURRENT_TIME);
    xcb_flush(x11->connection());
}

} // namespace

PageView::PageView(const char* name, QWidget* parent)
    : QFrame(parent)
    , host_(new QWidget(this))
    , notice_(new QLabel(this))
    , stack_(new QStackedLayout(this))
{
    setObjectName(QString::fromUtf8(name));
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    host_->setObjectName(QStringLiteral("qt_pageHost"));
    setFocusPolicy(Qt::StrongFocus);
    host_->setBackgroundRole(QPalette::Base);
    host_->setAutoFillBackground(true);
    // It alone: the controls around it have no need of windows.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    host_->setAttribute(Qt::WA_DontCreateNativeAncestors);
    host_->setAttribute(Qt::WA_NativeWindow);
    host_->installEventFilter(this);
    notice_->setMargin(2 * kFormMargin);
    notice_->setWordWrap(true);
    notice_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    notice_->setBackgroundRole(QPalette::Base);
    notice_->setAutoFillBackground(true);
    stack_->addWidget(host_);
    stack_->addWidget(notice_);
    window()->installEventFilter(this);
}

PageView::~PageView() = default;

void PageView::start()
{
    if (!page_ && !bRichText_)
        openPage();
}

void PageView::openPage()
{
    if (platform().pages)
        page_ = platform().pages->open(*this, QAccessible::isActive());
    if (!page_) {
        showRichText();
        return;
    }
    if (stack_->currentWidget() == host_)
        showPage();
    else
        stack_->setCurrentWidget(host_); // tells us when it shows
}

/// Only on the screen is the window there for good: a form that comes up as a modal one gets new windows.
void PageView::showPage()
{
    if (!page_ || !host_->isVisible())
        return;
    page_->resize(host_->width(), host_->height());
    page_->showIn(static_cast<std::uintptr_t>(host_->winId()));
}

void PageView::showRichText()
{
    bRichText_ = true;
    if (!text_) {
        text_ = new RichTextPage(this);
        text_->setAccessibleName(accessibleName());
        connect(text_, &RichTextPage::finished, this, &PageView::finished);
        connect(text_, &RichTextPage::failed, this, &PageView::failed);
        stack_->addWidget(text_);
        setFocusProxy(text_);
    }
    stack_->setCurrentWidget(text_);
}

void PageView::navigate(const std::string& sAddress)
{
    sAddress_ = sAddress;
    start();
    if (bRichText_)
        text_->navigate(sAddress);
    else
        page_->navigate(sAddress);
}

bool PageView::event(QEvent* event)
{
    // A view that moves to another window hears of that one's boxes.
    if (event->type() == QEvent::ParentChange)
        window()->installEventFilter(this);
    return QFrame::event(event);
}

bool PageView::eventFilter(QObject* watched, QEvent* event)
{
    if (page_ && watched == host_ && event->type() == QEvent::Resize && host_->isVisible())
        page_->resize(host_->width(), host_->height());
    const bool bNewWindow =
        event->type() == QEvent::Show || (event->type() == QEvent::WinIdChange && host_->isVisible());
    if (page_ && watched == host_ && bNewWindow)
        QMetaObject::invokeMethod(this, &PageView::showPage, Qt::QueuedConnection); // when it is there
    if (page_ && watched == window() &&
        (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked))
        page_->setBlocked(event->type() == QEvent::WindowBlocked);
    // A click beside the page.
    if (bPageHasFocus_ && event->type() == QEvent::MouseButtonPress && watched == window()->windowHandle())
        takeKeyboard(*window());
    return QFrame::eventFilter(watched, event);
}

void PageView::focusInEvent(QFocusEvent* event)
{
    QFrame::focusInEvent(event);
    if (!page_ || bPageHasFocus_)
        return;
    page_->takeFocus(event->reason() == Qt::TabFocusReason       ? Page::Enter::first
                     : event->reason() == Qt::BacktabFocusReason ? Page::Enter::last
                                                                 : Page::Enter::same);
}

void PageView::pageFinished(const std::string& sAddress)
{
    Q_EMIT finished(sAddress);
}

void PageView::pageFailed(const std::string& sAddress)
{
    Q_EMIT failed(sAddress);
}

void PageView::pageStopped()
{
    Q_EMIT stopped();
}

void PageView::pageFocusChanged(bool bHasFocus)
{
    bPageHasFocus_ = bHasFocus;
    if (bHasFocus) {
        setFocus(Qt::OtherFocusReason);
        if (window()->windowHandle())
            window()->windowHandle()->installEventFilter(this);
    }
    if (auto* form = qobject_cast<Form*>(window()))
        form->setPageHasFocus(bHasFocus);
}

void PageView::pageLeft(bool bForward)
{
    window()->activateWindow();
    takeKeyboard(*window());
    focusNextPrevChild(bForward);
}

void PageView::pageGone(bool bEverUp)
{
    // It is the page itself that tells.
    QTimer::singleShot(0, this, [page = std::shared_ptr<Page>(std::move(page_))]() mutable { page.reset(); });
    if (bPageHasFocus_)
        pageFocusChanged(false);
    if (!bEverUp) {
        showRichText();
        if (!sAddress_.empty())
            text_->navigate(sAddress_);
        return;
    }
    notice_->setText(tr("The page view has ended unexpectedly. It starts again with the next page."));
    stack_->setCurrentWidget(notice_);
    Q_EMIT stopped();
}

} // namespace zorvo
