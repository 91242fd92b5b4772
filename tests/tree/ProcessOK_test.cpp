#include "tree/ProcessOK.h"

#include "base/sessionState.h"
#include "tests/tree/RecordingTreeWindow.h"
#include "tests/tree/TreeTest.h"
#include "tree/LoadTree.h"
#include "tree/SelectionConsumer.h"
#include "window/clsMousePointer.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProcessOKTest : public TreeTest {
protected:
    ProcessOKTest()
    {
        setSelectionConsumer([this] {
            consumed.push_back(sessionState().sSelectedDocuments);
            nPointerWhileConsumed = goMousePointer().MousePointer();
        });
    }

    void load(const std::string& sTemplatePath = "C:\\T\\AB")
    {
        setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = sTemplatePath})));
        setLibrary(product("AB", "2007", "{P}", "AB",
                           document("{D1}", "One", "One.dot") +
                               folder("{F}", "Folder", document("{D2}", "Two", "Two.xlt"))));
        LoadTree(tree, &listBar, false, false);
    }

    void select(std::initializer_list<const char*> selection)
    {
        for (const char* key : selection)
            tree.setSelected(node(key), true);
    }

    static std::string element(const std::string& sTitle, const std::string& sFileName,
                               const std::string& sType = "TAB", const std::string& sYear = "2007")
    {
        return "<Document><Title><![CDATA[" + sTitle + "]]></Title><FileName><![CDATA[" + sFileName +
               "]]></FileName><Type><![CDATA[" + sType + "]]></Type><Year><![CDATA[" + sYear +
               "]]></Year></Document>";
    }

    static std::string selection() { return sessionState().sSelectedDocuments; }

    RecordingTreeWindow window{tree};
    std::vector<std::string> consumed;
    int nPointerWhileConsumed = -1;
};

TEST_F(ProcessOKTest, WritesTheSelectedDocumentsInTreeOrder)
{
    load();
    select({"{D2}", "{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\AB\\One.dot") +
                               element("Two", "C:\\T\\AB\\Two.xlt") + "</Documents>");
    EXPECT_THAT(consumed, ElementsAre(selection()));
    EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(ProcessOKTest, AddsNoBackslashToATemplatePathThatHasOne)
{
    load("C:\\T\\AB\\");
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\AB\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, TrimsTheTemplatePath)
{
    load("  C:\\T\\AB  ");
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\AB\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, PassesOverGroupsProductsAndFoldersAndTheirChildren)
{
    load();
    select({"G", "{P}", "{F}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents></Documents>");
    EXPECT_EQ(consumed.size(), 1U);
}

TEST_F(ProcessOKTest, KeepsTwoNodesOfOneTemplate)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T"})));
    setLibrary(product("AB", "2007", "{P}", "AB",
                       document("{D1}", "One", "Same.dot") + document("{D2}", "Two", "Same.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"{D1}", "{D2}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\Same.dot") +
                               element("Two", "C:\\T\\Same.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, DropsTheNodesOfAProductThatIsNoLongerListedAndGoesOn)
{
    setStatus(group("G", entry({.sKey = "AB"}) + entry({.sKey = "CD", .sTemplatePath = "C:\\T\\CD"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "One", "One.dot")) +
               product("CD", "2007", "{P2}", "CD", document("{D2}", "Two", "Two.dot")));
    LoadTree(tree, &listBar, false, false);
    setStatus(group("G", entry({.sKey = "CD", .sTemplatePath = "C:\\T\\CD"})));
    select({"{D1}", "{D2}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("Two", "C:\\T\\CD\\Two.dot", "TCD") + "</Documents>");
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessOKTest, WritesTheYearAsTheCatalogueHasIt)
{
    setStatus(group("Quillbook", entry({.sKey = "AB", .sVersion = "20071101", .sTemplatePath = "C:\\T"})));
    setLibrary(product("AB", "20071101", "{P}", "AB", document("{D1}", "One", "One.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(),
              "<Documents>" + element("One", "C:\\T\\One.dot", "TAB", "20071101") + "</Documents>");
}

TEST_F(ProcessOKTest, FindsTheProductOfANestedGroup)
{
    setStatus(group("G", group("Inner", entry({.sKey = "AB", .sTemplatePath = "C:\\T"}))));
    setLibrary(product("AB", "2007", "{P}", "AB", document("{D1}", "One", "One.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, TakesTheFirstOfTwoEntriesOfOneProductYear)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\First"})) +
              group("H", entry({.sKey = "AB", .sTemplatePath = "C:\\Second"})));
    setLibrary(product("AB", "2007", "{P}", "AB", document("{D1}", "One", "One.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\First\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, ReadsAProductsOwnCatalogueOnceForAllItsDocuments)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T\\AB\\"}) +
                             entry({.sKey = "CD", .sTemplatePath = "C:\\T\\CD\\"})));
    std::string sDocuments;
    for (int i = 0; i < 50; ++i)
        sDocuments += document("{D" + std::to_string(i) + "}", "Doc", "a.dot");
    setOwnLibrary("C:\\T\\AB\\", product("AB", "2007", "{P}", "AB", sDocuments));
    setOwnLibrary("C:\\T\\CD\\", product("CD", "2007", "{P}", "CD", document("{D0}", "Other", "b.dot")));
    LoadTree(tree, &listBar, false, false);
    for (int i = 1; i <= tree.count(); ++i)
        tree.setSelected(tree.item(i), true);
    fakes.files->calls.clear();
    ProcessOK(window);
    const auto nReads =
        std::count_if(fakes.files->calls.begin(), fakes.files->calls.end(),
                      [](const auto& call) { return call.operation == FakeFiles::Operation::read; });
    EXPECT_EQ(nReads, 2);
    EXPECT_THAT(selection(), testing::EndsWith(element("Doc", "C:\\T\\AB\\a.dot") +
                                               element("Other", "C:\\T\\CD\\b.dot", "TCD") + "</Documents>"));
}

TEST_F(ProcessOKTest, TakesTheOutermostOfNestedProducts)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\Outer"}) +
                             entry({.sKey = "CD", .sTemplatePath = "C:\\Inner"})));
    treeState().objLibraryDoc = [] {
        XmlDocument library;
        library.loadXML("<Library>" +
                        product("AB", "2007", "{P}", "AB",
                                product("CD", "2007", "{Q}", "CD", document("{D1}", "One", "One.dot"))) +
                        "</Library>");
        return std::make_shared<LibraryDocument>(library);
    }();
    tree.setSelected(tree.add("", "{D1}", "One", -1, 3), true);
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\Outer\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, EndsUnfinishedAtANodeThatTheCatalogueLacks)
{
    load();
    tree.setSelected(tree.add("{P}", "{gone}", "Gone", -1, 3), true);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\AB\\One.dot"));
    EXPECT_THAT(consumed, IsEmpty());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOK"));
    EXPECT_EQ(messages.reports[0].nNumber, kObjectNotSet);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessOKTest, IsBusyNoLongerWhenItReportsAFailure)
{
    load();
    tree.setSelected(tree.add("{P}", "{gone}", "Gone", -1, 3), true);
    int nPointerAtReport = -1;
    FailureReporter before = setFailureReporter(
        [&](const auto&, const auto&, const auto&) { nPointerAtReport = goMousePointer().MousePointer(); });
    ProcessOK(window);
    setFailureReporter(std::move(before));
    EXPECT_EQ(nPointerAtReport, 0);
}

TEST_F(ProcessOKTest, HandsNothingToAPartnerAfterAFailure)
{
    load();
    tree.setSelected(tree.add("{P}", "{gone}", "Gone", -1, 3), true);
    sessionState().bReturnSelection = true;
    ProcessOK(window);
    EXPECT_THAT(window.calls, IsEmpty());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOK"));
}

TEST_F(ProcessOKTest, EndsAtADocumentOutsideOfAnyProduct)
{
    setStatus("");
    treeState().objLibraryDoc = [] {
        XmlDocument library;
        library.loadXML("<Library>" + document("{D1}", "One", "One.dot") + "</Library>");
        return std::make_shared<LibraryDocument>(library);
    }();
    tree.setSelected(tree.add("", "{D1}", "One", -1, 3), true);
    ProcessOK(window);
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOK"));
    EXPECT_EQ(selection(), "<Documents>");
}

TEST_F(ProcessOKTest, EndsAtAProductWithoutAType)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary("<Product Acronym='AB' Year='2007' Guid='{P}'><Name>AB</Name>" +
               document("{D1}", "One", "One.dot") + "</Product>");
    LoadTree(tree, &listBar, false, false);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOK"));
    EXPECT_THAT(consumed, IsEmpty());
}

TEST_F(ProcessOKTest, FailsAtAGuidThatMakesTheLookUpMalformed)
{
    setStatus(group("G", entry({.sKey = "AB"})));
    setLibrary(product("AB", "2007", "{P}", "AB", document("O'Neil", "One", "One.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"O'Neil"});
    ProcessOK(window);
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOK"));
    EXPECT_EQ(messages.reports[0].nNumber, kInvalidCall);
}

TEST_F(ProcessOKTest, WritesValuesWithoutEscapingThem)
{
    setStatus(group("G", entry({.sKey = "AB", .sTemplatePath = "C:\\T"})));
    setLibrary(product("AB", "2007", "{P}", "AB", document("{D1}", "A &amp; B &lt;C>", "A&amp;B.dot")));
    LoadTree(tree, &listBar, false, false);
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents>" + element("A & B <C>", "C:\\T\\A&B.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, IsBusyUntilTheDocumentsAreMade)
{
    load();
    select({"{D1}"});
    ProcessOK(window);
    EXPECT_EQ(nPointerWhileConsumed, 11);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessOKTest, HandsTheSelectionToAPartnerByUnloadingTheWindow)
{
    load();
    select({"{D1}"});
    sessionState().bReturnSelection = true;
    int nPointerAtUnload = -1;
    window.atUnload = [&] { nPointerAtUnload = goMousePointer().MousePointer(); };
    ProcessOK(window);
    EXPECT_THAT(window.calls, ElementsAre("unload"));
    EXPECT_EQ(nPointerAtUnload, 0);
    EXPECT_THAT(consumed, IsEmpty());
    EXPECT_EQ(selection(), "<Documents>" + element("One", "C:\\T\\AB\\One.dot") + "</Documents>");
}

TEST_F(ProcessOKTest, BeginsEachSelectionAnew)
{
    load();
    sessionState().sSelectedDocuments = "left over";
    ProcessOK(window);
    EXPECT_EQ(selection(), "<Documents></Documents>");
}

TEST(SelectionConsumer, ComesBackWhenAnotherOneIsInstalled)
{
    int nCalls = 0;
    setSelectionConsumer([&] { ++nCalls; });
    const SelectionConsumer before = setSelectionConsumer({});
    consumeSelection();
    EXPECT_EQ(nCalls, 0);
    before();
    EXPECT_EQ(nCalls, 1);
}

} // namespace
} // namespace zorvo
