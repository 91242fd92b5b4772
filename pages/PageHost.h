#pragma once

#include "pages/FolderScheme.h"
#include "platform/pageProtocol.h"

#include <QWebEngineProfile>
#include <QWebEngineView>
#include <QWidget>

#include <iosfwd>

namespace zorvo {

class GuardedPage;

/// The page within a window of the program, unseen until that is named. Carries out what the program says and
/// tells it what becomes of the page.
class PageHost : public QWidget {
    Q_OBJECT

public:
    PageHost();
    ~PageHost() override;

    static void setOutput(std::ostream& output);

    /// Says hello to the program.
    void greet();
    /// Carries out one command.
    void take(const pageProtocol::Message& command);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class View;

    void showIn(quintptr parent);
    void tell(const char* sWord, const QUrl& address = {});
    void navigate(const pageProtocol::Message& numbered);
    void followFocus();
    void setSize(const QString& sSize);
    void takeFocus(const std::string& sWhere);

    FolderScheme folders_;
    QWebEngineProfile profile_;
    GuardedPage* page_;
    View* view_;
    /// Of the last request.
    std::string sNumber_;
    bool bHasFocus_ = false;
};

} // namespace zorvo
