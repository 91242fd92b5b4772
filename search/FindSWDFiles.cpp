#include "search/FindSWDFiles.h"

#include "base/attempt.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "branding/BrandedMsgBox.h"
#include "platform/FileSearch.h"
#include "platform/Machine.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "search/BuildExampleDocument.h"
#include "search/SWDSearchSupport.h"
#include "search/SearchForms.h"
#include "search/searchState.h"
#include "window/BusyPointer.h"
#include "window/messageBox.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace zorvo {

namespace {

constexpr double kWordWithoutFileSearch = 12;
/// The one system on which the file search doesn't answer; later ones are taken as they are.
constexpr double kSystemWithoutFileSearch = 6.0;

/// One run of FindSWDFiles.
class Search {
public:
    explicit Search(std::shared_ptr<WordApplication> word)
        : objWord_(std::move(word))
    {
    }

    static void refreshMessage()
    {
        attempt([] { forms().refreshMessage(); });
    }

    void chooseEdition()
    {
        SearchState& state = searchState();
        state.nSWDSelected = 0;
        std::string sLibrary;
        attempt([&] { sLibrary = forms().libraryText(); });
        // One entry more than there are editions: the tables have it. The last that is named so counts.
        for (std::int16_t i = 0; i <= state.nSWDCount; ++i)
            attempt([&] {
                if (tableEntry(state.sSWDName, i) + " " + tableEntry(state.sSWDVersion, i) != sLibrary)
                    return;
                sFolder_ = tableEntry(state.sSWDPath, i);
                state.nSWDSelected = i;
            });
    }

    bool hasFileSearch() const
    {
        double nSystem = 0;
        double nWord = 0;
        attempt([&] { nSystem = platform().machine->systemVersion(); });
        attempt([&] { nWord = leadingNumber(objWord_->version()); });
        return nSystem != kSystemWithoutFileSearch && nWord < kWordWithoutFileSearch;
    }

    /// Word isn't asked to quit here: the document that was made may be its own.
    void filterMaster()
    {
        std::string sKeyword;
        attempt([&] { sKeyword = forms().keywordText(); });
        attempt([] { forms().hideForms(); });
        attempt([] { forms().unloadForms(); });
        attempt(
            [&] { resultDocuments().FilterMasterDocument(sFolder_, sKeyword, searchState().nSWDSelected); });
        objWord_.reset();
    }

    void searchFiles()
    {
        const FileQuestion question = makeQuestion();
        try {
            const std::vector<std::string> found = platform().fileSearch->find(
                question, [](std::size_t nDone, std::size_t nFiles) { forms().showProgress(nDone, nFiles); });
            if (found.empty())
                tellNothingFound();
            else
                offer(found);
            quitWord();
        } catch (const RunTimeError& error) {
            report(error);
        }
    }

private:
    static SearchForms& forms()
    {
        if (!searchForms())
            throw RunTimeError(kObjectNotSet);
        return *searchForms();
    }

    FileQuestion makeQuestion() const
    {
        SearchState& state = searchState();
        state.nSWDFileIndex = 0;
        FileQuestion question;
        question.sLookIn = sFolder_;
        attempt([&] { state.sSWDKeyword = forms().keywordText(); });
        question.sTextOrProperty = state.sSWDKeyword;
        attempt([&] { question.sFileName = "*." + tableEntry(state.sSWDRdfExt, state.nSWDSelected); });
        return question;
    }

    void tellNothingFound()
    {
        quitWord();
        forms().hideForms();
        forms().unloadForms();
        BrandedMsgBox("No examples containing the text '" + searchState().sSWDKeyword + "' were found.",
                      kMsgInformation);
    }

    void offer(const std::vector<std::string>& found)
    {
        SearchState& state = searchState();
        const std::size_t nUsed = std::min<std::size_t>(found.size(), kMostFoundFiles);
        state.nSWDFoundCount = static_cast<std::int16_t>(nUsed);
        forms().hideForms();
        if (askToView(forms().keywordText()) != kMsgResultYes)
            return; // the search form stays hidden, and its owner unloads it
        state.sSWDFoundFiles.assign(nUsed, {});
        for (std::size_t i = 0; i < nUsed; ++i)
            state.sSWDFoundFiles[static_cast<std::size_t>(state.nSWDFileIndex++)] = found[i];
        quitWord();
        forms().hideForms();
        forms().unloadForms();
        resultDocuments().BuildExampleDocument();
    }

    static int askToView(const std::string& sKeyword)
    {
        const std::int16_t nCount = searchState().nSWDFoundCount;
        const std::string sText = nCount == 1
                                      ? "The search found one example disclosure containing the text '" +
                                            sKeyword + "'.\r\n\r\nDo you want to view it?\r\n"
                                      : "The search found " + std::to_string(nCount) +
                                            " example disclosures containing the text '" + sKeyword +
                                            "'.\r\n\r\nDo you want to view them?\r\n";
        return BrandedMsgBox(sText, kMsgYesNo, {}, {}, {}, kLibraryTitleSuffix);
    }

    void quitWord()
    {
        if (!objWord_)
            return;
        objWord_->quit();
        objWord_.reset();
    }

    /// The wait notice mustn't stay in front of a search that has ended.
    void report(const RunTimeError& error)
    {
        attempt([] { forms().hideForms(); });
        attempt([] { forms().unloadForms(); });
        recordFailure(error);
        ReportError("SWDSearchSupport.FindSWDFiles");
        objWord_.reset();
    }

    std::shared_ptr<WordApplication> objWord_;
    std::string sFolder_;
};

} // namespace

ResultDocuments& resultDocuments()
{
    static ResultDocuments documents{BuildExampleDocument, FilterMasterDocument};
    return documents;
}

void FindSWDFiles()
{
    Search search(platform().office->createWord());
    const BusyPointer busy;
    Search::refreshMessage();
    search.chooseEdition();
    if (search.hasFileSearch())
        search.searchFiles();
    else
        search.filterMaster();
}

} // namespace zorvo
