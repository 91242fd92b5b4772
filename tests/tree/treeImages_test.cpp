#include "tree/treeImages.h"

#include "branding/companyIdentity.h"
#include "tests/tree/TreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TreeImagesTest : public TreeTest {
protected:
    static std::vector<std::string> keysOf(const ImageList& images)
    {
        std::vector<std::string> result;
        for (int i = 1; i <= images.count(); ++i)
            result.push_back(images.item(i).sKey);
        return result;
    }

    /// The order in which the fake machine gives the files of the folder.
    std::vector<std::string> systemOrder()
    {
        std::vector<std::string> result;
        for (const Files::Entry& found : fakes.files->list("C:\\Zorvo\\Images\\"))
            result.push_back(found.sName);
        return result;
    }
};

TEST_F(TreeImagesTest, KeysEveryIconByItsFileNameInTheSystemsOrder)
{
    addIcon("Word16.ico");
    addIcon("Open Chapter16.ICO");
    addIcon("Excel16.ico");
    LoadTreeImages(tree);
    EXPECT_EQ(keysOf(tree.images()), systemOrder());
    EXPECT_EQ(tree.images().count(), 3);
    EXPECT_TRUE(tree.images().item(1).picture);
}

TEST_F(TreeImagesTest, LeavesOtherFilesOut)
{
    addIcon("Word16.ico");
    fakes.files->addFile("C:\\Zorvo\\Images\\Splash.bmp", pictureBytes());
    fakes.files->addFile("C:\\Zorvo\\Images\\Word16.ico.txt", "no icon");
    LoadTreeImages(tree);
    EXPECT_THAT(keysOf(tree.images()), ElementsAre("Word16.ico"));
}

TEST_F(TreeImagesTest, LeavesIconsInSubfoldersOut)
{
    addIcon("Word16.ico");
    addIcon("more\\Excel16.ico");
    LoadTreeImages(tree);
    EXPECT_THAT(keysOf(tree.images()), ElementsAre("Word16.ico"));
    EXPECT_THAT(messages.tags(), IsEmpty()) << "none was looked for";
}

TEST_F(TreeImagesTest, AnEmptyFolderGivesNoImagesAndEveryNodeShowsNone)
{
    fakes.files->addFolder("C:\\Zorvo\\Images");
    LoadTreeImages(tree);
    EXPECT_EQ(tree.images().count(), 0);
    EXPECT_EQ(GetTreeImageIndex(tree, "Word16.ico"), -1);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(TreeImagesTest, AMissingFolderLeavesTheListAsItWas)
{
    tree.images().add("Own.ico", nullptr);
    LoadTreeImages(tree);
    EXPECT_THAT(keysOf(tree.images()), ElementsAre("Own.ico"));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(TreeImagesTest, ASecondLoadOfATreesImagesFailsAtTheFirst)
{
    addIcon("Word16.ico");
    addIcon("Excel16.ico");
    LoadTreeImages(tree);
    LoadTreeImages(tree);
    EXPECT_EQ(tree.images().count(), 2);
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.LoadTreeImages"));
    EXPECT_EQ(messages.reports[0].nNumber, kKeyAlreadyUsed);
}

TEST_F(TreeImagesTest, ASecondLoadOfTheListBarsImagesReplacesThem)
{
    addIcon("Word16.ico");
    listBar.images().add("Old.ico", nullptr);
    LoadListBarImages(listBar);
    LoadListBarImages(listBar);
    EXPECT_THAT(keysOf(listBar.images()), ElementsAre("Word16.ico"));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(TreeImagesTest, TheTreeTakesWhatTheListBarHasReadAndReadsTheRest)
{
    addIcon("Word16.ico");
    LoadListBarImages(listBar);
    addIcon("Excel16.ico");
    LoadTreeImages(tree, &listBar.images());
    ASSERT_EQ(keysOf(tree.images()), systemOrder());
    EXPECT_EQ(tree.images().item(GetTreeImageIndex(tree, "Word16.ico")).picture,
              listBar.images().item(1).picture);
    EXPECT_TRUE(tree.images().item(GetTreeImageIndex(tree, "Excel16.ico")).picture);
}

TEST_F(TreeImagesTest, AFileThatIsNoPictureEndsTheLoadingOfTheRest)
{
    addIcon("a.ico");
    fakes.files->addFile("C:\\Zorvo\\Images\\b.ico", "no picture");
    addIcon("c.ico");
    const auto order = systemOrder();
    const auto nBefore = static_cast<int>(std::find(order.begin(), order.end(), "b.ico") - order.begin());
    LoadTreeImages(tree);
    EXPECT_EQ(tree.images().count(), nBefore);
    LoadListBarImages(listBar);
    EXPECT_EQ(listBar.images().count(), nBefore);
    EXPECT_THAT(messages.tags(),
                ElementsAre("basBranding.LoadBrandedPicture(b.ico)", "TreeSupport.LoadTreeImages",
                            "basBranding.LoadBrandedPicture(b.ico)", "TreeSupport.LoadListBarImages"));
}

TEST_F(TreeImagesTest, ACompanysPictureTakesThePlaceOfTheProgramsOwn)
{
    StoreCompanyID("OTR");
    fakes.files->addFile("C:\\Zorvo\\Images\\Word16.ico", "no picture");
    fakes.files->addFile("C:\\Zorvo\\OTR\\Word16.ico", pictureBytes());
    LoadTreeImages(tree);
    EXPECT_THAT(keysOf(tree.images()), ElementsAre("Word16.ico"));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(TreeImagesTest, IndexesCountFromOneAndIgnoreTheCaseOfKeys)
{
    addIcon("Word16.ico");
    LoadTreeImages(tree);
    LoadListBarImages(listBar);
    EXPECT_EQ(GetTreeImageIndex(tree, "WORD16.ICO"), 1);
    EXPECT_EQ(GetListBarImageIndex(listBar, "word16.ico"), 1);
    EXPECT_EQ(GetListBarImageIndex(listBar, "Word16"), -1);
}

} // namespace
} // namespace zorvo
