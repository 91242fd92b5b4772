#pragma once

#include "platform/PageEngine.h"

#include <QFrame>

class QLabel;
class QStackedLayout;

namespace zorvo {

class RichTextPage;

/// Shows web pages and pages of the machine inside a form. The browser engine behind it is a process of its
/// own (platform().pages), which starts with the view and ends with it; where there is none, or it doesn't
/// come up, a plain view of rich text shows the machine's pages. An engine that has ended is told in the
/// page's place, and starts anew with the next page.
class PageView : public QFrame, private PageListener {
    Q_OBJECT

public:
    explicit PageView(const char* name, QWidget* parent = nullptr);
    ~PageView() override;

    /// Starts the engine ahead of the first page, so that both sides get ready at a time.
    void start();
    /// http, https, or "file://" and a backslash path.
    void navigate(const std::string& sAddress);

Q_SIGNALS:
    /// A page has loaded: the one asked for, or one that a link in a page led to.
    void finished(const std::string& sAddress);
    void failed(const std::string& sAddress);
    /// A loading has ended with neither.
    void stopped();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void pageFinished(const std::string& sAddress) override;
    void pageFailed(const std::string& sAddress) override;
    void pageStopped() override;
    void pageFocusChanged(bool bHasFocus) override;
    void pageLeft(bool bForward) override;
    void pageGone(bool bEverUp) override;

    void openPage();
    void showPage();
    void showRichText();

    QWidget* host_;
    QLabel* notice_;
    RichTextPage* text_ = nullptr;
    QStackedLayout* stack_;
    std::unique_ptr<Page> page_;
    std::string sAddress_;
    bool bRichText_ = false;
    bool bPageHasFocus_ = false;
};

} // namespace zorvo
