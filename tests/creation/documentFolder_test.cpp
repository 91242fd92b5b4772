#include "creation/documentFolder.h"

#include "tests/creation/CreationTest.h"
#include "window/messageBox.h"

namespace zorvo {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class documentFolderTest : public CreationTest {
protected:
    documentFolderTest()
    {
        fakes.folders->specials[SpecialFolders::kInternetCache] = "Z:\\home\\user\\.cache";
        fakes.folders->specials[SpecialFolders::kNetworkNeighbourhood] = "Z:\\run\\user\\1000\\gvfs";
    }

    bool valid(std::string sPath) { return bValidFolder(sPath, sStatus); }

    std::string sStatus = "before";
};

TEST_F(documentFolderTest, TheFolderOfATextIsTheBackslashPathOfEitherForm)
{
    EXPECT_EQ(sFolderOfText("C:\\Out\\Client"), "C:\\Out\\Client");
    EXPECT_EQ(sFolderOfText("/home/user/Client"), "Z:\\home\\user\\Client");
    EXPECT_EQ(sFolderOfText("/fake/drive_c/Out"), "C:\\Out");
}

TEST_F(documentFolderTest, TheFolderOfATextHasNoBlanksAround)
{
    EXPECT_EQ(sFolderOfText("  /home/user/Client  "), "Z:\\home\\user\\Client");
    EXPECT_EQ(sFolderOfText("   "), "");
}

TEST_F(documentFolderTest, ATextThatIsNoPathStays)
{
    EXPECT_EQ(sFolderOfText("somewhere"), "somewhere");
}

TEST_F(documentFolderTest, APathIsShownInTheNativeForm)
{
    EXPECT_EQ(sTextOfFolder("C:\\Out"), "/fake/drive_c/Out");
    EXPECT_EQ(sTextOfFolder("Z:\\home\\user"), "/home/user");
    EXPECT_EQ(sTextOfFolder(""), "");
}

TEST_F(documentFolderTest, AnExistingFolderIsValid)
{
    EXPECT_TRUE(valid("C:\\Out"));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_EQ(sStatus, "before");
}

TEST_F(documentFolderTest, TrimsTheCallersPath)
{
    std::string sPath = "  C:\\Out ";
    EXPECT_TRUE(bValidFolder(sPath, sStatus));
    EXPECT_EQ(sPath, "C:\\Out");
}

TEST_F(documentFolderTest, AnEmptyOrMissingFolderIsRefusedWithNoMessage)
{
    EXPECT_FALSE(valid(""));
    EXPECT_FALSE(valid("   "));
    EXPECT_FALSE(valid("C:\\Nowhere"));
    EXPECT_FALSE(valid("C:\\T\\Letter.dot"));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_EQ(sStatus, "before");
}

TEST_F(documentFolderTest, APathUnderTheBrowsersTemporaryFilesIsRefusedWithAnySuffix)
{
    for (const char* path : {"Z:\\home\\user\\.cache", "Z:\\home\\user\\.cache\\deep\\er"}) {
        fakes.files->addFolder(path);
        sStatus.clear();
        messages.boxes.clear();
        EXPECT_FALSE(valid(path));
        ASSERT_THAT(messages.boxes, SizeIs(1));
        EXPECT_EQ(messages.boxes[0].sPrompt, "Your document folder cannot reside in a temporary folder.");
        EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
        EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
        EXPECT_EQ(sStatus, "Please re-select the document folder.");
    }
}

TEST_F(documentFolderTest, TheTemporaryFilesAreComparedExactly)
{
    fakes.files->addFolder("Z:\\home\\user\\.cache\\deep");
    EXPECT_TRUE(valid("Z:\\home\\user\\.CACHE\\deep"));
}

TEST_F(documentFolderTest, ThePlaceInThePathDoesNotMatter)
{
    fakes.folders->specials[SpecialFolders::kInternetCache] = "user\\cache";
    fakes.files->addFolder("Z:\\home\\user\\cache2");
    EXPECT_FALSE(valid("Z:\\home\\user\\cache2"));
}

TEST_F(documentFolderTest, TheNetworkNeighbourhoodIsRefused)
{
    fakes.files->addFolder("Z:\\run\\user\\1000\\gvfs\\share");
    EXPECT_FALSE(valid("Z:\\run\\user\\1000\\gvfs\\share"));
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Your document folder cannot be a network neighborhood folder.");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(sStatus, "Please re-select the document folder.");
}

TEST_F(documentFolderTest, ASpecialFolderThatIsNotThereRefusesEveryFolder)
{
    fakes.folders->specials.erase(SpecialFolders::kInternetCache);
    EXPECT_FALSE(valid("C:\\Out"));
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Your document folder cannot reside in a temporary folder.");
}

TEST_F(documentFolderTest, AnErrorWhileJudgingRefusesTheFolderInSilence)
{
    class FailingFolders : public FakeSpecialFolders {
    public:
        std::string special(int /*id*/) override { throw RunTimeError(kPermissionDenied); }
    };
    platform().folders = std::make_shared<FailingFolders>();
    EXPECT_FALSE(valid("C:\\Out"));
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(documentFolderTest, AcceptsAnExistingFolderWithoutAWord)
{
    EXPECT_TRUE(bAcceptFolder("C:\\Out", sStatus));
    EXPECT_EQ(sStatus, "before");
}

TEST_F(documentFolderTest, AcceptingAnEmptyPathAsksForOne)
{
    EXPECT_FALSE(bAcceptFolder("", sStatus));
    EXPECT_EQ(sStatus, " Please select a document folder.");
}

TEST_F(documentFolderTest, AcceptingAMissingFolderTellsHowToCreateIt)
{
    EXPECT_FALSE(bAcceptFolder("C:\\Nowhere", sStatus));
    EXPECT_EQ(sStatus,
              " The document folder does not exist. To create a folder, edit the Document Folder text "
              "then click Create Folder.");
}

TEST_F(documentFolderTest, AcceptingARefusedFolderTellsWhyItIs)
{
    fakes.files->addFolder("Z:\\home\\user\\.cache");
    EXPECT_FALSE(bAcceptFolder("Z:\\home\\user\\.cache", sStatus));
    EXPECT_EQ(sStatus, "Please re-select the document folder.");
}

TEST_F(documentFolderTest, CreatingNeedsAPath)
{
    EXPECT_FALSE(bCreateFolder("", sStatus));
    EXPECT_EQ(sStatus,
              " To create a folder, select then edit the Document Folder text then click Create Folder.");
}

TEST_F(documentFolderTest, CreatingAnExistingFolderChangesNothing)
{
    EXPECT_FALSE(bCreateFolder("C:\\Out", sStatus));
    EXPECT_EQ(sStatus,
              " Document folder already exists. To create a new folder, edit the text in the Document "
              "Folder field then click Create Folder.");
    for (const FakeFiles::Call& call : fakes.files->calls)
        EXPECT_NE(call.operation, FakeFiles::Operation::makeFolder);
}

TEST_F(documentFolderTest, CreatesAllThreeLevelsOfANestedPath)
{
    EXPECT_TRUE(bCreateFolder("C:\\a\\b\\c", sStatus));
    EXPECT_TRUE(fakes.files->folderExists("C:\\a"));
    EXPECT_TRUE(fakes.files->folderExists("C:\\a\\b"));
    EXPECT_TRUE(fakes.files->folderExists("C:\\a\\b\\c"));
    EXPECT_EQ(sStatus, " The document folder has been created.");
}

TEST_F(documentFolderTest, AFolderCanBeCreatedUnderAForbiddenPlaceAndIsRefusedAfterwards)
{
    const std::string sPath = "Z:\\home\\user\\.cache\\mine";
    EXPECT_TRUE(bCreateFolder(sPath, sStatus));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_FALSE(bAcceptFolder(sPath, sStatus));
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(documentFolderTest, AFolderThatCannotBeMadeIsNoticedOnlyWhenItIsAccepted)
{
    fakes.files->failOn(FakeFiles::Operation::makeFolder, "", kPermissionDenied);
    EXPECT_TRUE(bCreateFolder("C:\\New", sStatus));
    EXPECT_EQ(sStatus, " The document folder has been created.");
    EXPECT_FALSE(bAcceptFolder("C:\\New", sStatus));
    EXPECT_EQ(sStatus,
              " The document folder does not exist. To create a folder, edit the Document Folder text "
              "then click Create Folder.");
}

} // namespace
} // namespace zorvo
