#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace zorvo {

class TreeNode;

/// Finds nodes by their keys, which stay in the nodes. A tree asks for every node that it takes in, several
/// times: the slots lie in one block, and a node's hash is kept with it.
class KeyIndex {
public:
    TreeNode* find(std::string_view sKey) const;
    /// False, and nothing is taken in, when the key is there already.
    bool insert(TreeNode& node);
    void erase(const TreeNode& node);
    void clear();

private:
    struct Slot {
        TreeNode* node = nullptr;
        std::size_t nHash = 0;
    };

    std::size_t home(std::size_t nHash) const { return nHash & (slots_.size() - 1); }
    std::size_t next(std::size_t nSlot) const { return (nSlot + 1) & (slots_.size() - 1); }
    /// The slot of the key, or the free one where it belongs.
    std::size_t slotOf(std::string_view sKey, std::size_t nHash) const;
    void grow();

    /// As many as a power of two, never more than half of them taken.
    std::vector<Slot> slots_;
    std::size_t nTaken_ = 0;
};

} // namespace zorvo
