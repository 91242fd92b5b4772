#pragma once

#include "help/viewer/Book.h"
#include "help/viewer/BookSearch.h"

#include <QMainWindow>
#include <QPalette>
#include <functional>

class QLabel;
class QLineEdit;
class QSplitter;
class QTabWidget;

namespace zorvo::help {

class EntryTree;
class PageView;
class SearchPane;

/// One book on the screen: contents, index and search on the left, the page on the right.
class HelpWindow : public QMainWindow {
    Q_OBJECT
public:
    HelpWindow(std::unique_ptr<Book> book, std::function<void(const QString&)> openWeb);
    ~HelpWindow() override;

    void showDefaultTopic();
    void showContents();
    void showIndex();
    /// A number that the book doesn't have is told above the page that stands there.
    void showNumberedTopic(std::uint32_t number);

    /// Where the window is and how it is parted, for a later one.
    struct Place {
        QByteArray window;
        QByteArray panes;
    };
    Place place() const;
    /// What isn't a place, or is on no screen, leaves the window as it is.
    void restore(const Place& place);

    /// In front of all other windows, or back in the row. Neither moved nor sized.
    void setTopMost(bool bTop);

Q_SIGNALS:
    void closing();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void buildTools();
    QWidget* buildIndex();
    void goTo(const QString& target);
    void goHome();
    void ensurePage();
    void pageChanged();
    void setNotice(const QString& text);
    void setIcons();
    void dimPlaceholders();
    void openTab(int nTab);
    void setPaneShown(bool bShown);
    void zoom(int nSteps);

    std::unique_ptr<Book> book_;
    QSplitter* panes_;
    QTabWidget* tabs_;
    EntryTree* contents_;
    QLineEdit* indexText_ = nullptr;
    EntryTree* index_ = nullptr;
    SearchPane* search_ = nullptr;
    PageView* page_;
    QLabel* notice_;
    QAction* toggle_ = nullptr;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QAction* home_ = nullptr;
    QPalette iconPalette_; // what the icons are drawn for
    int nZoom_ = 0;
};

} // namespace zorvo::help
