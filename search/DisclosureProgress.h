#pragma once

#include <string>

namespace zorvo {

/// The form that stands while the result of a search is built, `BuildDisclosureProgressForm`.
class DisclosureProgress {
public:
    virtual ~DisclosureProgress() = default;

    /// Not waited for, with both labels visible.
    virtual void showForm() = 0;
    /// The caption of `ProgressValue`, on the screen when this returns.
    virtual void setProgressValue(const std::string& sText) = 0;
    virtual void hideAndUnload() = 0;
};

/// Null until the forms are installed.
DisclosureProgress*& disclosureProgress();

} // namespace zorvo
