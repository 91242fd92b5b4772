#pragma once

#include "window/ImageList.h"

#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// The contents of a list bar, free of any widget: entries with key, caption and a large image.
class ListBarGroups {
public:
    struct Group {
        std::string sKey;
        std::string sCaption;
        int nImage = -1;
    };

    ImageList& images() { return images_; }
    const ImageList& images() const { return images_; }

    /// `index` from 1, at most one past the last. Throws RunTimeError 9 outside, 457 when the key exists.
    void add(int index, const std::string& sKey, const std::string& sCaption, int nImage);
    int count() const { return static_cast<int>(groups_.size()); }
    const Group& item(int index) const;
    void clear();

    /// Called after every change, so that a view can follow.
    void setListener(std::function<void()> listener) { listener_ = std::move(listener); }

private:
    void changed() const;

    ImageList images_;
    std::vector<Group> groups_;
    std::function<void()> listener_;
};

} // namespace zorvo
