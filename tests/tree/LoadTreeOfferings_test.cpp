#include "base/sessionState.h"
#include "tests/tree/LoadTreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AllOfferingsTest : public LoadTreeTest {
protected:
    AllOfferingsTest()
    {
        fakes.files->addFile(
            "C:\\Zorvo\\TreeData\\TreeOrder.xml",
            "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='G' TreeTitleShort='G' IconLarge='' "
            "IconSmall='G16.ico'>"
            "<Acronymn numProdClassID='301' Name='Alpha'>AB</Acronymn>"
            "<Acronymn numProdClassID='302' Name='Beta'>CD</Acronymn></ProductTreeGroup>"
            "<ProductTreeGroup TreeTitle='Empty' TreeTitleShort='E' IconLarge='' IconSmall=''>"
            "<Acronymn>EF</Acronymn></ProductTreeGroup></ZorvoTree>");
        fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\AB.htm");
        fakes.files->addFile("C:\\Zorvo\\TreeData\\HTML\\CD.htm");
        treeState().bListBarLoaded = true;
    }
};

TEST_F(AllOfferingsTest, ShowsAllOfferingsAndKeepsEmptyGroups)
{
    LoadTree(tree, nullptr, true, false);
    EXPECT_THAT(lines(), ElementsAre("G|G|1", "  AB`301|Alpha|1", "  CD`302|Beta|1", "Empty|Empty|1"));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(AllOfferingsTest, TrimsTheTextsOfTheStatusDocument)
{
    fakes.files->addFile(
        "C:\\Zorvo\\TreeData\\TreeOrder.xml",
        "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle=' G ' TreeTitleShort='G' IconLarge='' "
        "IconSmall=''>"
        "<Acronymn numProdClassID=' 301 ' Name=' Alpha '>AB</Acronymn></ProductTreeGroup></ZorvoTree>");
    LoadTree(tree, nullptr, true, false);
    EXPECT_THAT(lines(), ElementsAre("G|G|1", "  AB`301|Alpha|1"));
}

TEST_F(AllOfferingsTest, TakesTheListBarForBuiltAfterwards)
{
    treeState().bListBarLoaded = false;
    LoadTree(tree, nullptr, true, false);
    EXPECT_TRUE(treeState().bListBarLoaded);
}

TEST_F(AllOfferingsTest, LoadsTheTreesImagesThoughTheListBarIsLoaded)
{
    addIcon("G16.ico");
    addIcon("Product16.ico");
    LoadTree(tree, nullptr, true, false);
    EXPECT_EQ(tree.images().count(), 2);
    EXPECT_EQ(node("G").image(), tree.images().indexOf("G16.ico"));
    EXPECT_EQ(node("AB`301").image(), tree.images().indexOf("Product16.ico"));
}

TEST_F(AllOfferingsTest, KeepsNoStatusDocument)
{
    LoadTree(tree, nullptr, true, false);
    EXPECT_EQ(treeState().objStatusDoc, nullptr);
}

TEST_F(AllOfferingsTest, LabelsNoProductWithAYear)
{
    fakes.files->addFile(
        "C:\\Zorvo\\TreeData\\TreeOrder.xml",
        "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='Quillbook' TreeTitleShort='Q' IconLarge='' "
        "IconSmall=''><Acronymn numProdClassID='301' Name='Evaluation of Alpha'>AB</Acronymn>"
        "</ProductTreeGroup></ZorvoTree>");
    LoadTree(tree, nullptr, true, false);
    EXPECT_THAT(lines(), ElementsAre("Quillbook|Quillbook|1", "  AB`301|Evaluation of Alpha|1"));
}

TEST_F(AllOfferingsTest, IgnoresTheCurrentOnlySetting)
{
    sessionState().bShowCurrentOnly = true;
    fakes.files->addFile(
        "C:\\Zorvo\\TreeData\\TreeOrder.xml",
        "<ZorvoTree Version='1'><ProductTreeGroup TreeTitle='G' TreeTitleShort='G' IconLarge='' IconSmall=''>"
        "<Acronymn numProdClassID='1' Name='A'>AB</Acronymn>"
        "<Acronymn numProdClassID='2' Name='B'>AB</Acronymn></ProductTreeGroup></ZorvoTree>");
    LoadTree(tree, nullptr, true, false);
    EXPECT_THAT(keys(), ElementsAre("G", "AB`1", "AB`2"));
}

} // namespace
} // namespace zorvo
