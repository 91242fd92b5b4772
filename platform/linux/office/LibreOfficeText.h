#pragma once

#include "platform/Office.h"
#include "platform/linux/office/ApplicationCore.h"
#include "platform/linux/office/DocumentText.h"

#include <memory>
#include <string>

namespace zorvo {

class LibreOfficeTable : public WordTable {
public:
    LibreOfficeTable(DocumentText text, int nTable)
        : text_(std::move(text))
        , nTable_(nTable)
    {
    }

    std::string text() override { return text_.tableText(nTable_); }
    void select() override { text_.selectTable(nTable_); }
    void remove() override { text_.removeTable(nTable_); }

private:
    DocumentText text_;
    int nTable_;
};

class LibreOfficeTables : public WordTables {
public:
    explicit LibreOfficeTables(DocumentText text)
        : text_(std::move(text))
    {
    }

    int count() override { return text_.tableCount(); }
    std::shared_ptr<WordTable> item(int index) override
    {
        return std::make_shared<LibreOfficeTable>(text_, text_.tableAt(index));
    }

private:
    DocumentText text_;
};

/// The cursor of whichever document is active.
class LibreOfficeSelection : public WordSelection {
public:
    explicit LibreOfficeSelection(ApplicationCore& application)
        : application_(application)
    {
    }

    void insertFile(const std::string& sFileName) override;
    /// Throws RunTimeError 5 for another unit than 6.
    void homeKey(int nUnit) override;
    bool withinTable() override;
    void deleteForward() override;

private:
    DocumentText text() { return DocumentText(application_.active()); }

    ApplicationCore& application_;
};

/// The window of whichever document is active.
class LibreOfficeWindow : public WordWindow {
public:
    explicit LibreOfficeWindow(ApplicationCore& application)
        : application_(application)
    {
    }

    /// Windows of this office can't be split.
    int viewSplitSpecial() override;
    /// Only the page view has its like here; the others leave the window as it is.
    void setPaneViewType(int nType) override { setViewType(nType); }
    void setViewType(int nType) override;
    void activate() override { application_.active()->raise(); }
    void closeWithoutSaving() override { application_.active()->closeWithoutSaving(); }

private:
    ApplicationCore& application_;
};

} // namespace zorvo
