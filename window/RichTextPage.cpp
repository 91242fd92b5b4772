#include "window/RichTextPage.h"

#include "base/RunTimeError.h"
#include "base/attempt.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "window/noPicture.h"
#include "window/spacing.h"

#include <QStringDecoder>
#include <QTextDocument>
#include <QTimer>

namespace zorvo {

namespace {

constexpr std::string_view kFileScheme = "file://";

bool isWeb(std::string_view sAddress)
{
    return sAddress.starts_with("http://") || sAddress.starts_with("https://");
}

QString decoded(const std::string& sBytes)
{
    const auto bytes = QByteArrayView(sBytes.data(), static_cast<qsizetype>(sBytes.size()));
    const auto encoding = QStringConverter::encodingForHtml(bytes);
    // A page that doesn't say is one of the system that the pages were written on.
    return encoding ? QString(QStringDecoder(*encoding)(bytes)) : QString::fromLatin1(bytes);
}

} // namespace

RichTextPage::RichTextPage(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(kFormMargin);
    connect(this, &QTextBrowser::anchorClicked, this, &RichTextPage::follow);
}

void RichTextPage::navigate(const std::string& sAddress)
{
    sAsked_ = sAddress;
    QTimer::singleShot(0, this, [this, sAddress] {
        if (sAddress == sAsked_)
            show(sAddress);
    });
}

void RichTextPage::show(const std::string& sAddress)
{
    if (isWeb(sAddress)) {
        setPlainText(tr("This machine can't show web pages here. Your browser can."));
        Q_EMIT finished(sAddress);
        return;
    }
    try {
        if (!sAddress.starts_with(kFileScheme))
            throw RunTimeError(kFileNotFound);
        const std::string sPath = sAddress.substr(kFileScheme.size());
        const QString sText = decoded(platform().files->read(sPath));
        sFolder_ = sPath.substr(0, sPath.rfind('\\') + 1);
        setHtml(sText);
    } catch (const RunTimeError&) {
        setPlainText(tr("This page can't be shown."));
        Q_EMIT failed(sAddress);
        return;
    }
    Q_EMIT finished(sAddress);
}

void RichTextPage::follow(const QUrl& link)
{
    const std::string sLink = link.toString().toStdString();
    if (isWeb(sLink)) {
        navigate(sLink);
    } else if (link.path().isEmpty() && link.hasFragment()) {
        scrollToAnchor(link.fragment());
    } else if (const std::string sPath = pathOf(link); !sPath.empty()) {
        navigate(std::string(kFileScheme) + sPath);
    }
}

/// Within the page's own folder; empty for anything else.
std::string RichTextPage::pathOf(const QUrl& link) const
{
    const std::string sPath = replaceAll(link.path(QUrl::FullyDecoded).toStdString(), "/", "\\");
    const bool bInside = link.isRelative() && link.host().isEmpty() && !sPath.empty() && sPath[0] != '\\' &&
                         sPath.find("..") == std::string::npos && sPath.find(':') == std::string::npos;
    return bInside && !sFolder_.empty() ? sFolder_ + sPath : std::string();
}

/// Never a null answer: the document would look among the user's own files, and in the folder that the
/// program happens to work in.
QVariant RichTextPage::loadResource(int type, const QUrl& name)
{
    QImage picture;
    QString sText = QStringLiteral("");
    if (const std::string sPath = pathOf(name); !sPath.empty())
        attempt([&] { // what isn't there leaves a gap
            const std::string sBytes = platform().files->read(sPath);
            if (type == QTextDocument::ImageResource)
                picture = QImage::fromData(QByteArray::fromStdString(sBytes));
            else
                sText = QString::fromStdString(sBytes);
        });
    if (type != QTextDocument::ImageResource)
        return sText;
    return picture.isNull() ? noPicture() : picture;
}

} // namespace zorvo
