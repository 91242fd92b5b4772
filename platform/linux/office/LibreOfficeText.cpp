#include "platform/linux/office/LibreOfficeText.h"

#include "base/RunTimeError.h"

namespace zorvo {

void LibreOfficeSelection::insertFile(const std::string& sFileName)
{
    text().insertFile(application_.fullNameOf(sFileName));
}

void LibreOfficeSelection::homeKey(int nUnit)
{
    constexpr int kDocument = 6;
    if (nUnit != kDocument)
        throw RunTimeError(kInvalidCall, "The cursor goes to the beginning of a document only.");
    text().goToStart();
}

bool LibreOfficeSelection::withinTable()
{
    return text().isWithinTable();
}

void LibreOfficeSelection::deleteForward()
{
    text().deleteForward();
}

int LibreOfficeWindow::viewSplitSpecial()
{
    application_.active();
    return 0;
}

void LibreOfficeWindow::setViewType(int nType)
{
    constexpr int kPageView = 3;
    const auto document = application_.active();
    if (nType == kPageView)
        document->showPageView();
}

} // namespace zorvo
