#include "tree/NodeDocument.h"

#include "base/sessionState.h"
#include "tests/tree/RecordingTreeWindow.h"
#include "tests/tree/TreeTest.h"
#include "tree/LoadTree.h"

namespace zorvo {
namespace {

using testing::ElementsAre;

class NodeDocumentTest : public TreeTest {
protected:
    void load(const std::string& sDocuments)
    {
        setStatus(group("G", entry({.sKey = "AB"})));
        setLibrary(product("AB", "2007", "{P}", "AB", sDocuments));
        LoadTree(tree, &listBar, false, false);
    }

    RecordingTreeWindow window{tree};
    OwnLibraries libraries;
    std::string sGuid;
    bool bOwn = false;
};

TEST_F(NodeDocumentTest, SplitsAKeyAtItsFirstBackquote)
{
    setOwnLibrary("C:\\T`x\\", document("{D}", "Doc", "a.dot"));
    const auto library = GetLibraryForKey("{D}`C:\\T`x\\Zorvo Library.xml", sGuid, bOwn, libraries);
    EXPECT_EQ(sGuid, "{D}");
    EXPECT_TRUE(bOwn);
    EXPECT_TRUE(library->document("{D}"));
}

TEST_F(NodeDocumentTest, SplitsAKeyThatBeginsWithABackquote)
{
    setOwnLibrary("C:\\T\\", document("", "Doc", "a.dot"));
    const auto library = GetLibraryForKey("`C:\\T\\Zorvo Library.xml", sGuid, bOwn, libraries);
    EXPECT_EQ(sGuid, "");
    EXPECT_TRUE(bOwn);
    EXPECT_TRUE(library->document(""));
}

TEST_F(NodeDocumentTest, FindsNothingInAnOwnCatalogueThatHasGone)
{
    EXPECT_TRUE(GetNodeDocument(tree.add("", "{D}`C:\\T\\Zorvo Library.xml", "Doc", -1, 3)).isNull());
}

TEST_F(NodeDocumentTest, TakesTheCentralCatalogueForAKeyWithoutABackquote)
{
    load(document("{D}", "Doc", "a.dot"));
    EXPECT_EQ(GetLibraryForKey("{D}", sGuid, bOwn, libraries), treeState().objLibraryDoc);
    EXPECT_EQ(sGuid, "{D}");
    EXPECT_FALSE(bOwn);
}

TEST_F(NodeDocumentTest, FindsFoldersAndDocumentsApart)
{
    load(folder("{X}", "Folder", document("{D}", "Doc", "a.dot")));
    EXPECT_EQ(GetNodeDocument(node("{X}")).baseName(), "Folder");
    EXPECT_EQ(GetNodeDocument(node("{D}")).baseName(), "Document");
}

TEST_F(NodeDocumentTest, LooksNothingUpForGroupsAndProducts)
{
    load(document("{D}", "Doc", "a.dot"));
    EXPECT_TRUE(GetNodeDocument(node("G")).isNull());
    EXPECT_TRUE(GetNodeDocument(node("{P}")).isNull());
}

TEST_F(NodeDocumentTest, KeepsTheOwnCatalogueOfAnElementAlive)
{
    setOwnLibrary("C:\\T\\", document("{D}", "Doc", "a.dot"));
    const TreeNode& added = tree.add("", "{D}`C:\\T\\Zorvo Library.xml", "Doc", -1, 3);
    const XmlNode element = GetNodeDocument(added);
    EXPECT_EQ(element.childText("File"), " a.dot ");
}

TEST_F(NodeDocumentTest, FindsNothingForAGuidThatTheCatalogueLacks)
{
    load(document("{D}", "Doc", "a.dot"));
    EXPECT_TRUE(GetNodeDocument(tree.add("", "{other}", "Doc", -1, 3)).isNull());
}

TEST_F(NodeDocumentTest, FailsAtAGuidThatMakesTheLookUpMalformed)
{
    load(document("{D}", "Doc", "a.dot"));
    const TreeNode& added = tree.add("", "O'Neil", "Doc", -1, 3);
    EXPECT_THROW(GetNodeDocument(added), RunTimeError);
}

TEST_F(NodeDocumentTest, FailsWithoutACentralCatalogue)
{
    EXPECT_THROW(GetNodeDocument(tree.add("", "{D}", "Doc", -1, 3)), RunTimeError);
}

TEST_F(NodeDocumentTest, ShowsTheDescriptionWithItsAmpersandsDoubled)
{
    load(document("{D}", "Doc", "a.dot", "Profit &amp; loss &amp;&amp; more"));
    ShowNodeDescription(window, node("{D}"));
    EXPECT_THAT(window.calls,
                ElementsAre("new document on while loading", "description Profit && loss &&&& more"));
    EXPECT_FALSE(sessionState().gbLoading);
}

TEST_F(NodeDocumentTest, ShowsAFoldersDescriptionAndDisablesTheTool)
{
    load("<Folder Guid='{F}'><Name>F</Name><Desc> Chapter </Desc></Folder>");
    ShowNodeDescription(window, node("{F}"));
    EXPECT_THAT(window.calls, ElementsAre("new document off while loading", "description Chapter"));
}

TEST_F(NodeDocumentTest, LeavesGroupsAndProductsWithAnEmptyDescriptionAndTheToolDisabled)
{
    load(document("{D}", "Doc", "a.dot", "Text"));
    ShowNodeDescription(window, node("G"));
    ShowNodeDescription(window, node("{P}"));
    EXPECT_THAT(window.calls, ElementsAre("new document off while loading", "description ",
                                          "new document off while loading", "description "));
}

TEST_F(NodeDocumentTest, ShowsNothingForAnElementWithoutADescription)
{
    load("<Document Guid='{D}'><Name>D</Name><File>a.dot</File></Document>");
    ShowNodeDescription(window, node("{D}"));
    EXPECT_THAT(window.calls, ElementsAre("new document on while loading", "description "));
}

class OwnDescription : public NodeDocumentTest {
protected:
    OwnDescription()
    {
        setOwnLibrary("C:\\T\\", document("{D}", "Doc", "a.dot", "First"));
        tree.add("", sKey, "Doc", -1, 3);
    }
    std::string shown()
    {
        ShowNodeDescription(window, node(sKey));
        return window.calls.back();
    }
    int reads() const
    {
        return static_cast<int>(
            std::count_if(fakes.files->calls.begin(), fakes.files->calls.end(), [](const auto& call) {
                return call.operation == FakeFiles::Operation::read &&
                       call.sPath == "C:\\T\\Zorvo Library.xml";
            }));
    }

    const std::string sKey = "{D}`C:\\T\\Zorvo Library.xml";
};

TEST_F(OwnDescription, ReadsTheProductsCatalogueOnceForManyKeyPresses)
{
    EXPECT_EQ(shown(), "description First");
    EXPECT_EQ(shown(), "description First");
    EXPECT_EQ(reads(), 1);
}

TEST_F(OwnDescription, ShowsWhatAnUpdateOfTheProductHasWritten)
{
    shown();
    setOwnLibrary("C:\\T\\", document("{D}", "Doc", "a.dot", "Other"));
    EXPECT_EQ(shown(), "description Other");
    fakes.files->remove("C:\\T\\Zorvo Library.xml");
    EXPECT_EQ(shown(), "description ");
}

TEST_F(OwnDescription, TheCatalogueGoesWithTheMainWindowsDocuments)
{
    shown();
    ReleaseCatalogDocuments();
    shown();
    EXPECT_EQ(reads(), 2);
}

} // namespace
} // namespace zorvo
