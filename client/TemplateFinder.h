#pragma once

#include "client/CreateOptions.h"
#include "tree/LibraryDocument.h"
#include "tree/SelectedDocument.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// Finds templates by name in what is installed and what the catalogues hold, as the tree would show them.
class TemplateFinder {
public:
    /// Looks the machine over. Throws RunTimeError when its products can't be told.
    TemplateFinder();

    /// The document of that name, or with "*" all of the product's, in catalogue order. Names match without
    /// regard to case; an exact one wins. Throws RunTimeError with a text for the user when nothing, or more
    /// than one, has the name.
    std::vector<SelectedDocument> find(const TemplateName& name) const;

private:
    struct ProductYear {
        std::string sKey;
        std::string sVersion;
        std::string sTemplatePath;
        bool bInstalled = false;
    };

    const ProductYear& productYear(const TemplateName& name) const;
    std::vector<SelectedDocument> documentsOf(const ProductYear& product) const;

    std::vector<ProductYear> products_;
    mutable std::shared_ptr<const LibraryDocument> centralLibrary_;
};

} // namespace zorvo
