#pragma once

#include <string>
#include <vector>

namespace zorvo {

/// A document's body as the fake Word keeps it: paragraphs and tables, and a cursor that stands before one of
/// them. A file's contents are taken as such a body: a line per paragraph, and a line "|a|b|" for a table of
/// one row; a line end at the end of the file counts for nothing.
class RecordedBody {
public:
    RecordedBody() = default;
    explicit RecordedBody(const std::string& sContents);

    /// False when there is nothing in them.
    bool insert(const std::string& sContents);
    void goToStart() { nCursor_ = 0; }

    int tableCount() const;
    /// The number by which a table is known, or 0. `index` from 1.
    int tableAt(int index) const;
    /// Throws RunTimeError 424 when the table has gone, as do the next two.
    std::string tableText(int nTable) const;
    void select(int nTable);
    void remove(int nTable);

    bool withinTable() const;
    /// False before a table and at the end.
    bool deleteForward();

    /// The lines, those of tables included.
    std::vector<std::string> lines() const;

private:
    struct Block {
        std::string sLine;
        int nTable = 0; // 0 for a paragraph
    };

    std::vector<Block> blocksOf(const std::string& sContents);
    std::size_t placeOf(int nTable) const;

    int nLastTable_ = 0;
    std::vector<Block> blocks_ = {Block()};
    std::size_t nCursor_ = 0;
};

} // namespace zorvo
