#include "tests/office/OfficeStage.h"

#include "base/text.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/machineAccess.h"
#include "tests/fakes/RecordingOffice.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/office/TestDesk.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace zorvo {

namespace {

class FakeStage : public OfficeStage {
public:
    FakeStage()
    {
        fakes_.files->addFile(letterTemplate(), "letter");
        fakes_.files->addFile(budgetTemplate(), "budget");
        fakes_.files->addFolder("C:\\Out");
    }

    Office& office() override { return office_; }
    std::string letterTemplate() override { return "C:\\T\\LETTER.DOT"; }
    std::string budgetTemplate() override { return "C:\\T\\BUDGET.XLT"; }
    std::string textTemplate(const std::vector<std::string>& lines) override { return file(".dot", lines); }
    std::string richText(const std::vector<std::string>& lines) override { return file(".rtf", lines); }
    std::vector<std::string> savedLines(const std::string& sPath) override
    {
        std::vector<std::string> cells;
        for (const std::string& sLine : office_.savedDocument(sPath)) {
            std::istringstream parts(sLine);
            for (std::string sPart; std::getline(parts, sPart, '|');)
                if (!sPart.empty())
                    cells.push_back(sPart);
        }
        return cells;
    }
    std::string folder() override { return "C:\\Out\\"; }
    std::optional<std::string> content(const std::string& sPath) override
    {
        return fakes_.files->content(sPath);
    }
    void putFile(const std::string& sPath, const std::string& bytes) override
    {
        fakes_.files->addFile(sPath, bytes);
    }
    bool folderExists(const std::string& sPath) override { return fakes_.files->folderExists(sPath); }
    void provideAddInFiles() override
    {
        office_.wordAddIns() = {{"a.DOT", false}, {"B.dot", false}};
        office_.excelAddIns() = {{"Tools.xla", false}};
    }

private:
    std::string file(const std::string& sExtension, const std::vector<std::string>& lines)
    {
        std::string sContents;
        for (const std::string& sLine : lines)
            sContents += sLine + "\n";
        const std::string sName = "C:\\T\\text " + std::to_string(++nFiles_) + sExtension;
        fakes_.files->addFile(sName, sContents);
        return sName;
    }

    int nFiles_ = 0;
    FakePlatform fakes_;
    RecordingOffice office_;
};

class RealStage : public OfficeStage {
public:
    RealStage()
        : desk_(TestDesk::instance())
        , office_(makeLibreOffice())
    {
    }

    Office& office() override { return *office_; }
    /// In upper case all through, as the program hands it over.
    std::string letterTemplate() override { return upperCase(dos(desk_.templates() / "LETTER.DOT")); }
    std::string budgetTemplate() override { return upperCase(dos(desk_.templates() / "BUDGET.XLT")); }
    std::string textTemplate(const std::vector<std::string>& lines) override
    {
        const std::filesystem::path file = desk_.newFolder() / "text.fodt";
        std::ofstream(file) << flatText(lines);
        return dos(file);
    }
    std::string richText(const std::vector<std::string>& lines) override
    {
        const std::filesystem::path file = desk_.newFolder() / "text.rtf";
        std::ofstream(file) << richTextOf(lines);
        return dos(file);
    }
    std::vector<std::string> savedLines(const std::string& sPath) override
    {
        std::vector<std::string> lines;
        std::istringstream text(textOf(platform().files->toNative(sPath)));
        for (std::string sLine; std::getline(text, sLine);)
            if (const std::string sBare = replaceAll(replaceAll(sLine, "\r", ""), "\xEF\xBB\xBF", "");
                !sBare.empty())
                lines.push_back(sBare);
        return lines;
    }
    std::string folder() override { return dos(desk_.newFolder()) + "\\"; }
    std::optional<std::string> content(const std::string& sPath) override
    {
        const std::filesystem::path file = platform().files->toNative(sPath);
        return std::filesystem::exists(file) ? std::optional(bytesOf(file)) : std::nullopt;
    }
    void putFile(const std::string& sPath, const std::string& bytes) override
    {
        platform().files->write(sPath, bytes);
    }
    bool folderExists(const std::string& sPath) override { return platform().files->folderExists(sPath); }
    void provideAddInFiles() override
    {
        const std::string sWord = sGetAppDataFolder() + "\\Microsoft\\Word\\STARTUP\\";
        const std::string sExcel = sGetAppDataFolder() + "\\Microsoft\\AddIns\\";
        MakeNestedFolder(sWord);
        MakeNestedFolder(sExcel);
        for (const std::string& sFile :
             {sWord + "B.dot", sWord + "a.DOT", sWord + "notes.txt", sExcel + "Tools.xla", sExcel + "x.dot"})
            platform().files->write(sFile, "add-in");
    }

private:
    TestDesk& desk_;
    std::shared_ptr<Office> office_;
};

} // namespace

std::unique_ptr<OfficeStage> makeFakeStage()
{
    return std::make_unique<FakeStage>();
}

std::unique_ptr<OfficeStage> makeRealStage()
{
    return std::make_unique<RealStage>();
}

} // namespace zorvo
