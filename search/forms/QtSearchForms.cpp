#include "search/forms/QtSearchForms.h"

#include "search/FindSWDFiles.h"
#include "search/forms/SWDSearchMessage.h"
#include "search/forms/SearchSwdLib.h"
#include "search/forms/searchFormInstances.h"
#include "search/searchState.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace zorvo {

std::string QtSearchForms::libraryText()
{
    return searchSwdLib().get().libraryText();
}

std::string QtSearchForms::keywordText()
{
    return searchSwdLib().get().keywordText();
}

void QtSearchForms::refreshMessage()
{
    swdSearchMessage().get().repaint();
}

void QtSearchForms::showProgress(std::size_t nDone, std::size_t nFiles)
{
    if (SWDSearchMessage* message = swdSearchMessage().ifLoaded())
        message->setProgress(nDone, nFiles);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtSearchForms::hideForms()
{
    if (SWDSearchMessage* message = swdSearchMessage().ifLoaded())
        message->hide();
    if (SearchSwdLib* form = searchSwdLib().ifLoaded())
        form->hide();
}

void QtSearchForms::unloadForms()
{
    swdSearchMessage().unload();
    searchSwdLib().unload();
}

void installQtSearchForms()
{
    static QtSearchForms forms;
    searchForms() = &forms;
    searchEngine() = FindSWDFiles;
}

} // namespace zorvo
