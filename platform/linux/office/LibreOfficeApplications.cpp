#include "platform/linux/office/LibreOfficeApplications.h"

#include "platform/linux/office/LibreOfficeDocuments.h"

namespace zorvo {

LibreOfficeWord::LibreOfficeWord(std::shared_ptr<OfficeSessions> sessions, DocumentCore::Place hiddenPlace)
    : LibreOfficeApplication(std::move(sessions), OfficeDocumentKind::text, hiddenPlace)
{
}

std::shared_ptr<WordDocument> LibreOfficeWord::activeDocument()
{
    return std::make_shared<LibreOfficeTextDocument>(core_.active());
}

void LibreOfficeWord::setWindowState(int nState)
{
    constexpr int kMaximized = 1;
    const auto document = core_.active();
    if (nState == kMaximized)
        document->maximize();
}

LibreOfficeExcel::LibreOfficeExcel(std::shared_ptr<OfficeSessions> sessions)
    : LibreOfficeApplication(std::move(sessions), OfficeDocumentKind::spreadsheet)
{
}

std::shared_ptr<ExcelWorkbook> LibreOfficeExcel::activeWorkbook()
{
    return std::make_shared<LibreOfficeSpreadsheet>(core_.active());
}

void LibreOfficeExcel::setActiveWindowView(int nView)
{
    constexpr int kNormalView = 1;
    const auto document = core_.active();
    if (nView == kNormalView)
        document->showNormalView();
}

} // namespace zorvo
