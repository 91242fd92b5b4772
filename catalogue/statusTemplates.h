#pragma once

#include <string>
#include <string_view>

/// The fixed strings that the product status document is joined from, and their filling. Values go in as they
/// stand: nothing is escaped.
namespace zorvo {

/// What opens the document (1) and what closes it (8).
std::string_view statusDocumentStart();
std::string_view statusDocumentEnd();

/// What opens a group (2), filled, and what closes it (7).
std::string FillProductGroup(const std::string& sTitle, const std::string& sTitleShort,
                             const std::string& sIconLarge, const std::string& sIconSmall);
std::string_view productGroupEnd();

/// What a product element is filled with.
struct ProductNodeValues {
    std::string_view sName = {};
    std::string_view sProductKey = {};
    std::string_view sYear = {};
    bool bInstalled = false;
    std::string_view sTemplatePath = {};
    bool bLatest = false;
    std::string_view sClassID = {};
};

/// One `ProductRegistryNode`: strings 3 to 6 joined, then each placeholder replaced without regard to case,
/// one after the other, so that a value that holds a later placeholder is filled as well.
std::string BuildProductNode(const ProductNodeValues& values);

} // namespace zorvo
