#include "client/CreateCommand.h"

#include "base/RunTimeError.h"
#include "client/CreateOptions.h"
#include "client/givenPath.h"
#include "creation/creationState.h"
#include "tests/client/CreateTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kOut = "/fake/drive_c/Out/";

class CreateCommandTest : public CreateTest {
protected:
    bool made(const std::string& sName) const { return files->content("C:\\Out\\" + sName).has_value(); }

    static std::string selectionElement(const std::string& sTitle, const std::string& sFileName)
    {
        return "<Document><Title><![CDATA[" + sTitle + "]]></Title><FileName><![CDATA[" + sFileName +
               "]]></FileName><Type><![CDATA[TYPE]]></Type><Year><![CDATA[2007]]></Year></Document>";
    }
};

TEST_F(CreateCommandTest, MakesADocumentOfTheCatalogueUnderAGeneratedName)
{
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> " + kOut + "LETTER.DOC\n");
    EXPECT_EQ(run.err, "1 document: 1 created, 0 failed\n");
    EXPECT_EQ(run.nExit, 0);
    EXPECT_TRUE(made("LETTER.DOC"));
}

TEST_F(CreateCommandTest, CallsTheOfficeAsABatchDoesAndQuitsItOnce)
{
    createInOut({"AUDT/2007/Engagement Letter", "AUDT/2007/Time Budget"});
    EXPECT_THAT(office->calls(), ElementsAreArray({"Create Word.Application",
                                                   "Word.Version",
                                                   "Word.Quit",
                                                   "Create Word.Application",
                                                   "Word.AddIns.Count",
                                                   "Word.Documents.Add \"C:\\T\\AUDT\\2007\\LETTER.DOT\"",
                                                   "Word.COMAddIns(\"ZorvoTSR.Connect\").Object",
                                                   "Word.ActiveDocument.SaveAs \"C:\\Out\\LETTER.DOC\" 0",
                                                   "Word.ActiveDocument.Close",
                                                   "Create Excel.Application",
                                                   "Excel.Version",
                                                   "Create Excel.Application",
                                                   "Excel.AddIns.Count",
                                                   "Excel.EnableEvents = False",
                                                   "Excel.Workbooks.Add \"C:\\T\\AUDT\\2007\\BUDGET.XLT\"",
                                                   "Excel.EnableEvents = True",
                                                   "Word.COMAddIns(\"ZorvoTSR.ExcelConnect\").Object",
                                                   "Excel.EnableEvents = False",
                                                   "Excel.Version",
                                                   "Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET.XLS\" 56 1",
                                                   "Excel.EnableEvents = True",
                                                   "Excel.ActiveWorkbook.Close",
                                                   "Word.Quit",
                                                   "Excel.Quit"}));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(CreateCommandTest, FindsNamesWhateverTheirCaseAndWithSlashesInThem)
{
    const Run run = createInOut({"audt/2007/INCOME/expense"});
    EXPECT_EQ(run.out, "Income/Expense -> " + kOut + "INCOME.XLS\n");
    EXPECT_EQ(run.nExit, 0);
}

TEST_F(CreateCommandTest, MakesAllDocumentsOfAProductForAStar)
{
    const Run run = createInOut({"AUDT/2007/*"});
    EXPECT_EQ(run.out, "Engagement Letter -> " + kOut + "LETTER.DOC\nTime Budget -> " + kOut +
                           "BUDGET.XLS\nIncome/Expense -> " + kOut + "INCOME.XLS\n");
    EXPECT_EQ(run.nExit, 0);
}

TEST_F(CreateCommandTest, FailsWhatItCannotFindAndLosesNothingElse)
{
    const Run run = createInOut({"AUDT/2007/Nothing", "XXX/2007/Nothing", "AUDT/1999/Nothing",
                                 "AUQ/2007/Twice", "AUDT/2006/Engagement Letter"});
    EXPECT_EQ(run.out, "AUDT/2007/Nothing -> FAILED: No document of AUDT 2007 has this name\n"
                       "XXX/2007/Nothing -> FAILED: There is no product XXX on this machine\n"
                       "AUDT/1999/Nothing -> FAILED: The product AUDT has no year 1999 on this machine\n"
                       "AUQ/2007/Twice -> FAILED: 2 documents of AUQ 2007 have this name\n"
                       "Engagement Letter -> " +
                           kOut + "LETTER.DOC\n");
    EXPECT_EQ(run.err, "5 documents: 1 created, 4 failed\n");
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, GivesEveryDocumentOneLineWhateverItsName)
{
    EXPECT_EQ(createInOut({"X\nY/2007/Z"}).out,
              "X Y/2007/Z -> FAILED: There is no product X Y on this machine\n");
}

TEST_F(CreateCommandTest, LooksForProductsOfTheCompany)
{
    EXPECT_EQ(createInOut({"AUDT/2007/*", "--company", "OTR"}).out,
              "AUDT/2007/* -> FAILED: There is no product AUDT on this machine for the company OTR\n");
}

TEST_F(CreateCommandTest, PrefersTheNameInItsOwnCase)
{
    addProduct("CS", "2007", document("Note", "Lower.dot") + document("NOTE", "Upper.dot"));
    writeCatalogues();
    files->addFile("C:\\T\\CS\\2007\\Upper.dot");
    EXPECT_EQ(createInOut({"CS/2007/NOTE"}).out, "NOTE -> " + kOut + "UPPER.DOC\n");
    EXPECT_THAT(createInOut({"CS/2007/note"}).out,
                HasSubstr("FAILED: 2 documents of CS 2007 have this name"));
}

TEST_F(CreateCommandTest, TellsAProductThatIsRegisteredButNotInstalled)
{
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\AUDT\\2005");
    EXPECT_EQ(createInOut({"AUDT/2005/X"}).out,
              "AUDT/2005/X -> FAILED: The product AUDT 2005 is not installed\n");
}

TEST_F(CreateCommandTest, PrefersAProductsOwnCatalogue)
{
    files->addFile("C:\\T\\AUDT\\2006\\Zorvo Library.xml",
                   "<Library><Product Acronym='AUDT' Year='2006' Type='T' Guid='{P}'><Name>P</Name>" +
                       document("Own", "Letter.dot") + "</Product></Library>");
    EXPECT_EQ(createInOut({"AUDT/2006/Own"}).nExit, 0);
    EXPECT_EQ(createInOut({"AUDT/2006/Engagement Letter"}).nExit, 1);
}

TEST_F(CreateCommandTest, TellsAProductThatTheCatalogueLacks)
{
    files->addFile("C:\\Zorvo\\TreeData\\Zorvo Library.xml", "<Library/>");
    EXPECT_EQ(createInOut({"AUDT/2007/*"}).out,
              "AUDT/2007/* -> FAILED: The catalogue has no documents of AUDT 2007\n");
}

TEST_F(CreateCommandTest, FailsADocumentWhoseTemplateIsMissing)
{
    files->remove("C:\\T\\AUDT\\2007\\Letter.dot");
    const Run run = createInOut({"AUDT/2007/*"});
    EXPECT_THAT(run.out,
                StartsWith("Engagement Letter -> FAILED: The selected template below does not exist: "
                           "C:\\T\\AUDT\\2007\\Letter.dot\nTime Budget -> "));
    EXPECT_THAT(run.err,
                StartsWith("The selected template below does not exist: C:\\T\\AUDT\\2007\\Letter.dot\n"));
    EXPECT_EQ(run.nExit, 1);
    EXPECT_TRUE(made("BUDGET.XLS"));
}

TEST_F(CreateCommandTest, TellsThatThereIsNoOffice)
{
    office->bWordInstalled = false;
    const Run run = createInOut({"AUDT/2007/*"});
    EXPECT_THAT(run.out,
                StartsWith("Engagement Letter -> FAILED: " + standardErrorDescription(kCannotCreateObject) +
                           "\nTime Budget -> " + kOut + "BUDGET.XLS\n"));
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, TellsTheOfficesOwnReasonForASaveThatFails)
{
    office->fail("Word.ActiveDocument.SaveAs", kDiskFull);
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> FAILED: " + standardErrorDescription(kDiskFull) + "\n");
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, FailsADocumentThoughAFileIsThereWhenTheOfficeRefusedTheTemplate)
{
    // The document before stays open, and the next save stores that one under the wrong name.
    office->fail("Word.ActiveDocument.Close", kPermissionDenied, 1);
    office->fail("Word.Documents.Add \"C:\\T\\AUDT\\2006", 5152, 1);
    const Run run = createInOut({"AUDT/2007/Engagement Letter", "AUDT/2006/Engagement Letter"});
    EXPECT_TRUE(made("LETTER_000.DOC"));
    EXPECT_THAT(run.out, HasSubstr("Engagement Letter -> FAILED: " + standardErrorDescription(5152)));
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, FailsADocumentWhoseFileIsNoOfficeFile)
{
    files->bGoodFiles = false;
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> FAILED: The file that was written is no Word or Excel file\n");
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, ReportsAnErrorOfTheRuleAsTheReason)
{
    files->addFile("C:\\Sel.xml",
                   "<Documents><Document><Title>T</Title><FileName>C:\\T\\AUDT\\2007\\Budget.xlt"
                   "</FileName><Type>QBK</Type><Year>beta</Year></Document></Documents>");
    const Run run = createInOut({"--selection", "C:\\Sel.xml"});
    EXPECT_EQ(run.out, "T -> FAILED: Error 13 - " + standardErrorDescription(kTypeMismatch) +
                           " (TreeSupport.ProcessOneDoc)\n");
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, NeverWritesOverAFileThatIsThere)
{
    files->addFile("C:\\Out\\letter.doc", "mine");
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> " + kOut + "LETTER_000.DOC\n");
    EXPECT_EQ(files->content("C:\\Out\\letter.doc"), "mine");
}

TEST_F(CreateCommandTest, FailsADocumentWhenTheNumbersRunOutAndWritesOverNothing)
{
    files->addFile("C:\\Out\\LETTER.DOC", "mine");
    for (int n = 0; n <= 999; ++n) {
        const std::string sNumber = std::to_string(n);
        files->addFile("C:\\Out\\LETTER_" + std::string(3 - sNumber.size(), '0') + sNumber + ".DOC", "mine");
    }
    const Run run = createInOut({"AUDT/2007/Engagement Letter", "AUDT/2007/Time Budget"});
    EXPECT_EQ(run.out, "Engagement Letter -> FAILED: All names are taken in the folder, from LETTER.DOC to "
                       "LETTER_998.DOC\nTime Budget -> " +
                           kOut + "BUDGET.XLS\n");
    EXPECT_EQ(run.nExit, 1);
    EXPECT_EQ(files->content("C:\\Out\\LETTER_999.DOC"), "mine");
}

TEST_F(CreateCommandTest, TellsTheOfficeToReplaceNoFiles)
{
    bool bNever = false;
    files->addFile("C:\\T\\AUDT\\2007\\Letter.dot");
    office->provideAddIn("ZorvoTSR.Connect").answer("SetSaveFlag", [&](std::vector<Value>&) {
        bNever = office->neverReplacesFiles();
        return Value();
    });
    createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_TRUE(bNever);
    EXPECT_FALSE(office->neverReplacesFiles());
    EXPECT_FALSE(creationState().bReplaceNothing);
}

TEST_F(CreateCommandTest, FailsATemplateWhosePathGivesNoName)
{
    files->addFile("C:\\A.DOTS\\B.dot");
    files->addFile("C:\\Sel.xml",
                   "<Documents>" + selectionElement("B", "C:\\A.DOTS\\B.dot") + "</Documents>");
    EXPECT_EQ(createInOut({"--selection", "C:\\Sel.xml"}).out,
              "B -> FAILED: The template's path gives the new document no name\n");
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(CreateCommandTest, TellsTheAddInsTheCompany)
{
    office->provideAddIn("ZorvoTSR.Connect");
    files->addFile("C:\\Sel.xml",
                   "<Documents>" + selectionElement("L", "C:\\T\\AUDT\\2007\\Letter.dot") + "</Documents>");
    createInOut({"--selection", "C:\\Sel.xml", "--company", "OTR"});
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.Connect.SetCompanyID \"OTR\""));
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.Connect.StuffProperties <document> \"\""));
}

TEST_F(CreateCommandTest, ReadsASelectionDocument)
{
    files->addFile("C:\\Sel.xml",
                   "\xEF\xBB\xBF<Documents>" + selectionElement("A", "C:\\T\\AUDT\\2007\\Letter.dot") +
                       selectionElement("B", "C:\\T\\AUDT\\2007\\Budget.xlt") + "</Documents>\r\n");
    const Run run = createInOut({"--selection", "C:\\Sel.xml"});
    EXPECT_EQ(run.out, "A -> " + kOut + "LETTER.DOC\nB -> " + kOut + "BUDGET.XLS\n");
    EXPECT_EQ(run.nExit, 0);
}

TEST_F(CreateCommandTest, ReadsTheQuotedLineOfAPartnersSession)
{
    files->addFile("C:\\DFS_DFK.txt",
                   "\"<Documents>" + selectionElement("A |quoted| title", "C:\\T\\AUDT\\2007\\Letter.dot") +
                       "</Documents>\"\r\n");
    EXPECT_EQ(createInOut({"--selection=C:\\DFS_DFK.txt"}).out,
              "A \"quoted\" title -> " + kOut + "LETTER.DOC\n");
}

TEST_F(CreateCommandTest, KeepsTheBarsOfASelectionThatIsNotQuoted)
{
    files->addFile("C:\\Sel.xml", "<Documents>" + selectionElement("A | B", "C:\\T\\AUDT\\2007\\Letter.dot") +
                                      "</Documents>");
    EXPECT_EQ(createInOut({"--selection", "C:\\Sel.xml"}).out, "A | B -> " + kOut + "LETTER.DOC\n");
}

TEST_F(CreateCommandTest, ReadsTheQuotedLineBehindAByteOrderMark)
{
    files->addFile("C:\\DFS_DFK.txt",
                   "\xEF\xBB\xBF\"<Documents>" +
                       selectionElement("A |quoted| title", "C:\\T\\AUDT\\2007\\Letter.dot") +
                       "</Documents>\"\r\n");
    EXPECT_EQ(createInOut({"--selection=C:\\DFS_DFK.txt"}).out,
              "A \"quoted\" title -> " + kOut + "LETTER.DOC\n");
}

TEST_F(CreateCommandTest, HandsTheProfileOfAFileToTheAddIn)
{
    office->provideAddIn("ZorvoTSR.Connect");
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    files->addFile("C:\\profile.txt", "\xEF\xBB\xBF# a client\r\n\r\nClientName = Fröhlich & Co = Söhne \r\n"
                                      "PeriodEnd=\r\n");
    const Run run =
        createInOut({"--profile", "C:\\profile.txt", "AUDT/2007/Engagement Letter", "AUDT/2007/Time Budget"});
    EXPECT_EQ(run.nExit, 0) << run.err;
    const std::string sProfile = "\"ClientName=Fröhlich & Co = Söhne\nPeriodEnd=\n\"";
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.Connect.StuffProperties <document> " + sProfile));
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.ExcelConnect.StuffProperties <document> " + sProfile));
    EXPECT_EQ(run.err, "2 documents: 2 created, 0 failed\n");
}

TEST_F(CreateCommandTest, TellsHowManyDocumentsAreWithoutTheProfile)
{
    office->provideAddIn("ZorvoTSR.Connect");
    files->addFile("C:\\profile.txt", "ClientName=A");
    const std::vector<std::string> order = {"--profile=C:\\profile.txt", "AUDT/2007/Engagement Letter",
                                            "AUDT/2007/Time Budget"};
    const Run run = createInOut(order);
    EXPECT_EQ(run.nExit, 0);
    EXPECT_EQ(run.err, "2 documents: 2 created, 0 failed, 1 without the profile data\n");
    std::vector<std::string> json = order;
    json.emplace_back("--json");
    const QJsonArray documents = QJsonDocument::fromJson(QByteArray::fromStdString(createInOut(json).out))
                                     .object()[QStringLiteral("documents")]
                                     .toArray();
    ASSERT_EQ(documents.size(), 2);
    EXPECT_EQ(documents[0].toObject()[QStringLiteral("profile")], QJsonValue(true));
    EXPECT_EQ(documents[1].toObject()[QStringLiteral("profile")], QJsonValue(false));
}

TEST_F(CreateCommandTest, CountsNoFailedDocumentAsOneWithoutTheProfile)
{
    office->provideAddIn("ZorvoTSR.Connect");
    office->fail("Excel.ActiveWorkbook.SaveAs", kDiskFull);
    files->addFile("C:\\profile.txt", "ClientName=A");
    const Run run =
        createInOut({"--profile=C:\\profile.txt", "AUDT/2007/Engagement Letter", "AUDT/2007/Time Budget"});
    EXPECT_EQ(run.nExit, 1);
    EXPECT_EQ(run.err, "2 documents: 1 created, 1 failed\n");
}

TEST_F(CreateCommandTest, FailsAtAProfileThatCannotBeReadAndMakesNothing)
{
    Run run = createInOut({"--profile", "C:\\gone.txt", "AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.nExit, 1);
    EXPECT_THAT(run.err, StartsWith("Error 53 - "));
    const std::vector<std::pair<const char*, const char*>> faults = {
        {"", "The profile holds no line key=value"},
        {"# nothing\n\n", "The profile holds no line key=value"},
        {"ClientName=A\nno pair\n", "Line 2 of the profile is not of the form key=value"},
        {"\n\n = A", "Line 3 of the profile is not of the form key=value"},
        {"ClientName=Fr\xF6hlich", "The profile is no text in UTF-8"},
    };
    for (const auto& [content, message] : faults) {
        files->addFile("C:\\profile.txt", content);
        run = createInOut({"--profile", "C:\\profile.txt", "AUDT/2007/Engagement Letter"});
        EXPECT_EQ(run.nExit, 1) << content;
        EXPECT_EQ(run.out, "") << content;
        EXPECT_EQ(run.err, std::string("Error 13 - ") + message + "\n") << content;
    }
    EXPECT_FALSE(files->folderExists("C:\\Out"));
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(CreateCommandTest, ADocumentWhoseNameAppearsMeanwhileTakesTheNextOne)
{
    office->provideAddIn("ZorvoTSR.Connect").answer("StuffProperties", [&](std::vector<Value>&) {
        files->addFile("C:\\Out\\LETTER.DOC", "another program's");
        return Value();
    });
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> " + kOut + "LETTER_000.DOC\n");
    EXPECT_EQ(files->content("C:\\Out\\LETTER.DOC"), "another program's");
    EXPECT_TRUE(made("LETTER_000.DOC"));
}

TEST_F(CreateCommandTest, FailsAtASelectionThatIsMissingOrHoldsNothing)
{
    Run run = createInOut({"--selection", "C:\\gone.xml"});
    EXPECT_EQ(run.nExit, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("Error 53 - "));

    for (const char* content :
         {"", "\"", "no selection", "<Documents></Documents>", "<Documents><Document>"}) {
        files->addFile("C:\\Sel.xml", content);
        run = createInOut({"--selection", "C:\\Sel.xml"});
        EXPECT_EQ(run.nExit, 1) << content;
        EXPECT_EQ(run.out, "") << content;
        EXPECT_EQ(run.err, "Error 13 - The file holds no selected documents\n") << content;
    }
    EXPECT_FALSE(files->folderExists("C:\\Out"));
}

TEST_F(CreateCommandTest, NamesADocumentWithoutATitleByItsTemplate)
{
    files->addFile("C:\\Sel.xml",
                   "<Documents><Document><FileName>C:\\T\\AUDT\\2007\\Letter.dot</FileName></Document>"
                   "<Document><Title>No file</Title></Document></Documents>");
    const Run run = createInOut({"--selection", "C:\\Sel.xml"});
    EXPECT_EQ(run.out, "C:\\T\\AUDT\\2007\\Letter.dot -> " + kOut +
                           "LETTER.DOC\nNo file -> FAILED: The selected template below does not exist:\n");
    EXPECT_EQ(run.nExit, 1);
}

TEST_F(CreateCommandTest, MakesTheFolderWithAllItsLevels)
{
    const Run run = create({"--to", "C:/new/deep", "AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> /fake/drive_c/new/deep/LETTER.DOC\n");
    EXPECT_TRUE(files->content("C:\\new\\deep\\LETTER.DOC"));
}

TEST_F(CreateCommandTest, TakesANativeFolder)
{
    const Run run = create({"--to=/fake/drive_c/native", "AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.out, "Engagement Letter -> /fake/drive_c/native/LETTER.DOC\n");
    EXPECT_TRUE(files->content("C:\\native\\LETTER.DOC"));
}

TEST_F(CreateCommandTest, FailsAtAFolderThatCannotBeMade)
{
    files->failOn(FakeFiles::Operation::makeFolder, "", kPermissionDenied);
    const Run run = createInOut({"AUDT/2007/Engagement Letter"});
    EXPECT_EQ(run.nExit, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Error 76 - The folder C:\\Out is not there and can't be made\n");
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(CreateCommandTest, PrintsOneJsonObject)
{
    const Run run = createInOut({"--json", "AUDT/2007/Engagement Letter", "AUDT/2007/Nothing"});
    EXPECT_EQ(run.nExit, 1);
    const QJsonDocument expected = QJsonDocument::fromJson(R"({
        "folder": "/fake/drive_c/Out",
        "documents": [
            {"title": "Engagement Letter", "template": "/fake/drive_c/T/AUDT/2007/Letter.dot",
             "status": "created", "file": "/fake/drive_c/Out/LETTER.DOC"},
            {"title": "AUDT/2007/Nothing", "template": "",
             "status": "failed", "reason": "No document of AUDT 2007 has this name"}],
        "summary": {"documents": 2, "created": 1, "failed": 1}})");
    ASSERT_TRUE(expected.isObject());
    EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(run.out)), expected) << run.out;
    EXPECT_THAT(run.out, Not(HasSubstr("->")));
}

TEST_F(CreateCommandTest, RefusesWrongUsage)
{
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"AUDT/2007/X"},
        {"--to", "C:\\Out"},
        {"--to"},
        {"--to", "", "AUDT/2007/X"},
        {"--to", "C:\\Out", "AUDT/2007"},
        {"--to", "C:\\Out", "/2007/X"},
        {"--to", "C:\\Out", "AUDT//X"},
        {"--to", "C:\\Out", "AUDT/2007/"},
        {"--to", "C:\\Out", "--selection"},
        {"--to", "C:\\Out", "--selection", "f", "AUDT/2007/X"},
        {"--to", "C:\\Out", "--other", "f", "AUDT/2007/X"},
        {"--to", "C:\\Out", "-x", "AUDT/2007/X"},
        {"--to", "C:\\Out", "AUDT/2007/X", "--company", ""},
        {"--to", "C:\\Out", "AUDT/2007/X", "--company"},
        {"--to", "C:\\Out", "AUDT/2007/X", "--profile"},
        {"--to", "C:\\Out", "AUDT/2007/X", "--profile="},
        {"--to", "C:\\Out", "AUDT/2007/X", "--json=yes"},
        {"--to", "C:\\Out", "AUDT/2007/X", "-"},
    };
    for (const auto& args : wrong) {
        const Run run = create(args);
        EXPECT_EQ(run.nExit, 2) << testing::PrintToString(args);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith("usage: brendle create --to FOLDER "));
    }
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST(CreateOptions, ComeInAnyOrder)
{
    const auto options =
        parseCreateOptions({"--json", "A/1/x/y", "--company", "OTR", "--to=/tmp", "--", "-B/2/*"});
    ASSERT_TRUE(options);
    EXPECT_TRUE(options->bJson);
    EXPECT_EQ(options->sCompany, "OTR");
    EXPECT_EQ(options->sFolder, "/tmp");
    ASSERT_EQ(options->templates.size(), 2U);
    EXPECT_EQ(options->templates[0].sName, "x/y");
    EXPECT_EQ(options->templates[0].text(), "A/1/x/y");
    EXPECT_EQ(options->templates[1].sProductKey, "-B");
}

TEST_F(CreateCommandTest, TakesRelativePathsFromTheCurrentFolder)
{
    const std::string sHere = std::filesystem::current_path().string();
    EXPECT_EQ(givenPath("some\\folder"), files->fromNative(sHere + "/some/folder"));
    EXPECT_EQ(givenPath("/fake/drive_c/x"), "C:\\x");
    EXPECT_EQ(givenPath("d:/x\\y"), "d:\\x\\y");
}

} // namespace
} // namespace zorvo
