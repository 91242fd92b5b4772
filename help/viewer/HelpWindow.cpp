#include "help/viewer/HelpWindow.h"

#include "help/viewer/EntryTree.h"
#include "help/viewer/PageView.h"
#include "help/viewer/SearchPane.h"
#include "help/viewer/icons.h"
#include "window/UiIds.h"

#include <QAction>
#include <QCloseEvent>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

namespace zorvo::help {

namespace {

enum Tab : int { kContents, kIndex, kSearch };

constexpr int kSpacing = 6;
constexpr QSize kWindowSize{980, 680};
constexpr int kTreeWidth = 290;
constexpr int kIconSize = 18;
constexpr int kMostZoom = 10;
constexpr int kLeastZoom = -4;

} // namespace

HelpWindow::HelpWindow(std::unique_ptr<Book> book, std::function<void(const QString&)> openWeb)
    : book_(std::move(book))
    , panes_(new QSplitter)
    , tabs_(new QTabWidget)
    , contents_(new EntryTree)
    , page_(new PageView(*book_))
    , notice_(new QLabel)
{
    setObjectName(QStringLiteral("HelpWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(book_->title());
    resize(kWindowSize);
    page_->setWebOpener(std::move(openWeb));
    build();
    buildTools();
    setIcons();
    contents_->fill(*book_, book_->contents());
    connect(contents_, &EntryTree::pageChosen, this, &HelpWindow::goTo);
    connect(page_, &QTextBrowser::sourceChanged, this, &HelpWindow::pageChanged);
    connect(page_, &PageView::refused, this, [this] {
        setNotice(tr(
            "This link leads out of the help file to something other than a web page. It isn't followed."));
    });
    connect(tabs_, &QTabWidget::currentChanged, this, &HelpWindow::openTab);
    markUiIds(*this);
}

HelpWindow::~HelpWindow()
{
    // The page asks the book while it goes.
    delete takeCentralWidget();
}

void HelpWindow::build()
{
    contents_->setObjectName(QStringLiteral("Contents"));
    contents_->setAccessibleName(tr("Contents"));
    tabs_->setObjectName(QStringLiteral("Navigation"));
    tabs_->setDocumentMode(true);
    tabs_->addTab(contents_, tr("&Contents"));
    // Their insides are made when they are first looked at: most readers want a page and no more.
    tabs_->addTab(new QWidget, tr("&Index"));
    tabs_->addTab(new QWidget, tr("&Search"));

    notice_->setObjectName(QStringLiteral("Notice"));
    notice_->setWordWrap(true);
    notice_->setMargin(2 * kSpacing);
    notice_->setAutoFillBackground(true);
    notice_->setBackgroundRole(QPalette::ToolTipBase);
    notice_->setForegroundRole(QPalette::ToolTipText);
    notice_->hide();

    auto* right = new QWidget;
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(notice_);
    column->addWidget(page_, 1);

    panes_->addWidget(tabs_);
    panes_->addWidget(right);
    panes_->setStretchFactor(0, 0);
    panes_->setStretchFactor(1, 1);
    panes_->setChildrenCollapsible(false);
    panes_->setSizes({kTreeWidth, kWindowSize.width() - kTreeWidth});
    setCentralWidget(panes_);
}

/// A row of buttons. A tool bar proper would load all readers of picture formats for the sake of an arrow
/// that it never shows, and the window would come up later.
void HelpWindow::buildTools()
{
    auto* bar = new QWidget;
    bar->setObjectName(QStringLiteral("Tools"));
    bar->setAccessibleName(tr("Navigation"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(kSpacing, kSpacing / 2, kSpacing, kSpacing / 2);
    row->setSpacing(kSpacing / 2);
    const auto add = [&](const QString& text, const QList<QKeySequence>& keys, auto work) {
        auto* action = new QAction(text, this);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, work);
        addAction(action);
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setIconSize({kIconSize, kIconSize});
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        row->addWidget(button);
        return action;
    };
    toggle_ = add(tr("Hide Contents"), {}, [this] { setPaneShown(tabs_->isHidden()); });
    auto* line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    row->addWidget(line);
    back_ = add(tr("Back"), QKeySequence::keyBindings(QKeySequence::Back), [this] { page_->backward(); });
    forward_ =
        add(tr("Forward"), QKeySequence::keyBindings(QKeySequence::Forward), [this] { page_->forward(); });
    home_ = add(tr("Home"), {QKeySequence(Qt::ALT | Qt::Key_Home)}, [this] { goHome(); });
    row->addStretch();
    setMenuWidget(bar);
    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back_, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward_, &QAction::setEnabled);

    const auto key = [this](const QKeySequence& keys, auto work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    key(QKeySequence::Find, [this] {
        setPaneShown(true);
        tabs_->setCurrentIndex(kSearch);
        search_->takeFocus();
    });
    key(QKeySequence::Close, [this] { close(); });
    key(QKeySequence::ZoomIn, [this] { zoom(1); });
    key(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { zoom(1); });
    key(QKeySequence::ZoomOut, [this] { zoom(-1); });
    key(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { zoom(-nZoom_); });
}

void HelpWindow::setIcons()
{
    iconPalette_ = palette();
    toggle_->setIcon(helpIcon(HelpIcon::contents, palette()));
    back_->setIcon(helpIcon(HelpIcon::back, palette()));
    forward_->setIcon(helpIcon(HelpIcon::forward, palette()));
    home_->setIcon(helpIcon(HelpIcon::home, palette()));
    setWindowIcon(helpIcon(HelpIcon::help, palette()));
}

/// From the text's own colour: a dark desktop may have none for placeholders.
void HelpWindow::dimPlaceholders()
{
    QColor dimmed = palette().color(QPalette::Text);
    dimmed.setAlphaF(0.5F);
    QPalette colours;
    colours.setColor(QPalette::PlaceholderText, dimmed);
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->setPalette(colours);
}

QWidget* HelpWindow::buildIndex()
{
    auto* pane = new QWidget;
    indexText_ = new QLineEdit(pane);
    indexText_->setObjectName(QStringLiteral("IndexText"));
    indexText_->setAccessibleName(tr("Word to look up"));
    indexText_->setPlaceholderText(tr("Word to look up"));
    indexText_->setClearButtonEnabled(true);
    index_ = new EntryTree(pane);
    index_->setObjectName(QStringLiteral("Index"));
    index_->setAccessibleName(tr("Index"));
    index_->setRootIsDecorated(false);
    index_->fill(*book_, book_->index());

    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    column->setSpacing(kSpacing);
    column->addWidget(indexText_);
    column->addWidget(index_, 1);
    if (book_->index().empty()) {
        auto* none =
            new QLabel(tr("This help file has no index. The search finds words on all of its pages."));
        none->setWordWrap(true);
        column->insertWidget(1, none);
        indexText_->setEnabled(false);
    }
    connect(indexText_, &QLineEdit::textChanged, index_, &EntryTree::filter);
    connect(indexText_, &QLineEdit::returnPressed, index_, [this] { index_->setFocus(); });
    connect(index_, &EntryTree::pageChosen, this, &HelpWindow::goTo);
    connect(index_, &EntryTree::wordChosen, indexText_, &QLineEdit::setText);
    return pane;
}

/// Makes the inside of a tab at its first showing.
void HelpWindow::openTab(int nTab)
{
    QWidget* inside = nullptr;
    if (nTab == kIndex && !index_) {
        inside = buildIndex();
    } else if (nTab == kSearch && !search_) {
        search_ = new SearchPane(*book_);
        connect(search_, &SearchPane::pageChosen, this,
                [this](const QString& page, const QStringList& words) {
                    page_->showPage(page);
                    page_->highlight(words);
                });
        inside = search_;
    }
    if (!inside)
        return;
    auto* layout = new QVBoxLayout(tabs_->widget(nTab));
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(inside);
    markUiIds(*inside);
    dimPlaceholders();
    // At once: what is shown from the event loop can't take the focus before.
    inside->show();
}

void HelpWindow::setPaneShown(bool bShown)
{
    tabs_->setVisible(bShown);
    toggle_->setText(bShown ? tr("Hide Contents") : tr("Show Contents"));
}

void HelpWindow::showDefaultTopic()
{
    goHome();
}

void HelpWindow::showContents()
{
    setPaneShown(true);
    tabs_->setCurrentIndex(kContents);
    ensurePage();
    contents_->setFocus();
}

void HelpWindow::showIndex()
{
    setPaneShown(true);
    tabs_->setCurrentIndex(kIndex);
    ensurePage();
    indexText_->setFocus();
    indexText_->selectAll();
}

void HelpWindow::showNumberedTopic(std::uint32_t number)
{
    if (const auto topic = book_->numberedTopic(number)) {
        page_->showPage(QString::fromStdString(topic->target), QString::fromStdString(topic->anchor));
        page_->setFocus();
        return;
    }
    ensurePage();
    setNotice(tr("This help file has no topic with the number %1.").arg(number));
}

void HelpWindow::ensurePage()
{
    if (page_->page().isEmpty())
        goHome();
}

void HelpWindow::goHome()
{
    page_->showPage(book_->defaultPage());
}

void HelpWindow::goTo(const QString& target)
{
    page_->follow(book_->resolve(target));
}

void HelpWindow::pageChanged()
{
    setNotice({});
    contents_->follow(page_->page());
}

void HelpWindow::setNotice(const QString& text)
{
    notice_->setText(text);
    notice_->setAccessibleName(text);
    notice_->setVisible(!text.isEmpty());
}

void HelpWindow::zoom(int nSteps)
{
    const int nWanted = std::clamp(nZoom_ + nSteps, kLeastZoom, kMostZoom);
    page_->zoomIn(nWanted - nZoom_);
    nZoom_ = nWanted;
}

void HelpWindow::setTopMost(bool bTop)
{
    QWindow* native = windowHandle();
    if (!native)
        return;
    // The widget's own setter would hide the window to make it anew.
    const Qt::WindowFlags others = windowFlags() & ~Qt::WindowStaysOnTopHint;
    overrideWindowFlags(bTop ? others | Qt::WindowStaysOnTopHint : others);
    native->setFlag(Qt::WindowStaysOnTopHint, bTop);
    if (!bTop)
        return;
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

HelpWindow::Place HelpWindow::place() const
{
    return {saveGeometry(), panes_->saveState()};
}

void HelpWindow::restore(const Place& place)
{
    restoreGeometry(place.window);
    panes_->restoreState(place.panes);
}

void HelpWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT closing();
    QMainWindow::closeEvent(event);
}

void HelpWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && home_ && palette() != iconPalette_) {
        setIcons();
        dimPlaceholders();
    }
}

} // namespace zorvo::help
