#include "platform/linux/PageProcess.h"

#include "platform/dosPath.h"
#include "platform/pageProtocol.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <QUrl>

namespace zorvo {

namespace {

constexpr const char* kFileScheme = "file://";
/// A first start on a cold disk takes its time; an engine that can't start ends at once.
constexpr int kLongestStartMs = 20000;
/// The process answers each request in less, unless it hangs.
constexpr int kLongestAnswerMs = 30000;
constexpr int kTimeToEndMs = 1500;

class PageProcess : public QObject, public Page {
public:
    PageProcess(DosPaths paths, const QString& sProgram, PageListener& listener, bool bAccessible)
        : paths_(std::move(paths))
        , listener_(listener)
    {
        process_.setProgram(sProgram);
        if (bAccessible)
            process_.setArguments({QString::fromLatin1(pageProtocol::kAccessible)});
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        process_.setProcessEnvironment(environment);
        process_.setStandardErrorFile(QProcess::nullDevice());
        connect(&process_, &QProcess::readyReadStandardOutput, this, &PageProcess::readLines);
        connect(&process_, &QProcess::finished, this, &PageProcess::tellGone);
        connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                tellGone();
        });
        watchdog_.setSingleShot(true);
        connect(&watchdog_, &QTimer::timeout, &process_, &QProcess::kill);
        watchdog_.start(kLongestStartMs);
        process_.start();
    }

    ~PageProcess() override
    {
        process_.disconnect(this);
        process_.closeWriteChannel();
        if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(kTimeToEndMs)) {
            process_.kill();
            process_.waitForFinished(kTimeToEndMs);
        }
    }
    PageProcess(const PageProcess&) = delete;
    PageProcess& operator=(const PageProcess&) = delete;

    void showIn(std::uintptr_t nWindow) override { send(pageProtocol::kShowIn, std::to_string(nWindow)); }
    void navigate(const std::string& sAddress) override
    {
        sAsked_ = sAddress;
        asked_ = engineAddress(sAddress);
        send(pageProtocol::kNavigate, std::to_string(++nAsked_) + " " + asked_.toEncoded().toStdString());
        watchdog_.start(kLongestAnswerMs);
    }
    void resize(int nWidth, int nHeight) override
    {
        send(pageProtocol::kSize, std::to_string(nWidth) + " " + std::to_string(nHeight));
    }
    void setBlocked(bool bBlocked) override
    {
        send(bBlocked ? pageProtocol::kBlock : pageProtocol::kUnblock);
    }
    void takeFocus(Enter enter) override
    {
        send(pageProtocol::kTakeFocus, enter == Enter::first  ? "first"
                                       : enter == Enter::last ? "last"
                                                              : "same");
    }

private:
    void send(const char* sWord, const std::string& sRest = {})
    {
        process_.write(QByteArray::fromStdString(pageProtocol::line(sWord, sRest) + "\n"));
    }

    void readLines()
    {
        const QPointer<PageProcess> self = this;
        while (self && process_.canReadLine()) {
            const std::string sLine = process_.readLine().trimmed().toStdString();
            take(pageProtocol::parse(sLine));
        }
        // What never ends its line is no message of ours.
        if (self && process_.bytesAvailable() > static_cast<qint64>(pageProtocol::kLongestLine))
            process_.kill();
    }

    void take(const pageProtocol::Message& message)
    {
        if (!bUp_) {
            bUp_ = message.sWord == pageProtocol::kHello && message.sRest == pageProtocol::kVersion;
            if (!bUp_)
                process_.kill();
            return;
        }
        if (message.sWord == pageProtocol::kFocusIn || message.sWord == pageProtocol::kFocusOut)
            listener_.pageFocusChanged(message.sWord == pageProtocol::kFocusIn);
        else if (message.sWord == pageProtocol::kLeave)
            listener_.pageLeft(message.sRest == "next");
        else
            takeOutcome(message.sWord, pageProtocol::parse(message.sRest));
    }

    /// `outcome` is the number of what was asked for, and an address.
    void takeOutcome(const std::string& sWord, const pageProtocol::Message& outcome)
    {
        if (outcome.sWord != std::to_string(nAsked_))
            return;
        const std::string sAddress = ourAddress(QUrl::fromEncoded(QByteArray::fromStdString(outcome.sRest)));
        watchdog_.stop();
        if (sWord == pageProtocol::kFinished)
            listener_.pageFinished(sAddress);
        else if (sWord == pageProtocol::kFailed)
            listener_.pageFailed(sAddress);
        else if (sWord == pageProtocol::kStopped)
            listener_.pageStopped();
    }

    void tellGone()
    {
        watchdog_.stop();
        listener_.pageGone(bUp_);
    }

    QUrl engineAddress(const std::string& sAddress) const
    {
        if (!sAddress.starts_with(kFileScheme))
            return QUrl(QString::fromStdString(sAddress));
        const std::string sPath = sAddress.substr(std::string(kFileScheme).size());
        return QUrl::fromLocalFile(
            QString::fromStdString(parseDosPath(sPath) ? paths_.toNative(sPath) : sPath));
    }

    std::string ourAddress(const QUrl& address) const
    {
        // As it was asked for, in its own spelling.
        if (address == asked_)
            return sAsked_;
        if (!address.isLocalFile())
            return address.toString(QUrl::FullyEncoded).toStdString();
        return kFileScheme + paths_.fromNative(address.toLocalFile().toStdString());
    }

    DosPaths paths_;
    PageListener& listener_;
    QProcess process_;
    QTimer watchdog_;
    std::string sAsked_;
    QUrl asked_;
    int nAsked_ = 0;
    bool bUp_ = false;
};

} // namespace

PageProcesses::PageProcesses(DosPaths paths, std::string sProgram)
    : paths_(std::move(paths))
    , sProgram_(std::move(sProgram))
{
}

std::unique_ptr<Page> PageProcesses::open(PageListener& listener, bool bAccessible)
{
    const QString sProgram = sProgram_.empty()
                                 ? QCoreApplication::applicationDirPath() + QStringLiteral("/zorvo-page")
                                 : QString::fromStdString(sProgram_);
    if (!QFileInfo(sProgram).isExecutable())
        return nullptr;
    return std::make_unique<PageProcess>(paths_, sProgram, listener, bAccessible);
}

} // namespace zorvo
