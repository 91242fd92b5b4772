#include "help/viewer/SearchPane.h"

#include "help/viewer/plainToolTip.h"
#include "window/RoomyItems.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace zorvo::help {

namespace {
constexpr int kSpacing = 6;
constexpr int kProgressHeight = 4;
constexpr int kPageRole = Qt::UserRole;
} // namespace

SearchPane::SearchPane(Book& book, QWidget* parent)
    : QWidget(parent)
    , search_(book, this)
    , words_(new QLineEdit(this))
    , button_(new QPushButton(tr("Sea&rch"), this))
    , progress_(new QProgressBar(this))
    , state_(new QLabel(this))
    , results_(new QListWidget(this))
{
    words_->setObjectName(QStringLiteral("SearchText"));
    words_->setAccessibleName(tr("Words to find"));
    words_->setPlaceholderText(tr("Words to find"));
    words_->setClearButtonEnabled(true);
    button_->setObjectName(QStringLiteral("SearchButton"));
    progress_->setTextVisible(false);
    progress_->setFixedHeight(kProgressHeight);
    state_->setObjectName(QStringLiteral("SearchState"));
    state_->setWordWrap(true);
    results_->setObjectName(QStringLiteral("SearchResults"));
    results_->setAccessibleName(tr("Pages found"));
    results_->setFrameShape(QFrame::NoFrame);
    results_->setItemDelegate(new RoomyItems(results_));

    auto* entry = new QHBoxLayout;
    entry->setSpacing(kSpacing);
    entry->addWidget(words_);
    entry->addWidget(button_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    all->setSpacing(kSpacing);
    all->addLayout(entry);
    all->addWidget(progress_);
    all->addWidget(state_);
    all->addWidget(results_, 1);
    progress_->hide();
    showState(tr("Finds the pages that hold all of the words."));

    connect(words_, &QLineEdit::returnPressed, this, [this] { search_.start(words_->text()); });
    connect(button_, &QPushButton::clicked, this, &SearchPane::startOrStop);
    connect(&search_, &BookSearch::progressed, this, &SearchPane::showProgress);
    connect(&search_, &BookSearch::finished, this, &SearchPane::showHits);
    const auto choose = [this](const QListWidgetItem* item) {
        if (item)
            Q_EMIT pageChosen(item->data(kPageRole).toString(), search_.words());
    };
    connect(results_, &QListWidget::currentItemChanged, this, choose);
    connect(results_, &QListWidget::itemClicked, this, choose);
}

void SearchPane::takeFocus()
{
    words_->setFocus();
    words_->selectAll();
}

void SearchPane::startOrStop()
{
    if (!search_.isRunning()) {
        search_.start(words_->text());
        return;
    }
    search_.stop();
    progress_->hide();
    button_->setText(tr("Sea&rch"));
    showState(tr("The search was stopped."));
}

void SearchPane::showProgress(int nDone, int nAll)
{
    progress_->setRange(0, nAll);
    progress_->setValue(nDone);
    progress_->show();
    button_->setText(tr("S&top"));
    showState(tr("Looked at %1 of %2 pages").arg(nDone).arg(nAll));
}

void SearchPane::showHits(const QList<SearchHit>& hits)
{
    progress_->hide();
    button_->setText(tr("Sea&rch"));
    {
        const QSignalBlocker quiet(results_);
        results_->clear();
        for (const SearchHit& hit : hits) {
            auto* item = new QListWidgetItem(hit.title, results_);
            item->setData(kPageRole, hit.page);
            item->setToolTip(plainToolTip(hit.title));
        }
    }
    if (search_.words().isEmpty())
        showState(tr("Type the words to find."));
    else if (hits.isEmpty())
        showState(tr("No page holds all of these words. Try fewer or shorter ones."));
    else
        showState(hits.size() == 1 ? tr("1 page") : tr("%1 pages").arg(hits.size()));
}

void SearchPane::showState(const QString& text)
{
    state_->setText(text);
    state_->setAccessibleName(text);
}

} // namespace zorvo::help
