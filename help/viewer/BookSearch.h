#pragma once

#include "help/viewer/Book.h"

#include <QHash>
#include <QObject>
#include <QTimer>

namespace zorvo::help {

struct SearchHit {
    QString page;
    QString title;
    /// More is better: words in the title count most.
    int nWeight = 0;
};

/// Looks through the pages of a book for those that hold all of some words, a few pages at a time, so that
/// the window stays alive. The text of a page is kept for the next search.
class BookSearch : public QObject {
    Q_OBJECT
public:
    explicit BookSearch(Book& book, QObject* parent = nullptr);

    /// Ends a search that is under way. Words are parted by blanks; case doesn't matter, and a word is found
    /// within a longer one as well.
    void start(const QString& words);
    void stop() { next_.stop(); }
    bool isRunning() const { return next_.isActive(); }
    const QStringList& words() const { return words_; }

Q_SIGNALS:
    void progressed(int nDone, int nAll);
    /// The best first; equal ones in the order of the contents.
    void finished(const QList<SearchHit>& hits);

private:
    struct PageText {
        QString title;
        QString text;
    };

    void lookOn();
    PageText textOf(const QString& page);

    Book& book_;
    QTimer next_;
    QStringList words_;
    QStringList pages_;
    qsizetype nDone_ = 0;
    QList<SearchHit> hits_;
    QHash<QString, PageText> kept_;
    qsizetype nKept_ = 0;
};

} // namespace zorvo::help
