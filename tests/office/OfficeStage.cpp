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
