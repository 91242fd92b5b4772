#pragma once

#include "help/book/BookFacts.h"
#include "help/book/BookLink.h"
#include "help/book/siteMap.h"
#include "help/viewer/ReaderProcess.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zorvo::help {

/// A compiled help file as its reader uses it. All texts are decoded; what is damaged in it is missing.
class Book {
public:
    /// `readerProgram` and `file` are native paths. Null when it can't be opened; `state` says why.
    /// `meanwhile` is called while the reader starts.
    static std::unique_ptr<Book> open(const QString& readerProgram, const QString& file, ReaderState& state,
                                      const std::function<void()>& meanwhile = {});

    /// Never empty: a book without a title has its file's name.
    QString title() const { return title_; }
    /// A book without contents has the list of its pages in their place.
    const std::vector<SiteMapEntry>& contents() const { return contents_; }
    /// Read at the first call.
    const std::vector<SiteMapEntry>& index();

    /// The page to begin with: what the book names, else the first of the contents.
    QString defaultPage() const;
    /// The page of a numbered topic, with its anchor.
    std::optional<BookLink> numberedTopic(std::uint32_t number) const;
    /// A link on the page `from`; "/" for the contents and the index.
    BookLink resolve(const QString& link, const QString& from = QStringLiteral("/")) const;

    /// The markup of a page, or why there is none.
    std::optional<QString> page(const QString& path, ReaderState* state = nullptr);
    std::optional<QByteArray> file(const QString& path, ReaderState* state = nullptr);
    /// The paths of all pages, in the order of the container.
    QStringList pages();

private:
    Book(const QString& readerProgram, const QString& file);

    void readRecords();
    std::vector<SiteMapEntry> readMap(const std::string& name, const char* extension);
    QString decoded(const QByteArray& bytes) const;
    QString decoded(const std::string& bytes) const;
    QStringList files();

    ReaderProcess reader_;
    QString fileName_;
    QString title_;
    BookFacts facts_;
    std::vector<SiteMapEntry> contents_;
    std::optional<std::vector<SiteMapEntry>> index_;
    std::optional<QStringList> files_;
};

} // namespace zorvo::help
