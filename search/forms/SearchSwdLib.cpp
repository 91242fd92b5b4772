#include "search/forms/SearchSwdLib.h"

#include "base/RunTimeError.h"
#include "branding/BrandedMsgBox.h"
#include "branding/forms/formBranding.h"
#include "catalogue/basHTMLHelp.h"
#include "platform/Machine.h"
#include "platform/Platform.h"
#include "search/SWDSearchSupport.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/searchFormInstances.h"
#include "search/searchState.h"
#include "window/BusyPointer.h"
#include "window/MnemonicLabel.h"
#include "window/guardedSlot.h"
#include "window/messageBox.h"
#include "window/pendingEvents.h"
#include "window/spacing.h"
#include "window/windowPosition.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace zorvo {

namespace {

constexpr int kFieldWidth = 400;
constexpr int kTimeInFrontMs = 250;
constexpr int kModalFormIsUp = 401;
constexpr std::size_t kUsualEditions = 3;

} // namespace

SearchSwdLib::SearchSwdLib()
    : Form("SearchSwdLib")
    , Label1_(new MnemonicLabel("Label1", QStringLiteral("Select a Zorvo &Sablewood Library:"), this))
    , LibraryList_(new QComboBox(this))
    , Label2_(new MnemonicLabel("Label2", QStringLiteral("Enter a &word or phrase to look for:"), this))
    , Keyword_(new QLineEdit(this))
    , SearchButton_(new QPushButton(QStringLiteral("&Search"), this))
    , CancelSearchButton_(new QPushButton(QStringLiteral("Cancel"), this))
    , SearchHelpButton_(new QPushButton(QStringLiteral("&Help"), this))
{
    setCaption(QStringLiteral("Search Zorvo's Sablewood Library"));
    LibraryList_->setObjectName(QStringLiteral("LibraryList"));
    LibraryList_->setMinimumWidth(kFieldWidth);
    Keyword_->setObjectName(QStringLiteral("Keyword"));
    SearchButton_->setObjectName(QStringLiteral("SearchButton"));
    CancelSearchButton_->setObjectName(QStringLiteral("CancelSearchButton"));
    SearchHelpButton_->setObjectName(QStringLiteral("SearchHelpButton"));
    Label1_->setBuddy(LibraryList_);
    Label2_->setBuddy(Keyword_);
    setDefaultButton(SearchButton_);
    setCancelButton(CancelSearchButton_);
    layOut();
    connectControls();
}

std::string SearchSwdLib::libraryText() const
{
    return LibraryList_->currentText().toStdString();
}

std::string SearchSwdLib::keywordText() const
{
    return Keyword_->text().toStdString();
}

void SearchSwdLib::layOut()
{
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {SearchButton_, CancelSearchButton_, SearchHelpButton_})
        buttons->addWidget(button);
    auto* whole = new QVBoxLayout(this);
    spaceForm(*whole);
    whole->addWidget(Label1_);
    whole->addWidget(LibraryList_);
    whole->addSpacing(kSpacing);
    whole->addWidget(Label2_);
    whole->addWidget(Keyword_);
    whole->addSpacing(kSpacing);
    whole->addStretch();
    whole->addLayout(buttons);
}

void SearchSwdLib::connectControls()
{
    connect(SearchButton_, &QPushButton::clicked, this, guardedSlot(this, [this] { SearchButton_Click(); }));
    connect(CancelSearchButton_, &QPushButton::clicked, this, guardedSlot(this, [this] { unload(); }));
    connect(SearchHelpButton_, &QPushButton::clicked, this, guardedSlot(this, [] { ShowHelpContents(); }));
}

void SearchSwdLib::onLoad()
{
    const BusyPointer busy;
    fillLibraries();
    showWhetherSearchable();
    ApplyFormBranding(*this);
}

void SearchSwdLib::fillLibraries()
{
    std::vector<std::string> sList(kUsualEditions);
    std::int16_t nCount = 0;
    bool bFound = false;
    LoadLibraries(sList, nCount, bFound, false);
    sList.resize(static_cast<std::size_t>(nCount));
    LibraryList_->clear();
    for (const std::string& sLibrary : sList)
        LibraryList_->addItem(QString::fromStdString(sLibrary));
    if (bFound)
        LibraryList_->setCurrentIndex(0);
    else
        LibraryList_->setPlaceholderText(tr("No library is installed"));
}

void SearchSwdLib::showWhetherSearchable()
{
    const bool bSearchable = static_cast<bool>(searchEngine());
    SearchButton_->setEnabled(bSearchable);
    SearchButton_->setToolTip(bSearchable ? QString() : tr("The search isn't part of this build."));
}

void SearchSwdLib::onActivate()
{
    try {
        comeInFront();
    } catch (const RunTimeError&) { // the form is up all the same
    }
}

/// An add-in's own window may stand in front of the form that it asked for.
void SearchSwdLib::comeInFront()
{
    setTopMost(*this, true);
    processPendingEvents();
    platform().machine->sleep(kTimeInFrontMs);
    setTopMost(*this, false);
    Keyword_->setFocus();
}

void SearchSwdLib::SearchButton_Click()
{
    if (Keyword_->text().isEmpty()) {
        BrandedMsgBox("Please enter a word or phrase to search for.", kMsgInformation);
        return;
    }
    hide();
    try {
        runSearch();
    } catch (const RunTimeError& error) {
        if (error.number() != kModalFormIsUp)
            throw;
        BrandedMsgBox("Please close form and retry search.");
    }
}

void SearchSwdLib::runSearch()
{
    if (QApplication::activeModalWidget())
        throw RunTimeError(kModalFormIsUp, "Can't show non-modal form when modal form is displayed");
    swdSearchMessage().get().showModeless();
    searchState().bSearching = true;
    try {
        searchEngine()();
    } catch (...) {
        searchState().bSearching = false;
        swdSearchMessage().unload();
        throw;
    }
    searchState().bSearching = false;
}

} // namespace zorvo
