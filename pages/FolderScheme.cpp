#include "pages/FolderScheme.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace zorvo {

namespace {

/// What a browser needs to know of a file, by the ending of its name.
QByteArray contentType(const QString& sName)
{
    static const QHash<QString, QByteArray> types{
        {QStringLiteral("htm"), "text/html"},         {QStringLiteral("html"), "text/html"},
        {QStringLiteral("css"), "text/css"},          {QStringLiteral("js"), "text/javascript"},
        {QStringLiteral("txt"), "text/plain"},        {QStringLiteral("xml"), "text/xml"},
        {QStringLiteral("png"), "image/png"},         {QStringLiteral("gif"), "image/gif"},
        {QStringLiteral("jpg"), "image/jpeg"},        {QStringLiteral("jpeg"), "image/jpeg"},
        {QStringLiteral("svg"), "image/svg+xml"},     {QStringLiteral("webp"), "image/webp"},
        {QStringLiteral("bmp"), "image/bmp"},         {QStringLiteral("ico"), "image/x-icon"},
        {QStringLiteral("pdf"), "application/pdf"},   {QStringLiteral("woff"), "font/woff"},
        {QStringLiteral("woff2"), "font/woff2"},      {QStringLiteral("ttf"), "font/ttf"},
        {QStringLiteral("mht"), "multipart/related"}, {QStringLiteral("mp4"), "video/mp4"},
    };
    return types.value(QFileInfo(sName).suffix().toLower(), "application/octet-stream");
}

/// The entry of that name, exactly or else by another case; empty when there is none.
QString entryOf(const QString& sFolder, const QString& sName)
{
    const QDir folder(sFolder);
    if (folder.exists(sName))
        return folder.filePath(sName);
    const QStringList names =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& sEntry : names) {
        if (sEntry.compare(sName, Qt::CaseInsensitive) == 0)
            return folder.filePath(sEntry);
    }
    return {};
}

/// The real path of a file in or below the folder; empty when there is none, or a link leads out of it.
QString fileBelow(const QString& sFolder, const QString& sPath)
{
    QString sFile = sFolder;
    const QStringList parts = sPath.split(u'/', Qt::SkipEmptyParts);
    for (const QString& sPart : parts) {
        if (sPart == QStringLiteral("..") || sPart == QStringLiteral("."))
            return {};
        sFile = entryOf(sFile, sPart);
        if (sFile.isEmpty())
            return {};
    }
    const QFileInfo real(QFileInfo(sFile).canonicalFilePath());
    const QString sRoot = QFileInfo(sFolder).canonicalFilePath();
    if (sRoot.isEmpty() || !real.isFile() || !real.filePath().startsWith(sRoot + u'/'))
        return {};
    return real.filePath();
}

} // namespace

void FolderScheme::registerScheme()
{
    QWebEngineUrlScheme scheme(kName);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::LocalScheme | QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl FolderScheme::pageAddress(const QUrl& fileAddress)
{
    const QFileInfo file(fileAddress.toLocalFile());
    const QString sFolder = file.path();
    if (!folders_.contains(sFolder))
        folders_.append(sFolder);
    QUrl address;
    address.setScheme(QString::fromLatin1(kName));
    address.setHost(QStringLiteral("f%1").arg(folders_.indexOf(sFolder) + 1));
    address.setPath(u'/' + file.fileName(), QUrl::DecodedMode);
    return address;
}

QString FolderScheme::folderOf(const QUrl& pageAddress) const
{
    const qsizetype nNumber = pageAddress.host().mid(1).toLongLong();
    return nNumber > 0 ? folders_.value(nNumber - 1) : QString();
}

QUrl FolderScheme::fileAddress(const QUrl& address) const
{
    if (address.scheme() != QString::fromLatin1(kName))
        return address;
    return QUrl::fromLocalFile(folderOf(address) + address.path(QUrl::FullyDecoded));
}

void FolderScheme::requestStarted(QWebEngineUrlRequestJob* job)
{
    const QUrl address = job->requestUrl();
    const QString sFolder = folderOf(address);
    const QString sFile =
        sFolder.isEmpty() ? QString() : fileBelow(sFolder, address.path(QUrl::FullyDecoded));
    if (job->requestMethod() != "GET" || sFile.isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* file = new QFile(sFile, job);
    if (file->open(QIODevice::ReadOnly))
        job->reply(contentType(sFile), file);
    else
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
}

} // namespace zorvo
