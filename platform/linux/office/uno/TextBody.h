#pragma once

#include <com/sun/star/document/XDocumentInsertable.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <string>
#include <vector>

namespace zorvo {

/// The body of a text document that nobody else changes meanwhile, with a cursor. Its window stands still
/// from the first change until `letWindowFollow`: laying the text out after every change takes longer than
/// the change.
class TextBody {
public:
    explicit TextBody(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

    /// Throws OfficeFailure (refused) for a file without contents, or with some that the office broke off at.
    void insertFile(const std::string& path);
    void goToStart();

    int tableCount();
    /// The number of a table by its place, from 1; 0 when there is none.
    int tableAt(int index);
    std::string tableText(int nTable);
    void selectTable(int nTable);
    void removeTable(int nTable);
    bool isWithinTable();
    /// The rest of the cursor's paragraph, or the end of the paragraph. False before a table and at the end.
    bool deleteForward();

    void letWindowFollow();

private:
    template <typename Interface>
    using Reference = com::sun::star::uno::Reference<Interface>;
    using TextCursor = Reference<com::sun::star::text::XParagraphCursor>;

    /// A paragraph or a table of the body.
    struct Block {
        Reference<com::sun::star::text::XTextContent> content;
        Reference<com::sun::star::text::XTextTable> table; // null for a paragraph
        int nTable = 0;
    };

    void holdWindow();
    void bringCursor();
    void listBlocks();
    void bringBlock();
    std::size_t placeOf(int nTable);

    Reference<com::sun::star::frame::XModel> model_;
    Reference<com::sun::star::text::XText> text_;
    /// Where the cursor is: at the beginning of a paragraph, or, when this is null, before a block.
    TextCursor cursor_;
    Reference<com::sun::star::document::XDocumentInsertable> place_;
    std::size_t nBlock_ = 0;
    std::vector<Block> blocks_;
    bool bListed_ = false;
    int nLastTable_ = 0;
    bool bHeld_ = false;
};

} // namespace zorvo
