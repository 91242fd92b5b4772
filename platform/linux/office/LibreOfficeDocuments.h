#pragma once

#include "platform/Office.h"
#include "platform/linux/office/DocumentCore.h"

#include <memory>
#include <string>

namespace zorvo {

/// Through which an add-in's argument is known as a document of ours.
class DocumentHolder {
public:
    explicit DocumentHolder(std::shared_ptr<DocumentCore> core)
        : core_(std::move(core))
    {
    }
    virtual ~DocumentHolder() = default;

    const std::shared_ptr<DocumentCore>& core() const { return core_; }

private:
    std::shared_ptr<DocumentCore> core_;
};

class LibreOfficeTextDocument : public WordDocument, public DocumentHolder {
public:
    using DocumentHolder::DocumentHolder;

    std::string fullName() override { return core()->fullName(); }
    void close() override { core()->close(); }
    /// Throws RunTimeError 5 for any other format than 0.
    void saveAs(const std::string& sFileName, int nFileFormat) override;
    std::shared_ptr<WordTables> tables() override;
};

class LibreOfficeSpreadsheet : public ExcelWorkbook, public DocumentHolder {
public:
    using DocumentHolder::DocumentHolder;

    std::string fullName() override { return core()->fullName(); }
    void close() override { core()->close(); }
    /// Throws RunTimeError 5 for any other format than 56 and 0.
    void saveAs(const std::string& sFileName, int nFileFormat, int nAccessMode) override;
    void closeWithoutSaving() override { core()->closeWithoutSaving(); }
};

} // namespace zorvo
