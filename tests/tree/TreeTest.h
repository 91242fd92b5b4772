#pragma once

#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/installFakePlatform.h"
#include "tree/treeState.h"
#include "window/ListBarGroups.h"
#include "window/TreeNodes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvo {

/// A fresh session on a fake machine whose program folder is C:\Zorvo, with a tree and a list bar to fill.
class TreeTest : public testing::Test {
protected:
    TreeTest();
    ~TreeTest() override;

    /// The central catalogue's file, with these children of its root.
    void setLibrary(const std::string& sProducts);
    /// A product's own catalogue in its template folder (with a closing backslash).
    void setOwnLibrary(const std::string& sFolder, const std::string& sProducts);
    /// Takes the place of the status document that would be made of the machine.
    static void setStatus(const std::string& sGroups);
    void addIcon(const std::string& sName);

    /// One line per node, in tree order: indentation, key, "|", text, "|", tag.
    std::vector<std::string> lines() const;
    std::vector<std::string> keys() const;
    TreeNode& node(const std::string& sKey);

    FakePlatform fakes;
    RecordingMessages messages;
    TreeNodes tree;
    ListBarGroups listBar;
};

/// Elements of the status document.
std::string group(const std::string& sTitle, const std::string& sChildren);
struct Entry {
    std::string sKey;
    std::string sVersion = "2007";
    std::string sInstalled = "True";
    std::string sTemplatePath = {};
};
std::string entry(const Entry& values);

/// Elements of a catalogue.
std::string product(const std::string& sAcronym, const std::string& sYear, const std::string& sGuid,
                    const std::string& sName, const std::string& sChildren);
std::string folder(const std::string& sGuid, const std::string& sName, const std::string& sChildren);
std::string document(const std::string& sGuid, const std::string& sName, const std::string& sFile,
                     const std::string& sDesc = {});

/// The bytes of a small picture.
std::string pictureBytes();

} // namespace zorvo
