#pragma once

#include "help/viewer/Book.h"

#include <QTextBrowser>
#include <functional>

namespace zorvo::help {

/// Shows the pages of a book, and nothing else: whatever a page asks for comes out of the book or isn't
/// there. Links to the web go to the user's browser when they are clicked.
class PageView : public QTextBrowser {
    Q_OBJECT
public:
    explicit PageView(Book& book, QWidget* parent = nullptr);

    /// A path from the root of the book, and a place in that page. A page that isn't there is told in its
    /// place.
    void showPage(const QString& path, const QString& anchor = {});
    /// To where a link or a line of the contents leads: a page, or the user's browser.
    void follow(const BookLink& link);
    /// The path of the page that stands here.
    QString page() const { return current_; }
    /// Marks these words on the page, until another one comes.
    void highlight(const QStringList& words);

    void setWebOpener(std::function<void(const QString& address)> opener) { openWeb_ = std::move(opener); }

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    /// A link led out of the book to something that isn't followed.
    void refused();

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    QString markup(const QString& path);
    bool setsColours(const QString& page) const;
    void dress(bool bOwnColours);

    Book& book_;
    std::function<void(const QString&)> openWeb_;
    QString current_;
};

} // namespace zorvo::help
