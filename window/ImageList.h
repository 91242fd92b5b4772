#pragma once

#include "window/Picture.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace zorvo {

/// Pictures by index (from 1) and key. Keys are compared without regard to case.
class ImageList {
public:
    struct Entry {
        std::string sKey;
        PicturePtr picture;
    };

    /// Throws RunTimeError 457 when the key exists. `picture` may be null.
    void add(const std::string& sKey, PicturePtr picture);
    void clear();
    int count() const { return static_cast<int>(entries_.size()); }
    /// `index` from 1. Throws RunTimeError 9 outside the list.
    const Entry& item(int index) const;
    /// The entry of that key, or -1, which every control takes as "no image".
    int indexOf(const std::string& sKey) const;

private:
    std::vector<Entry> entries_;
    /// Every node of a tree asks for its image.
    std::unordered_map<std::string, int> byUpperKey_;
};

} // namespace zorvo
