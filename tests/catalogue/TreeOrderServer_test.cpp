#include "catalogue/TreeOrderServer.h"

#include "base/RunTimeError.h"
#include "catalogue/TreeOrder.h"
#include "tests/catalogue/CatalogueTest.h"

#include <cstring>

using namespace zorvo;
using namespace std::string_literals;

namespace {

std::string served;
std::int32_t servedLength = 0;
std::string bufferBefore;

std::int32_t getXmlLength()
{
    return servedLength;
}

std::int32_t getXml(char* buffer)
{
    bufferBefore.assign(buffer, static_cast<std::size_t>(servedLength));
    std::memcpy(buffer, served.data(), served.size());
    return 0;
}

template <typename Function>
void* addressOf(Function* function)
{
    return reinterpret_cast<void*>(function);
}

class TreeOrderServerTest : public CatalogueTest {
protected:
    const std::string sServer = "C:\\Zorvo\\TreeOrderXmlServer.dll";
    const std::string sSavedCopy = "C:\\Users\\Test\\Temp\\TreeOrder.xml";

    void serve(const std::string& sText)
    {
        served = sText;
        servedLength = static_cast<std::int32_t>(sText.size());
        fakes.files->addFile(sServer);
        fakes.libraries->addLibrary(
            sServer, {{"GetXmlLength", addressOf(getXmlLength)}, {"GetXml", addressOf(getXml)}});
    }
};

} // namespace

TEST_F(TreeOrderServerTest, GivesTheWholeBufferWithoutLookingForATerminator)
{
    serve("<a/>\0<b"s);
    EXPECT_EQ(sTreeOrderFromServer("C:\\Zorvo\\"), "<a/>\0<b"s);
}

TEST_F(TreeOrderServerTest, HandsOverABufferOfCodeOne)
{
    serve("<a/>");
    sTreeOrderFromServer("C:\\Zorvo\\");
    EXPECT_EQ(bufferBefore, "\1\1\1\1");
}

TEST_F(TreeOrderServerTest, KeepsWhatTheServerDoesNotFill)
{
    serve("<a/>");
    servedLength = 6;
    EXPECT_EQ(sTreeOrderFromServer("C:\\Zorvo\\"), "<a/>\1\1");
}

TEST_F(TreeOrderServerTest, BearsAnEmptyTextAndFailsForANegativeLength)
{
    serve("");
    EXPECT_EQ(sTreeOrderFromServer("C:\\Zorvo\\"), "");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
    servedLength = -1;
    EXPECT_EQ(numberOfFailure([] { sTreeOrderFromServer("C:\\Zorvo\\"); }), kInvalidCall);
}

TEST_F(TreeOrderServerTest, UnloadsTheLibraryAfterEachCall)
{
    serve("<a/>");
    sTreeOrderFromServer("C:\\Zorvo\\");
    EXPECT_EQ(fakes.libraries->nUnloads, 1);
}

TEST_F(TreeOrderServerTest, TakesPrecedenceOverEveryFileOnTheMachine)
{
    setTreeOrder(treeGroup("Own", "<Acronymn>A</Acronymn>"));
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "A", "2005", "C:\\Q");
    fakes.files->addFile("C:\\Q\\TreeOrder.xml", "<ZorvoTree Version='9999'/>");
    serve("<ZorvoTree Version='1'>" + treeGroup("Served", "<Acronymn>A</Acronymn>") + "</ZorvoTree>");
    EXPECT_NE(status.sGetProductStatusXML().find("CDATA[Served]"), std::string::npos);
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\Users\\Test\\Temp\\\\TreeOrder.xml");
}

TEST_F(TreeOrderServerTest, ServesTheStatusDocumentWithoutATemporaryCopy)
{
    serve("<ZorvoTree>" + treeGroup("Served", "<Acronymn>A</Acronymn>") + "</ZorvoTree>");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(statusGroup("Served", "")));
    EXPECT_FALSE(fakes.files->content(sSavedCopy));
}

TEST_F(TreeOrderServerTest, IsSavedInTheTemporaryFolderAndWrittenOverWithEachCall)
{
    serve("<ZorvoTree Version='3'>é</ZorvoTree>");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\Users\\Test\\Temp\\\\TreeOrder.xml");
    EXPECT_EQ(nTreeOrderVersion("C:\\Users\\Test\\Temp"), 3);
    serve("<ZorvoTree Version='4'/>");
    status.sGetTreeOrderXML();
    EXPECT_EQ(nTreeOrderVersion("C:\\Users\\Test\\Temp"), 4);
}

TEST_F(TreeOrderServerTest, SavesAnEmptyFileForATextThatIsNotWellFormed)
{
    serve("<ZorvoTree");
    EXPECT_EQ(status.sGetTreeOrderXML(), "C:\\Users\\Test\\Temp\\\\TreeOrder.xml");
    EXPECT_EQ(fakes.files->content(sSavedCopy), "");
    EXPECT_EQ(status.sGetProductStatusXML(), statusDocument(""));
}

TEST_F(TreeOrderServerTest, FailsTheCallWhenTheCopyCannotBeSaved)
{
    serve("<ZorvoTree Version='3'/>");
    fakes.files->failOn(FakeFiles::Operation::write, "", kPathOrFileAccess);
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kPathOrFileAccess);
}

TEST_F(TreeOrderServerTest, FailsBothCallsWhenItsFileCannotBeLoaded)
{
    setTreeOrder(treeGroup("Own", "<Acronymn>A</Acronymn>"));
    fakes.files->addFile(sServer, "no library");
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kFileNotFound);
    EXPECT_EQ(numberOfFailure([&] { status.sGetProductStatusXML(); }), kFileNotFound);
}

TEST_F(TreeOrderServerTest, FailsTheCallWhenAFunctionIsMissing)
{
    fakes.files->addFile(sServer);
    fakes.libraries->addLibrary(sServer, {{"GetXml", addressOf(getXml)}});
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kInvalidCall);
    served = "";
    servedLength = 0;
    fakes.libraries->addLibrary(sServer, {{"GetXmlLength", addressOf(getXmlLength)}});
    EXPECT_EQ(numberOfFailure([&] { status.sGetTreeOrderXML(); }), kInvalidCall);
}

TEST_F(TreeOrderServerTest, IsNotCalledWhenItsFileIsMissing)
{
    serve("<ZorvoTree Version='3'/>");
    fakes.files->remove(sServer);
    status.sGetTreeOrderXML();
    EXPECT_TRUE(fakes.libraries->loaded.empty());
}
