#include "base/RunTimeError.h"
#include "catalogue/TreeOrder.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxLibraryLoader.h"
#include "tests/catalogue/CatalogueTest.h"

#include <filesystem>
#include <fstream>
#include <string>

using namespace zorvo;

namespace {

/// Real files and a real library below a folder of the test's own; drive Z is the machine's root.
class RealTreeOrderServerTest : public CatalogueTest {
protected:
    RealTreeOrderServerTest()
    {
        std::string pattern = testing::TempDir() + "tree-order-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        std::filesystem::create_directories(folder_ / "program" / "TreeData");
        std::filesystem::create_directories(folder_ / "temporary");
        const DosPaths paths((folder_ / "data").string());
        platform().files = std::make_shared<LinuxFiles>(paths);
        platform().libraries = std::make_shared<LinuxLibraryLoader>(paths);
        fakes.folders->sProgram = paths.fromNative((folder_ / "program").string());
        fakes.folders->sTemporary = paths.fromNative((folder_ / "temporary").string()) + "\\";
    }
    ~RealTreeOrderServerTest() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path serverFile() const { return folder_ / "program" / "TreeOrderXmlServer.dll"; }

private:
    std::filesystem::path folder_;
};

} // namespace

TEST_F(RealTreeOrderServerTest, ServesTheStatusDocument)
{
    std::filesystem::copy_file(TREE_ORDER_SERVER_FILE, serverFile());
    EXPECT_NE(status.sGetProductStatusXML().find("<Title><![CDATA[Served]]></Title>"), std::string::npos);
}

TEST_F(RealTreeOrderServerTest, IsSavedInTheTemporaryFolder)
{
    std::filesystem::copy_file(TREE_ORDER_SERVER_FILE, serverFile());
    EXPECT_EQ(status.sGetTreeOrderXML(), fakes.folders->sTemporary + "\\TreeOrder.xml");
    EXPECT_EQ(nTreeOrderVersion(fakes.folders->sTemporary), 77);
}

TEST_F(RealTreeOrderServerTest, FailsTheCallWhenItsFileIsNoLibrary)
{
    std::ofstream(serverFile()) << "no library";
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kFileNotFound);
    EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kFileNotFound);
}
