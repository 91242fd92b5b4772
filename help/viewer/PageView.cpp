#include "help/viewer/PageView.h"

#include "help/book/Markup.h"
#include "help/book/pageCost.h"
#include "window/noPicture.h"

#include <QBuffer>
#include <QEvent>
#include <QImageReader>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QUrl>

namespace zorvo::help {

namespace {

constexpr int kMarginPixels = 20;
constexpr qsizetype kLongestPage = 4 << 20;
constexpr std::size_t kDeepestNesting = 200;
constexpr qint64 kLargestPicture = 16 << 20; // pixels
constexpr int kMostMarks = 500;

QUrl addressOf(const QString& path, const QString& anchor)
{
    QUrl url;
    url.setScheme(QStringLiteral("book"));
    url.setPath(path);
    if (!anchor.isEmpty())
        url.setFragment(anchor);
    return url;
}

QString notice(const QString& heading, const QString& text)
{
    return QStringLiteral("<html><body><h2>%1</h2><p>%2</p></body></html>")
        .arg(heading.toHtmlEscaped(), text.toHtmlEscaped());
}

/// Numbers that would make a table of a page grow beyond all bounds are taken out.
QString withBoundedTables(QString markup)
{
    static const QRegularExpression spans(
        QStringLiteral(R"(\b(?:col|row)span\s*+=\s*+["']?\s*+[+-]?\d{3,}["']?)"),
        QRegularExpression::CaseInsensitiveOption);
    return markup.remove(spans);
}

/// The document reads a style sheet only where the page says what it is.
QString withTypedStyleSheets(QString markup)
{
    static const QRegularExpression links(
        QStringLiteral(R"(<link(?![^<>]*\btype\s*+=)(?=[^<>]*\brel\s*+=\s*+["']?stylesheet))"),
        QRegularExpression::CaseInsensitiveOption);
    return markup.replace(links, QStringLiteral("<link type=\"text/css\""));
}

/// The page as the document gets it; nothing when the document can't bear it.
std::optional<QString> bearable(const QString& page)
{
    if (page.size() > kLongestPage)
        return {};
    QString shown = withTypedStyleSheets(withBoundedTables(page));
    const std::string measured = shown.toStdString();
    if (nesting(measured) > kDeepestNesting || !canBeLaidOut(measured))
        return {};
    return shown;
}

/// It sets colours of its own, and so counts on the white paper that the format's viewer has.
bool hasOwnColours(const QString& text)
{
    static const QRegularExpression colour(QStringLiteral(R"((?:color|background|text|link)\s*[:=])"),
                                           QRegularExpression::CaseInsensitiveOption);
    return colour.match(text).hasMatch();
}

QImage decodedPicture(QByteArray bytes)
{
    // Formats that can't name other files.
    static const QList<QByteArray> known{"png", "gif", "jpeg", "jpg", "bmp"};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!known.contains(reader.format()) || !size.isValid() ||
        qint64{size.width()} * size.height() > kLargestPicture)
        return noPicture();
    const QImage image = reader.read();
    return image.isNull() ? noPicture() : image;
}

QPalette paper()
{
    QPalette palette(Qt::white);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::Link, QColor(0x0b, 0x57, 0xd0));
    return palette;
}

} // namespace

PageView::PageView(Book& book, QWidget* parent)
    : QTextBrowser(parent)
    , book_(book)
{
    setObjectName(QStringLiteral("Page"));
    setAccessibleName(tr("Page"));
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(kMarginPixels);
    setOpenExternalLinks(false);
}

void PageView::showPage(const QString& path, const QString& anchor)
{
    setSource(addressOf(path, anchor));
}

void PageView::follow(const BookLink& link)
{
    if (link.kind == BookLink::Kind::page)
        showPage(QString::fromStdString(link.target), QString::fromStdString(link.anchor));
    else if (link.kind == BookLink::Kind::web && openWeb_)
        openWeb_(QString::fromStdString(link.target));
    else
        Q_EMIT refused();
}

void PageView::doSetSource(const QUrl& name, QTextDocument::ResourceType /*type*/)
{
    const BookLink link = book_.resolve(name.toString(QUrl::FullyEncoded), current_);
    if (link.kind != BookLink::Kind::page) {
        follow(link);
        return;
    }
    setExtraSelections({});
    QTextBrowser::doSetSource(
        addressOf(QString::fromStdString(link.target), QString::fromStdString(link.anchor)),
        QTextDocument::HtmlResource);
}

QVariant PageView::loadResource(int type, const QUrl& name)
{
    const BookLink link = book_.resolve(name.toString(QUrl::FullyEncoded), current_);
    const bool bInBook = link.kind == BookLink::Kind::page;
    const QString path = QString::fromStdString(link.target);
    if (type == QTextDocument::ImageResource) {
        const auto bytes = bInBook ? book_.file(path) : std::nullopt;
        return bytes ? decodedPicture(*bytes) : noPicture();
    }
    // Never a null answer: the document would look among the user's own files.
    if (!bInBook)
        return QString(QLatin1String(""));
    if (type == QTextDocument::StyleSheetResource) {
        const auto sheet = book_.page(path);
        return sheet && canBeStyledBy(sheet->toStdString()) ? *sheet : QString(QLatin1String(""));
    }
    current_ = path; // ahead of what the page asks for by names relative to its own
    return markup(path);
}

/// What is shown for a page: itself, as far as it can be borne.
QString PageView::markup(const QString& path)
{
    ReaderState state{};
    const auto page = book_.page(path, &state);
    if (!page) {
        dress(false);
        if (state == ReaderState::missing)
            return notice(tr("This page isn't in the help file"),
                          tr("The link leads to %1, which the help file doesn't hold.").arg(path.mid(1)));
        return notice(tr("This page can't be read"),
                      tr("The help file is damaged at %1. Other pages may still be readable; repairing the "
                         "installation brings back all of it.")
                          .arg(path.mid(1)));
    }
    dress(setsColours(*page));
    const auto shown = bearable(*page);
    if (!shown) {
        const QString text = QString::fromStdString(plainText(page->left(kLongestPage).toStdString()));
        return QStringLiteral("<html><body><p>%1</p></body></html>").arg(text.toHtmlEscaped());
    }
    return shown->isEmpty() ? QStringLiteral("<html></html>") : *shown;
}

/// By itself or through a style sheet.
bool PageView::setsColours(const QString& page) const
{
    if (hasOwnColours(page))
        return true;
    const std::string text = page.toStdString();
    Markup markup(text);
    while (const auto piece = markup.next()) {
        if (piece->kind != MarkupPiece::Kind::opening || !sameWord(piece->text, "link"))
            continue;
        const std::string target = attributeValue(piece->attributes, "href").value_or("");
        const BookLink link = book_.resolve(QString::fromStdString(target), current_);
        if (link.kind == BookLink::Kind::page &&
            hasOwnColours(book_.page(QString::fromStdString(link.target)).value_or(QString())))
            return true;
    }
    return false;
}

/// In a dark session a page that brings no colours is shown in the session's, any other on white paper.
void PageView::dress(bool bOwnColours)
{
    const QPalette wanted = bOwnColours ? paper() : QPalette();
    if (palette() != wanted)
        setPalette(wanted);
    document()->setDefaultStyleSheet(
        QStringLiteral("a { color: %1; }").arg(wanted.color(QPalette::Link).name()));
}

void PageView::highlight(const QStringList& words)
{
    QList<QTextEdit::ExtraSelection> marks;
    QTextCharFormat format;
    format.setBackground(palette().color(QPalette::Highlight));
    format.setForeground(palette().color(QPalette::HighlightedText));
    for (const QString& word : words) {
        QTextCursor found(document());
        while (marks.size() < kMostMarks) {
            found = document()->find(word, found);
            if (found.isNull())
                break;
            marks.append({found, format});
        }
    }
    setExtraSelections(marks);
    if (!marks.isEmpty()) {
        QTextCursor first = marks.first().cursor;
        for (const auto& mark : marks)
            if (mark.cursor.position() < first.position())
                first = mark.cursor;
        first.clearSelection();
        setTextCursor(first);
        ensureCursorVisible();
    }
}

} // namespace zorvo::help
