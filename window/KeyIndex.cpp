#include "window/KeyIndex.h"

#include "window/TreeNodes.h"

#include <functional>

namespace zorvo {

namespace {

constexpr std::size_t kFewest = 64;

std::size_t hashOf(std::string_view sKey)
{
    return std::hash<std::string_view>()(sKey);
}

} // namespace

TreeNode* KeyIndex::find(std::string_view sKey) const
{
    return slots_.empty() ? nullptr : slots_[slotOf(sKey, hashOf(sKey))].node;
}

bool KeyIndex::insert(TreeNode& node)
{
    if (2 * (nTaken_ + 1) > slots_.size())
        grow();
    const std::size_t nHash = hashOf(node.key());
    Slot& slot = slots_[slotOf(node.key(), nHash)];
    if (slot.node)
        return false;
    slot = {&node, nHash};
    ++nTaken_;
    return true;
}

void KeyIndex::erase(const TreeNode& node)
{
    if (slots_.empty())
        return;
    std::size_t nFree = slotOf(node.key(), hashOf(node.key()));
    if (!slots_[nFree].node)
        return;
    --nTaken_;
    // What was put aside by the key that goes moves up, so that no search ends at the gap.
    for (std::size_t i = next(nFree); slots_[i].node; i = next(i)) {
        const std::size_t nHome = home(slots_[i].nHash);
        const bool bStaysBehindGap = nFree <= i ? nFree < nHome && nHome <= i : nFree < nHome || nHome <= i;
        if (bStaysBehindGap)
            continue;
        slots_[nFree] = slots_[i];
        nFree = i;
    }
    slots_[nFree] = {};
}

void KeyIndex::clear()
{
    slots_.clear();
    nTaken_ = 0;
}

std::size_t KeyIndex::slotOf(std::string_view sKey, std::size_t nHash) const
{
    std::size_t i = home(nHash);
    while (slots_[i].node && (slots_[i].nHash != nHash || slots_[i].node->key() != sKey))
        i = next(i);
    return i;
}

void KeyIndex::grow()
{
    std::vector<Slot> before = std::move(slots_);
    slots_.assign(before.empty() ? kFewest : 2 * before.size(), {});
    for (const Slot& slot : before) {
        if (!slot.node)
            continue;
        std::size_t i = home(slot.nHash);
        while (slots_[i].node)
            i = next(i);
        slots_[i] = slot;
    }
}

} // namespace zorvo
