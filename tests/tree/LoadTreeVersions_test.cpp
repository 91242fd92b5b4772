#include "base/sessionState.h"
#include "tests/tree/LoadTreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(LoadTreeTest, ShowsAllVersionsWithTheCurrentOnlySettingOff)
{
    setStatus(group("G", entry({.sKey = "AB", .sVersion = "2006"}) + entry({.sKey = "AB"})));
    setLibrary(product("AB", "2006", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, ShowsTheNewestVersionOnlyWithTheCurrentOnlySettingOn)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(group("G", entry({.sKey = "AB", .sVersion = "2006"}) + entry({.sKey = "AB"})) +
              group("H", entry({.sKey = "CD", .sVersion = "1999"})));
    setLibrary(product("AB", "2006", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "AB", document("{D2}", "Doc", "a.dot")) +
               product("CD", "1999", "{P3}", "CD", document("{D3}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P2}", "{D2}", "H", "{P3}", "{D3}"));
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(LoadTreeTest, ComparesVersionsAsTextSoThatAShortOneSortsAboveANewerOne)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(group("G", entry({.sKey = "AB", .sVersion = "99"}) + entry({.sKey = "AB"})));
    setLibrary(product("AB", "99", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}"));
}

TEST_F(LoadTreeTest, ComparesVersionsWithoutRegardToCase)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(group("G", entry({.sKey = "AB", .sVersion = "b1"}) + entry({.sKey = "AB", .sVersion = "C1"})));
    setLibrary(product("AB", "b1", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "C1", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P2}", "{D2}"));

    setStatus(group("G", entry({.sKey = "AB", .sVersion = "c1"}) + entry({.sKey = "AB", .sVersion = "C1"})));
    setLibrary(product("AB", "c1", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "C1", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    treeState().objLibraryDoc.reset();
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P1}", "{D1}", "{P2}", "{D2}")) << "neither is newer";
}

TEST_F(LoadTreeTest, TrimsTheVersionsThatTheCurrentVersionFilterCompares)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(
        group("G", entry({.sKey = "AB", .sVersion = "2006"}) + entry({.sKey = "AB", .sVersion = " 2007 "})));
    setLibrary(product("AB", "2006", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, CountsVersionsOfTopLevelGroupsOnlyInTheCurrentVersionFilter)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(group("G", group("Inner", entry({.sKey = "AB", .sVersion = "2006"})) + entry({.sKey = "AB"})));
    setLibrary(product("AB", "2006", "{P1}", "AB", document("{D1}", "Doc", "a.dot")) +
               product("AB", "2007", "{P2}", "AB", document("{D2}", "Doc", "a.dot")));
    load();
    EXPECT_THAT(keys(), ElementsAre("G", "Inner", "{P1}", "{D1}", "{P2}", "{D2}"));
}

TEST_F(LoadTreeTest, CountsVersionsThatAreNotInstalledInTheCurrentVersionFilter)
{
    sessionState().bShowCurrentOnly = true;
    setStatus(
        group("G", entry({.sKey = "AB"}) + entry({.sKey = "AB", .sVersion = "2008", .sInstalled = "False"})));
    setLibrary(product("AB", "2007", "{P1}", "AB", document("{D1}", "Doc", "a.dot")));
    load();
    EXPECT_EQ(tree.count(), 0);
}

} // namespace
} // namespace zorvo
