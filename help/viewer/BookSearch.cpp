#include "help/viewer/BookSearch.h"

#include "help/book/Markup.h"

#include <QElapsedTimer>
#include <QSet>
#include <algorithm>

namespace zorvo::help {

namespace {

constexpr int kTitleWeight = 100;
constexpr int kMostCounted = 20;
constexpr qint64 kSliceMilliseconds = 15;
constexpr qsizetype kMostKept = 16 << 20; // characters

/// 0 when a word is missing.
int weigh(const QStringList& words, const QString& title, const QString& text)
{
    int nWeight = 0;
    for (const QString& word : words) {
        const bool bInTitle = title.contains(word, Qt::CaseInsensitive);
        const auto nTimes = static_cast<int>(text.count(word, Qt::CaseInsensitive));
        if (!bInTitle && nTimes == 0)
            return 0;
        nWeight += (bInTitle ? kTitleWeight : 0) + std::min(nTimes, kMostCounted);
    }
    return nWeight;
}

} // namespace

BookSearch::BookSearch(Book& book, QObject* parent)
    : QObject(parent)
    , book_(book)
{
    next_.setInterval(0);
    connect(&next_, &QTimer::timeout, this, &BookSearch::lookOn);
}

void BookSearch::start(const QString& words)
{
    stop();
    words_ = words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    hits_.clear();
    nDone_ = 0;
    if (words_.isEmpty()) {
        Q_EMIT finished({});
        return;
    }
    if (pages_.isEmpty()) {
        QSet<QString> known;
        const auto add = [&](const QString& page) {
            if (!known.contains(page.toLower())) {
                known.insert(page.toLower());
                pages_.append(page);
            }
        };
        for (const SiteMapEntry& entry : book_.contents()) {
            for (const SiteMapTopic& topic : entry.topics) {
                const BookLink link = book_.resolve(QString::fromStdString(topic.target));
                if (link.kind == BookLink::Kind::page)
                    add(QString::fromStdString(link.target));
            }
        }
        for (const QString& page : book_.pages())
            add(page);
    }
    next_.start();
}

void BookSearch::lookOn()
{
    QElapsedTimer slice;
    slice.start();
    while (nDone_ < pages_.size() && slice.elapsed() < kSliceMilliseconds) {
        const QString& page = pages_[nDone_++];
        const PageText text = textOf(page);
        if (const int nWeight = weigh(words_, text.title, text.text); nWeight > 0)
            hits_.append({page, text.title, nWeight});
    }
    if (nDone_ < pages_.size()) {
        Q_EMIT progressed(static_cast<int>(nDone_), static_cast<int>(pages_.size()));
        return;
    }
    next_.stop();
    std::stable_sort(hits_.begin(), hits_.end(), [](const SearchHit& one, const SearchHit& other) {
        return one.nWeight > other.nWeight;
    });
    Q_EMIT finished(hits_);
}

BookSearch::PageText BookSearch::textOf(const QString& page)
{
    if (const auto kept = kept_.constFind(page); kept != kept_.constEnd())
        return *kept;
    const auto read = book_.page(page);
    if (!read)
        return {};
    const std::string markup = read->toStdString();
    PageText found{QString::fromStdString(pageTitle(markup)), QString::fromStdString(plainText(markup))};
    if (found.title.isEmpty())
        found.title = page.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, -2);
    if (nKept_ + found.text.size() <= kMostKept) {
        nKept_ += found.text.size();
        kept_.insert(page, found);
    }
    return found;
}

} // namespace zorvo::help
