#pragma once

#include "pages/FolderScheme.h"
#include "platform/pageProtocol.h"

#include <QWebEngineProfile>
#include <QWebEngineView>
#include <QWidget>

#include <iosfwd>
#include <optional>

class QLabel;

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
    void enter();

    FolderScheme folders_;
    QWebEngineProfile profile_;
    GuardedPage* page_;
    View* view_;
    /// In the page's place when there is none.
    QLabel* notice_;
    std::optional<quintptr> shownIn_;
    /// Of the last request.
    std::string sNumber_;
    /// How the keyboard comes into the page when it gets here.
    std::optional<Qt::FocusReason> enter_;
    bool bHasFocus_ = false;
};

} // namespace zorvo
