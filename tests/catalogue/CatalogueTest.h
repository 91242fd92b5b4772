#pragma once

#include "catalogue/clsZorvoProductStatus.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/pictureBytes.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace zorvo {

/// A machine in memory and the class under test, all state made anew.
class CatalogueTest : public testing::Test {
protected:
    CatalogueTest();
    ~CatalogueTest() override;

    /// Writes the program's own tree order document, edition 1, with these children of the root.
    void setTreeOrder(const std::string& sGroups);
    /// One product year: its key, and `AppPath2` below it.
    void addYear(Hive hive, const std::string& sGroup, const std::string& sProduct, const std::string& sYear,
                 const std::string& sAppPath);
    void setTitle(Hive hive, const std::string& sGroup, const std::string& sProduct,
                  const std::string& sTitle);

    FakePlatform fakes;
    clsZorvoProductStatus status;
};

/// A `ProductTreeGroup` whose titles and icons are made of one name.
std::string treeGroup(const std::string& sName, const std::string& sChildren);

/// The status document's text for the same group.
std::string statusGroup(const std::string& sName, const std::string& sChildren);

/// The whole status document.
std::string statusDocument(const std::string& sGroups);

struct ExpectedNode {
    std::string sVersion;
    std::string sInstalled = "True";
    std::string sSwdType = "False";
    std::string sLatest = "True";
    std::string sClassID = {};
    std::string sKey;
    std::string sName = {};
    std::string sPath = {};
};
std::string statusNode(const ExpectedNode& node);

/// The number of the RunTimeError that the call throws, 0 when it throws none.
int numberOfFailure(const std::function<void()>& call);

} // namespace zorvo
