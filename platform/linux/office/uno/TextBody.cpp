#include "platform/linux/office/uno/TextBody.h"

#include "platform/linux/office/OfficeConnection.h"
#include "platform/linux/office/uno/unoText.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/XDocumentInsertable.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>

#include <algorithm>

namespace css = com::sun::star;
using css::uno::Any;
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

/// The paragraphs and tables that the range touches.
std::vector<Reference<css::text::XTextContent>> blocksOf(const Reference<css::uno::XInterface>& range)
{
    std::vector<Reference<css::text::XTextContent>> blocks;
    const auto elements =
        Reference<css::container::XEnumerationAccess>(range, UNO_QUERY_THROW)->createEnumeration();
    while (elements->hasMoreElements())
        blocks.emplace_back(elements->nextElement(), UNO_QUERY_THROW);
    return blocks;
}

bool isInTable(const Reference<css::uno::XInterface>& place)
{
    return Reference<css::beans::XPropertySet>(place, UNO_QUERY_THROW)
        ->getPropertyValue("TextTable")
        .hasValue();
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

TextBody::TextCursor TextBody::cursorAt(const Range& place) const
{
    return {text_->createTextCursorByRange(place), UNO_QUERY_THROW};
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

void TextBody::insertFile(const std::string& path)
{
    holdWindow();
    bringCursor();
    const TextCursor place = openParagraph();
    blocks_.clear();
    bListed_ = false;
    try {
        Reference<css::document::XDocumentInsertable>(place, UNO_QUERY_THROW)
            ->insertDocumentFromURL(fileAddress(path), {});
    } catch (const css::uno::Exception&) {
        closeParagraph({});
        throw;
    }
    closeParagraph(place);
}

void TextBody::bringCursor()
{
    if (cursor_.is())
        return;
    if (nBlock_ == 0) {
        // Tables that the text begins with stay in front.
        cursor_.set(text_->createTextCursor(), UNO_QUERY_THROW);
        cursor_->gotoStart(false);
        return;
    }
    listBlocks();
    if (nBlock_ >= blocks_.size() || blocks_[nBlock_].table.is())
        throw OfficeFailure(OfficeFailure::Kind::refused, "Nothing can be inserted into a table.");
    cursor_ = cursorAt(rangeOf(blocks_[nBlock_].content)->getStart());
}

/// A plain paragraph of its own in front of the cursor. What is inserted there can't run into the text around
/// it, and the cursor stays behind it whatever the file holds.
TextBody::TextCursor TextBody::openParagraph()
{
    text_->insertControlCharacter(rangeOf(cursor_), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
    const TextCursor place = cursorAt(rangeOf(cursor_)->getStart());
    place->goLeft(1, false);
    const Reference<css::beans::XPropertySet> look(place, UNO_QUERY_THROW);
    look->setPropertyValue("ParaStyleName", Any(rtl::OUString("Standard")));
    return place;
}

/// `inserted` begins where the file's contents do. Null when there are none.
void TextBody::closeParagraph(const TextCursor& inserted)
{
    const TextCursor end = cursorAt(rangeOf(cursor_)->getStart());
    end->goLeft(1, false);
    bool bEmpty = true;
    if (inserted.is()) {
        const TextCursor all = cursorAt(rangeOf(inserted)->getStart());
        all->gotoRange(rangeOf(end), true);
        bEmpty = rangeOf(all)->getString().isEmpty();
    }
    if (bEmpty) {
        dispose(blocksOf(end).front());
        if (inserted.is())
            throw OfficeFailure(OfficeFailure::Kind::refused, "The file holds nothing to insert.");
        return;
    }
    // A file whose last paragraph has an end leaves ours empty. Behind a table it stays: two tables that
    // touch look like one.
    if (!end->isStartOfParagraph() || !end->isEndOfParagraph())
        return;
    const TextCursor before = cursorAt(rangeOf(end)->getStart());
    before->goLeft(1, false);
    if (!isInTable(before))
        dispose(blocksOf(end).front());
}

// --- Tables

void TextBody::listBlocks()
{
    if (bListed_)
        return;
    blocks_.clear();
    for (const Reference<css::text::XTextContent>& content : blocksOf(text_)) {
        Block block{.content = content, .table = {}, .nTable = 0};
        block.table.set(content, UNO_QUERY);
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
