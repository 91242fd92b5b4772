#include "creation/fileNaming.h"

#include "tests/creation/CreationTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileNaming : public CreationTest {
protected:
    void add(const std::string& sName) { fakes.files->addFile("C:\\Out\\" + sName); }

    static std::string numbered(int n)
    {
        std::string sNumber = std::to_string(n);
        return "NAME_" + std::string(3 - sNumber.size(), '0') + sNumber + ".DOC";
    }

    void takeAllUpTo(int nLast)
    {
        add("NAME.DOC");
        for (int n = 0; n <= nLast; ++n)
            add(numbered(n));
    }

    static std::string create() { return CreateNewFileName("C:\\Out\\NAME", ".DOC"); }
};

TEST_F(FileNaming, CreateNewFileNameTakesTheBareNameWhenItIsFree)
{
    EXPECT_EQ(create(), "C:\\Out\\NAME.DOC");
}

TEST_F(FileNaming, CreateNewFileNameBeginsItsCounterAtZero)
{
    add("NAME.DOC");
    EXPECT_EQ(create(), "C:\\Out\\NAME_000.DOC");
}

TEST_F(FileNaming, CreateNewFileNameFillsAGapInTheSeries)
{
    add("NAME.DOC");
    add("NAME_001.DOC");
    EXPECT_EQ(create(), "C:\\Out\\NAME_000.DOC");
    add("NAME_000.DOC");
    EXPECT_EQ(create(), "C:\\Out\\NAME_002.DOC");
}

TEST_F(FileNaming, CreateNewFileNameSeesCollisionsWithoutRegardToCase)
{
    add("name.doc");
    EXPECT_EQ(create(), "C:\\Out\\NAME_000.DOC");
}

TEST_F(FileNaming, CreateNewFileNameTakesNoNoticeOfFolders)
{
    fakes.files->addFolder("C:\\Out\\NAME.DOC");
    EXPECT_EQ(create(), "C:\\Out\\NAME.DOC");
}

TEST_F(FileNaming, CreateNewFileNameEndsWith998)
{
    takeAllUpTo(997);
    EXPECT_EQ(create(), "C:\\Out\\NAME_998.DOC");
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(FileNaming, CreateNewFileNameReportsASeriesThatIsFullAndGives999)
{
    takeAllUpTo(998);
    EXPECT_EQ(create(), "C:\\Out\\NAME_999.DOC");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.CreateNewFileName"));
    EXPECT_EQ(messages.reports[0].nNumber, 13);
    EXPECT_FALSE(sFreeFileName("C:\\Out\\NAME", ".DOC"));
}

TEST_F(FileNaming, CreateNewFileNameGives999AlsoWhenThatIsTaken)
{
    takeAllUpTo(999);
    EXPECT_EQ(create(), "C:\\Out\\NAME_999.DOC");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.CreateNewFileName"));
}

TEST_F(FileNaming, ParseFileNameTakesTheTemplatesNameAsItComes)
{
    EXPECT_EQ(ParseFileName("C:\\T\\AUDIT PLAN.DOT", ".DOT", "C:\\Out\\", ".DOC"), "C:\\Out\\AUDIT PLAN.DOC");
    EXPECT_EQ(ParseFileName("C:\\T\\Audit Plan.dot", ".DOT", "C:\\Out\\", ".DOC"), "C:\\Out\\Audit Plan.DOC");
}

TEST_F(FileNaming, ParseFileNameCutsAtTheFirstExtension)
{
    EXPECT_EQ(ParseFileName("C:\\T\\A.DOT.DOT", ".DOT", "C:\\Out\\", ".DOC"), "C:\\Out\\A.DOC");
}

TEST_F(FileNaming, ParseFileNameKeepsOtherDots)
{
    EXPECT_EQ(ParseFileName("C:\\T\\A.B.XLT", ".XLT", "C:\\Out\\", ".XLS"), "C:\\Out\\A.B.XLS");
}

TEST_F(FileNaming, ParseFileNameBearsATemplateThatIsAllExtension)
{
    EXPECT_EQ(ParseFileName("C:\\T\\.DOT", ".DOT", "C:\\Out\\", ".DOC"), "C:\\Out\\.DOC");
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(FileNaming, ParseFileNameReportsAFolderThatHoldsTheExtension)
{
    EXPECT_EQ(ParseFileName("C:\\A.DOTS\\B.DOT", ".DOT", "C:\\Out\\", ".DOC"), "");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ParseFileName"));
    EXPECT_EQ(messages.reports[0].nNumber, kInvalidCall);
}

TEST_F(FileNaming, ParseFileNameReportsAPathWithoutTheExtension)
{
    EXPECT_EQ(ParseFileName("C:\\T\\B.DOC", ".DOT", "C:\\Out\\", ".DOC"), "");
    EXPECT_EQ(ParseFileName("B", ".DOT", "C:\\Out\\", ".DOC"), "");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ParseFileName", "TreeSupport.ParseFileName"));
}

TEST_F(FileNaming, ParseFileNameGoesThroughTheCounter)
{
    add("B.DOC");
    EXPECT_EQ(ParseFileName("C:\\T\\B.DOT", ".DOT", "C:\\Out\\", ".DOC"), "C:\\Out\\B_000.DOC");
}

TEST_F(FileNaming, SaveNameComesFromTheTemplateAndComesBackAsANameAlone)
{
    std::string sFileName;
    EXPECT_EQ(sSaveNameFor("C:\\T\\B.DOT", ".DOT", "C:\\Out\\", sFileName, ".DOC"), "C:\\Out\\B.DOC");
    EXPECT_EQ(sFileName, "B.DOC");
}

TEST_F(FileNaming, SaveNameTakesAGivenNameAndLeavesItAsItCame)
{
    add("Given.DOC");
    std::string sFileName = "Given";
    EXPECT_EQ(sSaveNameFor("C:\\T\\B.DOT", ".DOT", "C:\\Out\\", sFileName, ".DOC"), "C:\\Out\\Given_000.DOC");
    EXPECT_EQ(sFileName, "Given");
}

TEST_F(FileNaming, SaveNameIsEmptyAfterAFailure)
{
    std::string sFileName;
    EXPECT_EQ(sSaveNameFor("C:\\T\\B.XYZ", ".DOT", "C:\\Out\\", sFileName, ".DOC"), "");
    EXPECT_EQ(sFileName, "");
}

} // namespace
} // namespace zorvo
