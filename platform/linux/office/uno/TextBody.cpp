#include "platform/linux/office/uno/TextBody.h"

#include "platform/linux/office/OfficeConnection.h"
#include "platform/linux/office/uno/unoText.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>

#include <algorithm>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace zorvo {

namespace {

using Range = Reference<css::text::XTextRange>;

Range rangeOf(const Reference<css::uno::XInterface>& place)
{
    return {place, UNO_QUERY_THROW};
}

void dispose(const Reference<css::uno::XInterface>& block)
{
    Reference<css::lang::XComponent>(block, UNO_QUERY_THROW)->dispose();
}

/// The row in a cell's name: 12 in "B12", and in "B12.1.1", a cell of a split one.
sal_Int32 rowOf(const rtl::OUString& cell)
{
    sal_Int32 at = 0;
    while (at < cell.getLength() && (cell[at] < '0' || cell[at] > '9'))
        ++at;
    return cell.copy(at).toInt32();
}

constexpr const char* kEndOfCell = "\r\x07";

} // namespace

TextBody::TextBody(const Reference<css::frame::XModel>& document)
    : model_(document)
    , text_(Reference<css::text::XTextDocument>(document, UNO_QUERY_THROW)->getText())
{
}

void TextBody::holdWindow()
{
    if (!bHeld_)
        model_->lockControllers();
    bHeld_ = true;
}

void TextBody::letWindowFollow()
{
    if (bHeld_)
        model_->unlockControllers();
    bHeld_ = false;
}

void TextBody::goToStart()
{
    cursor_.clear();
    nBlock_ = 0;
}

// --- Insertion

// Every question to the office takes its time, so that as few as can be stand between two files.

void TextBody::insertFile(const std::string& path)
{
    holdWindow();
    bringCursor();
    blocks_.clear();
    bListed_ = false;
    place_->insertDocumentFromURL(fileAddress(path), {});
    // The cursor holds now what has come in.
    if (cursor_->isCollapsed())
        throw OfficeFailure(OfficeFailure::Kind::refused, "The file holds nothing that can be inserted.");
    cursor_->collapseToEnd();
    // The last paragraph of some files has no end; the next file begins one of its own all the same.
    if (!cursor_->isStartOfParagraph())
        text_->insertControlCharacter(rangeOf(cursor_), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
}

void TextBody::bringCursor()
{
    if (cursor_.is())
        return;
    if (nBlock_ == 0) {
        // Tables that the text begins with stay in front.
        cursor_.set(text_->createTextCursor(), UNO_QUERY_THROW);
        cursor_->gotoStart(false);
    } else {
        listBlocks();
        if (nBlock_ >= blocks_.size() || blocks_[nBlock_].table.is())
            throw OfficeFailure(OfficeFailure::Kind::refused, "Nothing can be inserted into a table.");
        cursor_.set(text_->createTextCursorByRange(rangeOf(blocks_[nBlock_].content)->getStart()),
                    UNO_QUERY_THROW);
    }
    place_.set(cursor_, UNO_QUERY_THROW);
}

// --- Tables

void TextBody::listBlocks()
{
    if (bListed_)
        return;
    blocks_.clear();
    const auto elements =
        Reference<css::container::XEnumerationAccess>(text_, UNO_QUERY_THROW)->createEnumeration();
    while (elements->hasMoreElements()) {
        Block block;
        block.content.set(elements->nextElement(), UNO_QUERY_THROW);
        block.table.set(block.content, UNO_QUERY);
        if (block.table.is())
            block.nTable = ++nLastTable_;
        blocks_.push_back(block);
    }
    bListed_ = true;
}

void TextBody::bringBlock()
{
    listBlocks();
    if (!cursor_.is())
        return;
    const Reference<css::text::XTextRangeCompare> order(text_, UNO_QUERY_THROW);
    for (nBlock_ = 0; nBlock_ < blocks_.size(); ++nBlock_)
        if (!blocks_[nBlock_].table.is() &&
            order->compareRegionStarts(rangeOf(blocks_[nBlock_].content), rangeOf(cursor_)) == 0)
            break;
    cursor_.clear();
}

std::size_t TextBody::placeOf(int nTable)
{
    for (std::size_t at = 0; at < blocks_.size(); ++at)
        if (blocks_[at].nTable == nTable)
            return at;
    throw OfficeFailure(OfficeFailure::Kind::noDocument, "The table has been deleted.");
}

int TextBody::tableCount()
{
    listBlocks();
    return static_cast<int>(
        std::count_if(blocks_.begin(), blocks_.end(), [](const Block& block) { return block.table.is(); }));
}

int TextBody::tableAt(int index)
{
    listBlocks();
    for (const Block& block : blocks_)
        if (block.table.is() && --index == 0)
            return block.nTable;
    return 0;
}

std::string TextBody::tableText(int nTable)
{
    listBlocks();
    const auto table = blocks_[placeOf(nTable)].table;
    std::string text;
    sal_Int32 nRow = 1;
    for (const rtl::OUString& name : table->getCellNames()) {
        if (rowOf(name) != nRow)
            text += kEndOfCell;
        nRow = rowOf(name);
        const Range cell(table->getCellByName(name), UNO_QUERY_THROW);
        text += plainText(cell->getString().replace('\n', '\r')) + kEndOfCell;
    }
    return text + kEndOfCell;
}

void TextBody::selectTable(int nTable)
{
    listBlocks();
    cursor_.clear();
    nBlock_ = placeOf(nTable);
}

void TextBody::removeTable(int nTable)
{
    selectTable(nTable);
    holdWindow();
    dispose(blocks_[nBlock_].content);
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(nBlock_));
}

bool TextBody::isWithinTable()
{
    bringBlock();
    return nBlock_ < blocks_.size() && blocks_[nBlock_].table.is();
}

bool TextBody::deleteForward()
{
    bringBlock();
    if (nBlock_ >= blocks_.size() || blocks_[nBlock_].table.is())
        return false;
    holdWindow();
    const auto paragraph = blocks_[nBlock_].content;
    const bool bLast = nBlock_ + 1 == blocks_.size();
    if (bLast && rangeOf(paragraph)->getString().isEmpty())
        return false;
    // The office keeps the only paragraph of a section, so that at least its text has to go.
    rangeOf(paragraph)->setString("");
    if (bLast)
        return true; // a text can't end without a paragraph
    dispose(paragraph);
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(nBlock_));
    return true;
}

} // namespace zorvo
