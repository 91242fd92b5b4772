#include "help/viewer/HelpDesk.h"

#include "base/RunTimeError.h"
#include "help/viewer/HelpWindow.h"
#include "platform/SettingsStore.h"
#include "window/UiIds.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <memory>

namespace zorvo::help {

namespace {

/// Where the settings keep the place of the window.
constexpr const char* kApplication = "brendle-help";
constexpr const char* kSection = "Window";
constexpr const char* kWindowKey = "Geometry";
constexpr const char* kPanesKey = "Panes";

/// One file, however it is spelled. A file that isn't there has its own spelling.
QString pathOf(const QFileInfo& file)
{
    const QString real = file.canonicalFilePath();
    return real.isEmpty() ? file.absoluteFilePath() : real;
}

QString keyOf(const QFileInfo& file)
{
    return QStringLiteral("%1|%2").arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
}

/// The first question about a font reads what fonts there are, and the window has to wait for that.
void loadFonts()
{
    static_cast<void>(QFontMetrics(QGuiApplication::font()).maxWidth());
}

/// On the screen on which its owner stands. An owned window proper would stay above its owner, where the help
/// is to be in front once and no more.
void placeBeside(HelpWindow& window, std::uintptr_t owner)
{
    if (owner == 0 || QGuiApplication::screens().size() < 2)
        return;
    const std::unique_ptr<QWindow> foreign(QWindow::fromWinId(owner));
    if (foreign && foreign->screen())
        window.setScreen(foreign->screen());
}

} // namespace

HelpDesk::HelpDesk(QString readerProgram, std::function<void(const QString&)> openWeb,
                   SettingsStore& settings)
    : readerProgram_(std::move(readerProgram))
    , openWeb_(std::move(openWeb))
    , settings_(settings)
{
}

HelpDesk::~HelpDesk()
{
    for (const Shown& each : shown_)
        delete each.window;
}

std::uintptr_t HelpDesk::show(std::uintptr_t owner, const QString& file, int nCommand, std::uint32_t nData,
                              const QString& client)
{
    if (nCommand == HelpViewer::kCloseAll) {
        closeAll(client);
        return 0;
    }
    const QFileInfo info(file);
    const QString path = pathOf(info);
    Shown* known = find(path);
    if (known && known->key != keyOf(info)) {
        // The file was replaced under its window, by a repair or by the copy for another company.
        known->window->close();
        known = nullptr;
    }
    HelpWindow* window = known ? known->window.data() : open(file, path, client, owner);
    if (!window)
        return 0;
    if (known)
        known->client = client;

    switch (nCommand) {
    case HelpViewer::kDisplayTopic:
        window->showDefaultTopic();
        break;
    case HelpViewer::kDisplayIndex:
        window->showIndex();
        break;
    case HelpViewer::kContext:
        window->showNumberedTopic(nData);
        break;
    default:
        window->showContents();
        break;
    }
    window->show();
    if (window->isMinimized())
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
    return window->winId();
}

HelpWindow* HelpDesk::open(const QString& file, const QString& path, const QString& client,
                           std::uintptr_t owner)
{
    const QFileInfo info(file);
    if (!info.isFile()) {
        tellFailure(file, true);
        return nullptr;
    }
    ReaderState state{};
    std::unique_ptr<Book> book = Book::open(readerProgram_, path, state, loadFonts);
    if (!book) {
        tellFailure(file, state == ReaderState::missing);
        return nullptr;
    }
    auto* window = new HelpWindow(std::move(book), openWeb_);
    placeAsBefore(*window);
    placeBeside(*window, owner);
    connect(window, &HelpWindow::closing, this, [this, window] { rememberPlace(*window); });
    connect(window, &QObject::destroyed, this, &HelpDesk::forget, Qt::QueuedConnection);
    shown_.push_back({keyOf(info), path, client, window});
    return window;
}

/// A second book's window would come to lie on the first one's: where it goes is for the desktop to say.
void HelpDesk::placeAsBefore(HelpWindow& window)
{
    if (std::any_of(shown_.begin(), shown_.end(),
                    [](const Shown& each) { return each.window && each.window->isVisible(); }))
        return;
    const auto stored = [this](const char* key) {
        return QByteArray::fromBase64(
            QByteArray::fromStdString(settings_.get(kApplication, kSection, key).value_or(std::string())));
    };
    window.restore({stored(kWindowKey), stored(kPanesKey)});
}

void HelpDesk::rememberPlace(const HelpWindow& window)
{
    const HelpWindow::Place place = window.place();
    try {
        settings_.set(kApplication, kSection, kWindowKey, place.window.toBase64().toStdString());
        settings_.set(kApplication, kSection, kPanesKey, place.panes.toBase64().toStdString());
    } catch (const RunTimeError&) {
        // Not worth a message: the next window comes up where the desktop puts it.
    }
}

HelpDesk::Shown* HelpDesk::find(const QString& path)
{
    const auto found = std::find_if(shown_.begin(), shown_.end(), [&](const Shown& each) {
        return each.window && each.path == path && each.window->isVisible();
    });
    return found != shown_.end() ? &*found : nullptr;
}

void HelpDesk::setTopMost(std::uintptr_t window, bool bTop)
{
    for (const Shown& each : shown_)
        if (each.window && each.window->isVisible() && each.window->winId() == window)
            each.window->setTopMost(bTop);
}

void HelpDesk::tellFailure(const QString& file, bool bMissing)
{
    const QString what = bMissing
                             ? tr("The help file can't be found:\n\n%1\n\nRepairing the installation brings "
                                  "it back.")
                             : tr("The help file can't be read:\n\n%1\n\nIt is damaged, or it isn't a help "
                                  "file. Repairing the installation brings it back.");
    auto* box = new QMessageBox(QMessageBox::Warning, tr("Help"),
                                what.arg(QFileInfo(file).absoluteFilePath()), QMessageBox::Ok);
    box->setTextFormat(Qt::PlainText);
    box->setObjectName(QStringLiteral("HelpMessage"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    ++nBoxes_;
    connect(
        box, &QObject::destroyed, this,
        [this] {
            --nBoxes_;
            forget();
        },
        Qt::QueuedConnection);
    markUiIds(*box);
    box->show();
    box->raise();
    box->activateWindow();
}

void HelpDesk::closeAll(const QString& client)
{
    for (const Shown& each : std::vector<Shown>(shown_))
        if (each.window && each.client == client)
            each.window->close();
}

bool HelpDesk::isBusy() const
{
    return nBoxes_ > 0 ||
           std::any_of(shown_.begin(), shown_.end(), [](const Shown& each) { return !each.window.isNull(); });
}

void HelpDesk::forget()
{
    std::erase_if(shown_, [](const Shown& each) { return each.window.isNull(); });
    if (!isBusy())
        Q_EMIT becameIdle();
}

} // namespace zorvo::help
