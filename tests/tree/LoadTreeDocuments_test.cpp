#include "tree/LoadTreeDocuments.h"

#include "tests/tree/TreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LoadTreeDocumentsTest : public TreeTest {
protected:
    void load(const std::string& sChildren, const std::string& sSuffix = {})
    {
        XmlDocument catalogue;
        ASSERT_TRUE(catalogue.loadXML("<Product>" + sChildren + "</Product>"));
        tree.add("", "P", "Product", -1, 1);
        LoadTreeDocuments(tree, catalogue.documentElement(), "P", sSuffix);
    }

    void addNodeIcons()
    {
        for (const char* name : {"Open Chapter16.ico", "Word16.ico", "Excel16.ico", "Default Page16.ico"})
            tree.images().add(name, nullptr);
    }
};

TEST_F(LoadTreeDocumentsTest, AddsFoldersAndDocumentsInCatalogueOrderToAnyDepth)
{
    load(document("z", "Zulu", "z.dot") +
         folder("f", "Folder", folder("g", "Deep", document("a", "Alpha", "a.xlt"))) +
         document("m", "Mike", "m.doc"));
    EXPECT_THAT(lines(), ElementsAre("P|Product|1", "  z|Zulu|3", "  f|Folder|2", "    g|Deep|2",
                                     "      a|Alpha|3", "  m|Mike|3"));
}

TEST_F(LoadTreeDocumentsTest, GivesEveryNodeTheProductsSuffix)
{
    load(folder("f", "Folder", document("a", "Alpha", "a.xlt")), "`C:\\T\\Zorvo Library.xml");
    EXPECT_THAT(keys(), ElementsAre("P", "f`C:\\T\\Zorvo Library.xml", "a`C:\\T\\Zorvo Library.xml"));
}

TEST_F(LoadTreeDocumentsTest, ComparesElementNamesWithoutRegardToCase)
{
    load(
        "<FOLDER Guid='f'><Name>Folder</Name><document Guid='d'><Name>Doc</Name><File>a.dot</File></document>"
        "</FOLDER>");
    EXPECT_THAT(lines(), ElementsAre("P|Product|1", "  f|Folder|2", "    d|Doc|3"));
}

TEST_F(LoadTreeDocumentsTest, LooksAtTheBaseNameBehindAPrefix)
{
    load("<x:Folder xmlns:x='urn:x' Guid='f'><Name>Folder</Name></x:Folder>");
    EXPECT_THAT(keys(), ElementsAre("P", "f"));
}

TEST_F(LoadTreeDocumentsTest, PassesOverAllOtherChildren)
{
    load("text<Name>Product</Name><!-- Folder --><Documents Guid='x'/><Other>" + document("o", "O", "o.dot") +
         "</Other>" + document("d", "Doc", "d.dot"));
    EXPECT_THAT(keys(), ElementsAre("P", "d"));
}

TEST_F(LoadTreeDocumentsTest, KeepsAFolderWithoutDocuments)
{
    load(folder("f", "Folder", ""));
    EXPECT_THAT(lines(), ElementsAre("P|Product|1", "  f|Folder|2"));
}

TEST_F(LoadTreeDocumentsTest, ChoosesTheIconByTheLastThreeCharactersWhateverTheirCase)
{
    addNodeIcons();
    load(folder("f", "Folder", "") + document("w1", "W", "a.DOT") + document("w2", "W", "a.dOt") +
         document("x1", "X", "a.xlt") + document("x2", "X", "a.XLT") + document("n", "No dot", "adot"));
    EXPECT_EQ(node("f").image(), 1);
    EXPECT_EQ(node("w1").image(), 2);
    EXPECT_EQ(node("w2").image(), 2);
    EXPECT_EQ(node("n").image(), 2);
    EXPECT_EQ(node("x1").image(), 3);
    EXPECT_EQ(node("x2").image(), 3);
}

TEST_F(LoadTreeDocumentsTest, ShowsThePlainPageForFinishedDocumentsAndAllElse)
{
    addNodeIcons();
    load(document("a", "A", "a.XLS") + document("b", "B", "b.DOC") + document("c", "C", "") +
         document("d", "D", "x"));
    for (const char* key : {"a", "b", "c", "d"})
        EXPECT_EQ(node(key).image(), 4) << key;
}

TEST_F(LoadTreeDocumentsTest, ShowsNoImageWithoutAnIconFile)
{
    load(document("a", "A", "a.dot"));
    EXPECT_EQ(node("a").image(), -1);
}

TEST_F(LoadTreeDocumentsTest, TrimsNameAndFileAndNoGuid)
{
    addNodeIcons();
    load("<Document Guid=' a '><Name>  Alpha  </Name><File>  a.dot  </File></Document>");
    EXPECT_EQ(node(" a ").text(), "Alpha");
    EXPECT_EQ(node(" a ").image(), 2);
}

TEST_F(LoadTreeDocumentsTest, LosesTheRestOfOneFolderAtAGuidMetTwice)
{
    load(folder("f", "F",
                document("a", "A", "a.dot") + document("a", "Again", "a.dot") + document("b", "B", "b.dot")) +
         document("c", "C", "c.dot"));
    EXPECT_THAT(keys(), ElementsAre("P", "f", "a", "c"));
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadTreeDocuments"));
    EXPECT_EQ(messages.reports[0].nNumber, kKeyAlreadyUsed);
}

TEST_F(LoadTreeDocumentsTest, LosesTheRestOfOneFolderAtAMissingGuidNameOrFile)
{
    const std::string sRest = document("b", "B", "b.dot");
    load(folder("f", "F", "<Document><Name>A</Name><File>a.dot</File></Document>" + sRest) +
         folder("g", "G", "<Document Guid='x'><File>a.dot</File></Document>" + sRest) +
         folder("h", "H", "<Document Guid='y'><Name>A</Name></Document>" + sRest) +
         folder("i", "I", "<Folder Guid='z'/>" + sRest) + document("c", "C", "c.dot"));
    EXPECT_THAT(keys(), ElementsAre("P", "f", "g", "h", "i", "c"));
    EXPECT_THAT(messages.tags(), testing::Each("TreeSupport.LoadTreeDocuments"));
    EXPECT_EQ(messages.reports.size(), 4U);
    for (const auto& report : messages.reports)
        EXPECT_EQ(report.nNumber, kObjectNotSet);
}

TEST_F(LoadTreeDocumentsTest, HangsNothingUnderANodeThatHasNoKey)
{
    load(folder("", "No key", document("a", "A", "a.dot")) + document("b", "B", "b.dot"));
    EXPECT_THAT(lines(), ElementsAre("P|Product|1", "  |No key|2", "  b|B|3"));
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadTreeDocuments"));
}

} // namespace
} // namespace zorvo
