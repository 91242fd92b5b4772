#include "tests/fakes/RecordedBody.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <algorithm>
#include <sstream>

namespace zorvo {

RecordedBody::RecordedBody(const std::string& sContents)
    : blocks_(blocksOf(sContents))
{
    if (blocks_.empty())
        blocks_.emplace_back();
}

std::vector<RecordedBody::Block> RecordedBody::blocksOf(const std::string& sContents)
{
    std::vector<Block> blocks;
    std::istringstream lines(sContents);
    for (std::string sLine; std::getline(lines, sLine);)
        blocks.push_back({sLine, sLine.starts_with('|') ? ++nLastTable_ : 0});
    return blocks;
}

bool RecordedBody::insert(const std::string& sContents)
{
    const std::vector<Block> blocks = blocksOf(sContents);
    // Tables that the text begins with stay in front.
    while (nCursor_ + 1 < blocks_.size() && withinTable())
        ++nCursor_;
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(nCursor_), blocks.begin(), blocks.end());
    nCursor_ += blocks.size();
    return !blocks.empty();
}

int RecordedBody::tableCount() const
{
    return static_cast<int>(
        std::count_if(blocks_.begin(), blocks_.end(), [](const Block& block) { return block.nTable != 0; }));
}

int RecordedBody::tableAt(int index) const
{
    for (const Block& block : blocks_)
        if (block.nTable != 0 && --index == 0)
            return block.nTable;
    return 0;
}

std::size_t RecordedBody::placeOf(int nTable) const
{
    for (std::size_t at = 0; at < blocks_.size(); ++at)
        if (blocks_[at].nTable == nTable)
            return at;
    throw RunTimeError(kObjectRequired);
}

std::string RecordedBody::tableText(int nTable) const
{
    const std::string& sLine = blocks_[placeOf(nTable)].sLine;
    return replaceAll(sLine.substr(1), "|", "\r\x07") + "\r\x07";
}

void RecordedBody::select(int nTable)
{
    nCursor_ = placeOf(nTable);
}

void RecordedBody::remove(int nTable)
{
    nCursor_ = placeOf(nTable);
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(nCursor_));
}

bool RecordedBody::withinTable() const
{
    return nCursor_ < blocks_.size() && blocks_[nCursor_].nTable != 0;
}

bool RecordedBody::deleteForward()
{
    if (nCursor_ >= blocks_.size() || withinTable())
        return false;
    if (nCursor_ + 1 < blocks_.size()) {
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(nCursor_));
        return true;
    }
    const bool bWasThere = !blocks_[nCursor_].sLine.empty();
    blocks_[nCursor_].sLine.clear();
    return bWasThere;
}

std::vector<std::string> RecordedBody::lines() const
{
    std::vector<std::string> lines;
    for (const Block& block : blocks_)
        lines.push_back(block.sLine);
    return lines;
}

} // namespace zorvo
