#pragma once

#include <QTextBrowser>

#include <string>

namespace zorvo {

/// A page of the machine as rich text, for where no browser engine can show it: headings, lists, tables,
/// pictures and links, without scripts. It sees the files of its own folder alone.
class RichTextPage : public QTextBrowser {
    Q_OBJECT

public:
    explicit RichTextPage(QWidget* parent = nullptr);

    /// "file://" and a backslash path. Told in a later turn of the event loop what became of it; of a web
    /// address a line of text stands for the page.
    void navigate(const std::string& sAddress);

Q_SIGNALS:
    void finished(const std::string& sAddress);
    void failed(const std::string& sAddress);

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    void show(const std::string& sAddress);
    void follow(const QUrl& link);
    std::string pathOf(const QUrl& link) const;

    /// Folder of the page that shows, with a backslash at its end; empty for none.
    std::string sFolder_;
    std::string sAsked_;
};

} // namespace zorvo
