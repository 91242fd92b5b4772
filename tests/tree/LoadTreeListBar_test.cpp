#include "branding/companyIdentity.h"
#include "tests/tree/LoadTreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(LoadTreeTest, KeepsTheListBarGroupOfAGroupThatVanishes)
{
    setStatus(group("Gone", entry({.sKey = "AB", .sInstalled = "False"})) +
              group("Kept", entry({.sKey = "CD"})));
    setLibrary(product("CD", "2007", "{P2}", "CD", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("Kept", "{P2}", "{D1}"));
    ASSERT_EQ(listBar.count(), 3);
    EXPECT_EQ(listBar.item(1).sKey, "Gone");
    EXPECT_EQ(listBar.item(2).sKey, "Kept");
}

TEST_F(LoadTreeTest, BuildsTheListBarOfTheTopLevelGroupsAndTheWebGroup)
{
    addIcon("Outer.ico");
    addIcon("Zorvo.ico");
    setStatus(group("Outer", group("Inner", entry({.sKey = "AB"}))) + group("Second", ""));
    load();
    ASSERT_EQ(listBar.count(), 3);
    EXPECT_EQ(listBar.item(1).sKey, "Outer");
    EXPECT_EQ(listBar.item(1).sCaption, "Outer short");
    EXPECT_EQ(listBar.item(1).nImage, listBar.images().indexOf("Outer.ico"));
    EXPECT_NE(listBar.item(1).nImage, -1);
    EXPECT_EQ(listBar.item(2).sKey, "Second");
    EXPECT_EQ(listBar.item(2).nImage, -1);
    EXPECT_EQ(listBar.item(3).sKey, "Zorvonet");
    EXPECT_EQ(listBar.item(3).sCaption, "Zorvo on the Web");
    EXPECT_EQ(listBar.item(3).nImage, listBar.images().indexOf("Zorvo.ico"));
    EXPECT_NE(listBar.item(3).nImage, -1);
    EXPECT_TRUE(treeState().bListBarLoaded);
}

TEST_F(LoadTreeTest, WritesTheWebGroupsCaptionOfOneCompanyDifferently)
{
    StoreCompanyID("OTR");
    setStatus("");
    load();
    ASSERT_EQ(listBar.count(), 1);
    EXPECT_EQ(listBar.item(1).sKey, "OTRnet");
    EXPECT_EQ(listBar.item(1).sCaption, "NDF on the Web");
}

TEST_F(LoadTreeTest, RebuildsImagesAndListBarOnRequest)
{
    addIcon("Word16.ico");
    setStatus(group("G", ""));
    load();
    addIcon("Zorvo.ico");
    LoadTree(tree, &listBar, false, true);
    EXPECT_EQ(tree.images().count(), 2);
    EXPECT_EQ(listBar.images().count(), 2);
    EXPECT_EQ(listBar.count(), 2);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(LoadTreeTest, DoesNoImageWorkOnceTheListBarIsLoaded)
{
    addIcon("Word16.ico");
    treeState().bListBarLoaded = true;
    setStatus(group("G", ""));
    load();
    EXPECT_EQ(tree.images().count(), 0);
    EXPECT_EQ(listBar.images().count(), 0);
    EXPECT_EQ(listBar.count(), 0);
}

} // namespace
} // namespace zorvo
