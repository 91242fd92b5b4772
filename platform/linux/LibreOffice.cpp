#include "platform/linux/LibreOffice.h"

#include "platform/linux/office/LibreOfficeApplications.h"

namespace zorvo {

namespace {

class LibreOffice : public Office {
public:
    LibreOffice() = default;
    ~LibreOffice() override { sessions_->end(); }
    LibreOffice(const LibreOffice&) = delete;
    LibreOffice& operator=(const LibreOffice&) = delete;

    std::shared_ptr<WordApplication> createWord() override
    {
        findOffice(OfficeDocumentKind::text);
        return std::make_shared<LibreOfficeWord>(sessions_);
    }

    std::shared_ptr<WordApplication> createWordForUser() override
    {
        findOffice(OfficeDocumentKind::text);
        return std::make_shared<LibreOfficeWord>(sessions_, DocumentCore::Place::hidden);
    }

    std::shared_ptr<ExcelApplication> createExcel() override
    {
        findOffice(OfficeDocumentKind::spreadsheet);
        return std::make_shared<LibreOfficeExcel>(sessions_);
    }

    void setNeverReplaceFiles(bool bNever) override { sessions_->manners().bNeverReplace = bNever; }
    void setIdleWork(std::function<void()> work) override { sessions_->manners().idleWork = std::move(work); }

private:
    std::shared_ptr<OfficeSessions> sessions_ = std::make_shared<OfficeSessions>();
};

} // namespace

std::shared_ptr<Office> makeLibreOffice()
{
    return std::make_shared<LibreOffice>();
}

} // namespace zorvo
