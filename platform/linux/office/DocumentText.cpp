#include "platform/linux/office/DocumentText.h"

#include "base/RunTimeError.h"
#include "platform/Files.h"
#include "platform/Office.h"
#include "platform/Platform.h"
#include "platform/linux/office/documentChecks.h"

namespace zorvo {

DocumentText::DocumentText(std::shared_ptr<DocumentCore> document)
    : document_(std::move(document))
    , loaded_(document_->handOver())
{
}

void DocumentText::insertFile(const std::string& sFile) const
{
    const std::string native = platform().files->toNative(sFile);
    // The office inserts a file that isn't there as nothing, without a word.
    checkDocumentFile(native, kWordFileNotFound);
    loaded_.session->run(
        [n = loaded_.nDocument, native](OfficeConnection& office) { office.insertFile(n, native); });
}

void DocumentText::goToStart() const
{
    loaded_.session->run([n = loaded_.nDocument](OfficeConnection& office) { office.goToStart(n); });
}

bool DocumentText::isWithinTable() const
{
    return loaded_.session->ask<bool>(
        [n = loaded_.nDocument](OfficeConnection& office) { return office.isWithinTable(n); });
}

void DocumentText::deleteForward() const
{
    if (!loaded_.session->ask<bool>(
            [n = loaded_.nDocument](OfficeConnection& office) { return office.deleteForward(n); }))
        throw RunTimeError(kInvalidCall, "There is nothing to delete.");
}

int DocumentText::tableCount() const
{
    return loaded_.session->ask<int>(
        [n = loaded_.nDocument](OfficeConnection& office) { return office.tableCount(n); });
}

int DocumentText::tableAt(int index) const
{
    const int nTable = loaded_.session->ask<int>(
        [n = loaded_.nDocument, index](OfficeConnection& office) { return office.tableAt(n, index); });
    if (nTable == 0)
        throw RunTimeError(kIndexOutOfRange);
    return nTable;
}

std::string DocumentText::tableText(int nTable) const
{
    return loaded_.session->ask<std::string>(
        [n = loaded_.nDocument, nTable](OfficeConnection& office) { return office.tableText(n, nTable); });
}

void DocumentText::selectTable(int nTable) const
{
    loaded_.session->run(
        [n = loaded_.nDocument, nTable](OfficeConnection& office) { office.selectTable(n, nTable); });
}

void DocumentText::removeTable(int nTable) const
{
    loaded_.session->run(
        [n = loaded_.nDocument, nTable](OfficeConnection& office) { office.removeTable(n, nTable); });
}

} // namespace zorvo
