#pragma once

#include "help/viewer/BookSearch.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace zorvo::help {

/// Words to look for, and the pages that hold them.
class SearchPane : public QWidget {
    Q_OBJECT
public:
    explicit SearchPane(Book& book, QWidget* parent = nullptr);

    void takeFocus();

Q_SIGNALS:
    void pageChosen(const QString& page, const QStringList& words);

private:
    void startOrStop();
    void showProgress(int nDone, int nAll);
    void showHits(const QList<SearchHit>& hits);
    void showState(const QString& text);

    BookSearch search_;
    QLineEdit* words_;
    QPushButton* button_;
    QProgressBar* progress_;
    QLabel* state_;
    QListWidget* results_;
};

} // namespace zorvo::help
