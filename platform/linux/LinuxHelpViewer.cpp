#include "platform/linux/LinuxHelpViewer.h"

#include "base/RunTimeError.h"
#include "platform/linux/busCall.h"

#include <QDBusConnection>
#include <QDBusReply>

namespace zorvo {

namespace {

const QString kName = QStringLiteral("com.zorvo.Help");
const QString kPath = QStringLiteral("/com/zorvo/Help");
/// A viewer that doesn't answer counts as none.
constexpr int kAnswerMilliseconds = 15000;

QDBusMessage viewerCall(const QString& member, const QVariantList& arguments)
{
    return methodCall(kName, kPath, kName, member, arguments);
}

} // namespace

LinuxHelpViewer::LinuxHelpViewer(DosPaths paths, std::string program)
    : paths_(std::move(paths))
    , program_(std::move(program))
{
}

std::uintptr_t LinuxHelpViewer::show(std::uintptr_t owner, const std::string& helpFile, Command command,
                                     std::uint32_t data)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    const std::string native = helpFile.empty() ? std::string() : paths_.toNative(helpFile);
    if (command == kCloseAll) {
        if (ownerOf(bus, kName).isEmpty())
            return 0;
    } else {
        try {
            ensureServer(bus, kName, QString::fromStdString(program_));
        } catch (const RunTimeError&) {
            return 0;
        }
    }
    const QDBusMessage call =
        viewerCall(QStringLiteral("Show"), {QVariant::fromValue(qulonglong{owner}),
                                            QString::fromStdString(native), static_cast<int>(command), data});
    const QDBusReply<qulonglong> window = callAndServe(bus, call, kAnswerMilliseconds);
    return window.isValid() ? window.value() : 0;
}

void LinuxHelpViewer::setTopMost(std::uintptr_t window, bool bTop)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    // A viewer that has gone isn't started to raise a window that went with it.
    if (ownerOf(bus, kName).isEmpty())
        return;
    callAndServe(bus,
                 viewerCall(QStringLiteral("SetTopMost"), {QVariant::fromValue(qulonglong{window}), bTop}),
                 kAnswerMilliseconds);
}

} // namespace zorvo
