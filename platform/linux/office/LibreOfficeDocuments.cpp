#include "platform/linux/office/LibreOfficeDocuments.h"

#include "base/RunTimeError.h"
#include "platform/linux/office/LibreOfficeText.h"

namespace zorvo {

void LibreOfficeTextDocument::saveAs(const std::string& sFileName, int nFileFormat)
{
    if (nFileFormat != 0)
        throw RunTimeError(kInvalidCall, "Word documents are saved in format 0 only.");
    core()->saveAs(sFileName, "MS Word 97");
}

std::shared_ptr<WordTables> LibreOfficeTextDocument::tables()
{
    return std::make_shared<LibreOfficeTables>(DocumentText(core()));
}

void LibreOfficeSpreadsheet::saveAs(const std::string& sFileName, int nFileFormat, int /*nAccessMode*/)
{
    constexpr int kExcel97 = 56;
    if (nFileFormat != 0 && nFileFormat != kExcel97)
        throw RunTimeError(kInvalidCall, "Workbooks are saved in format 56 only.");
    core()->saveAs(sFileName, "MS Excel 97");
}

} // namespace zorvo
