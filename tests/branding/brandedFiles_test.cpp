#include "branding/brandedFiles.h"

#include "base/RunTimeError.h"
#include "tests/branding/BrandingTest.h"
#include "tests/support/pictureBytes.h"

#include <QImage>
#include <QPixmap>

namespace zorvo {

class BrandedFiles : public BrandingTest {
protected:
    void add(const std::string& sBelowProgram, const std::string& sBytes = "x")
    {
        fakes.files->addFile("C:\\Zorvo\\" + sBelowProgram, sBytes);
    }
};

TEST_F(BrandedFiles, TheDefaultCompanyTakesThePictureFolderBeforeTheProgramFolder)
{
    add("a.ico");
    add("Images\\a.ico");
    EXPECT_EQ(GetBrandedFilePath("a.ico"), "C:\\Zorvo\\Images\\a.ico");
}

TEST_F(BrandedFiles, TheDefaultCompanyHasNoFolderOfItsOwn)
{
    add("Zorvo\\a.ico");
    EXPECT_EQ(GetBrandedFilePath("a.ico"), "C:\\Zorvo\\a.ico");
}

TEST_F(BrandedFiles, TheCompanysFolderWinsOverEverything)
{
    StoreCompanyID("ABC");
    add("a.ico");
    add("Images\\a.ico");
    add("ABC\\a.ico");
    EXPECT_EQ(GetBrandedFilePath("a.ico"), "C:\\Zorvo\\ABC\\a.ico");
}

TEST_F(BrandedFiles, ACompanyWithoutTheFileTakesThePictureFolder)
{
    StoreCompanyID("ABC");
    add("a.ico");
    add("Images\\a.ico");
    EXPECT_EQ(GetBrandedFilePath("a.ico"), "C:\\Zorvo\\Images\\a.ico");
}

TEST_F(BrandedFiles, ACompanyTakesTheProgramFolderLast)
{
    StoreCompanyID("ABC");
    add("a.ico");
    EXPECT_EQ(GetBrandedFilePath("a.ico"), "C:\\Zorvo\\a.ico");
}

TEST_F(BrandedFiles, AFileThatIsNowhereIsInTheProgramFolder)
{
    EXPECT_EQ(GetBrandedFilePath("nowhere.ico"), "C:\\Zorvo\\nowhere.ico");
}

using BrandedPicture = BrandedFiles;

TEST_F(BrandedPicture, ANameWithoutAPointIsABitmap)
{
    add("Images\\Splash.bmp", pictureBytes(12, "BMP"));
    const PicturePtr picture = LoadBrandedPicture("Splash");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixmap().width(), 12);
}

TEST_F(BrandedPicture, ANameWithAnExtensionStaysAsItIs)
{
    add("Images\\Brendle.ico", pictureBytes(16, "PNG"));
    add("Images\\Brendle.ico.bmp", pictureBytes(12, "BMP"));
    const PicturePtr picture = LoadBrandedPicture("Brendle.ico");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixmap().width(), 16);
    EXPECT_TRUE(reports.empty());
}

TEST_F(BrandedPicture, TheCompanysOwnPictureIsLoaded)
{
    StoreCompanyID("ABC");
    add("Images\\About.bmp", pictureBytes(12, "BMP"));
    add("ABC\\About.bmp", pictureBytes(20, "BMP"));
    const PicturePtr picture = LoadBrandedPicture("About");
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixmap().width(), 20);
}

TEST_F(BrandedPicture, AMissingFileIsReportedWithItsPathAndGivesNull)
{
    EXPECT_EQ(LoadBrandedPicture("Sidebar"), nullptr);
    EXPECT_EQ(gnErrNumber, kFileNotFound);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].sTag, "basBranding.LoadBrandedPicture(Sidebar.bmp)");
    EXPECT_EQ(reports[0].sMessage,
              "There is an error retrieving the branding picture:\r\n\r\n"
              "C:\\Zorvo\\Sidebar.bmp\r\n\r\n"
              "Please first repair or then uninstall to re-install Zorvo's Brendle to fix.\r\n\r\n"
              "If this problem persists please contact Zorvo Support at (800) 555-0142.");
}

TEST_F(BrandedPicture, AFileThatIsNoPictureIsReportedAndGivesNull)
{
    for (const std::string& sBytes : {std::string("not a picture"), std::string(),
                                      std::string("BM\0\0\0\0", 6), pictureBytes(16, "BMP").substr(0, 30)}) {
        reports.clear();
        add("Images\\Brendle.ico", sBytes);
        EXPECT_EQ(LoadBrandedPicture("Brendle.ico"), nullptr);
        EXPECT_EQ(gnErrNumber, kInvalidPicture);
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_EQ(reports[0].sTag, "basBranding.LoadBrandedPicture(Brendle.ico)");
    }
}

TEST_F(BrandedPicture, APictureThatMayNotBeReadIsReportedAndGivesNull)
{
    add("Images\\Brendle.ico", pictureBytes(16, "PNG"));
    fakes.files->failOn(FakeFiles::Operation::read, "C:\\Zorvo\\Images\\Brendle.ico", kPermissionDenied);
    EXPECT_EQ(LoadBrandedPicture("Brendle.ico"), nullptr);
    EXPECT_EQ(gnErrNumber, kPermissionDenied);
    EXPECT_EQ(reports.size(), 1U);
}

} // namespace zorvo
