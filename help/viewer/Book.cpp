#include "help/viewer/Book.h"

#include "help/book/Markup.h"

#include <QFileInfo>
#include <QStringDecoder>

namespace zorvo::help {

namespace {

constexpr std::size_t kMostListed = 5000;
/// A page must name its character set early on.
constexpr qsizetype kSetNamedWithin = 2048;
/// No more bytes will come: a character that is cut off at the end is an error.
constexpr auto kWhole = QStringConverter::Flag::Stateless;

/// The set that a page names for itself; empty when it doesn't.
std::string namedCharacterSet(std::string_view page)
{
    Markup markup(page);
    while (const auto piece = markup.next()) {
        if (piece->kind != MarkupPiece::Kind::opening || !sameWord(piece->text, "meta"))
            continue;
        if (const auto name = attributeValue(piece->attributes, "charset"))
            return *name;
        const std::string content = attributeValue(piece->attributes, "content").value_or("");
        const std::size_t at = content.find("charset=");
        if (at != std::string::npos)
            return content.substr(at + 8, content.find(';', at) - at - 8);
    }
    return {};
}

bool isPage(const QString& path)
{
    return path.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".html"), Qt::CaseInsensitive);
}

} // namespace

Book::Book(const QString& readerProgram, const QString& file)
    : reader_(readerProgram, file)
    , fileName_(QFileInfo(file).fileName())
{
}

std::unique_ptr<Book> Book::open(const QString& readerProgram, const QString& file, ReaderState& state,
                                 const std::function<void()>& meanwhile)
{
    std::unique_ptr<Book> book(new Book(readerProgram, file));
    state = book->reader_.open(meanwhile);
    if (state != ReaderState::done)
        return nullptr;
    book->readRecords();
    // A container of something else, or one whose records and pages are all beyond reading.
    if (book->contents_.empty() && book->facts_.defaultTopic.empty()) {
        state = ReaderState::damaged;
        return nullptr;
    }
    return book;
}

void Book::readRecords()
{
    const auto record = [this](const char* path) {
        return file(QLatin1String(path)).value_or(QByteArray()).toStdString();
    };
    facts_ = readFacts({record("/#SYSTEM"), record("/#WINDOWS"), record("/#STRINGS"), record("/#IVB")});
    title_ = decoded(facts_.title).simplified();
    if (title_.isEmpty())
        title_ = fileName_;
    contents_ = readMap(facts_.contentsFile, ".hhc");
    if (!contents_.empty())
        return;
    for (const QString& path : pages()) {
        if (contents_.size() >= kMostListed)
            break;
        contents_.push_back({path.mid(1).toStdString(), 0, {{{}, path.toStdString()}}, {}});
    }
}

const std::vector<SiteMapEntry>& Book::index()
{
    if (!index_)
        index_ = readMap(facts_.indexFile, ".hhk");
    return *index_;
}

/// The map of that name, else the first one of its kind.
std::vector<SiteMapEntry> Book::readMap(const std::string& name, const char* extension)
{
    std::optional<QByteArray> bytes;
    if (!name.empty())
        bytes = file(QString::fromStdString(resolve(decoded(name)).target));
    if (!bytes) {
        for (const QString& path : files()) {
            if (!path.endsWith(QLatin1String(extension), Qt::CaseInsensitive))
                continue;
            bytes = file(path);
            break;
        }
    }
    return bytes ? readSiteMap(decoded(*bytes).toStdString()) : std::vector<SiteMapEntry>();
}

QString Book::defaultPage() const
{
    if (!facts_.defaultTopic.empty()) {
        const BookLink link = resolve(decoded(facts_.defaultTopic));
        if (link.kind == BookLink::Kind::page)
            return QString::fromStdString(link.target);
    }
    for (const SiteMapEntry& entry : contents_) {
        for (const SiteMapTopic& topic : entry.topics) {
            const BookLink link = resolve(QString::fromStdString(topic.target));
            if (link.kind == BookLink::Kind::page)
                return QString::fromStdString(link.target);
        }
    }
    return QStringLiteral("/");
}

std::optional<BookLink> Book::numberedTopic(std::uint32_t number) const
{
    const auto found = facts_.topics.find(number);
    if (found == facts_.topics.end())
        return {};
    BookLink link = resolve(decoded(found->second));
    if (link.kind != BookLink::Kind::page)
        return {};
    return link;
}

BookLink Book::resolve(const QString& link, const QString& from) const
{
    return resolveLink(link.toStdString(), from.toStdString(), fileName_.toStdString());
}

std::optional<QString> Book::page(const QString& path, ReaderState* state)
{
    const auto bytes = file(path, state);
    if (!bytes)
        return {};
    return decoded(*bytes);
}

std::optional<QByteArray> Book::file(const QString& path, ReaderState* state)
{
    QByteArray bytes;
    const ReaderState found = reader_.request(RequestKind::read, path.toUtf8(), bytes);
    if (state)
        *state = found;
    if (found != ReaderState::done)
        return {};
    return bytes;
}

QStringList Book::files()
{
    if (!files_) {
        QByteArray paths;
        reader_.request(RequestKind::list, {}, paths);
        files_ = QString::fromUtf8(paths).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    return *files_;
}

QStringList Book::pages()
{
    QStringList found;
    for (const QString& path : files())
        if (isPage(path))
            found.append(path);
    return found;
}

QString Book::decoded(const QByteArray& bytes) const
{
    if (const auto mark = QStringConverter::encodingForData(bytes))
        return QStringDecoder(*mark)(bytes);
    const std::string named = namedCharacterSet(std::string_view(
        bytes.constData(), static_cast<std::size_t>(std::min(bytes.size(), kSetNamedWithin))));
    QStringDecoder byName(named.c_str(), kWhole);
    if (!named.empty() && byName.isValid())
        return byName(bytes);
    return decoded(bytes.toStdString());
}

QString Book::decoded(const std::string& bytes) const
{
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    // Old books are in the characters of their language; a newer one may be UTF-8 without saying so.
    QStringDecoder unicode(QStringDecoder::Utf8, kWhole);
    QString text = unicode(view);
    if (!unicode.hasError())
        return text;
    QStringDecoder byLanguage(std::string(characterSetOf(facts_.language)).c_str(), kWhole);
    return byLanguage.isValid() ? QString(byLanguage(view)) : QString::fromLatin1(view);
}

} // namespace zorvo::help
