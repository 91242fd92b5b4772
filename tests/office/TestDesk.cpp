#include "tests/office/TestDesk.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/linuxPlatform.h"
#include "tests/support/testFolders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace zorvo {

namespace fs = std::filesystem;

namespace {

constexpr const char* kRootElement =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<office:document xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
    "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
    "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
    "xmlns:meta=\"urn:oasis:names:tc:opendocument:xmlns:meta:1.0\" office:version=\"1.2\" "
    "office:mimetype=\"application/vnd.oasis.opendocument.";

void write(const fs::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

/// The office's own command-line conversion, apart from the code that is tested.
void convert(const fs::path& root, const fs::path& file, const std::string& format, const fs::path& folder)
{
    const std::string command = "soffice -env:UserInstallation=file://" + (root / "converter").string() +
                                " --headless --convert-to '" + format + "' --outdir '" + folder.string() +
                                "' '" + file.string() + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0)
        throw std::runtime_error("no conversion: " + command);
}

void setFolder(const char* variable, const fs::path& folder)
{
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms::owner_all);
    setenv(variable, folder.c_str(), 1);
}

/// Comes up before the first test and goes after the last.
class DeskOfTheRun : public testing::Environment {
public:
    void TearDown() override { fs::remove_all(TestDesk::instance().root()); }
};

const testing::Environment* const kDesk = testing::AddGlobalTestEnvironment(new DeskOfTheRun);

} // namespace

TestDesk& TestDesk::instance()
{
    static TestDesk desk;
    return desk;
}

TestDesk::TestDesk()
{
    std::string name = (fs::temp_directory_path() / "zorvo-office-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    root_ = name;
    setFolder("HOME", root_ / "home");
    setFolder("XDG_CONFIG_HOME", root_ / "config");
    setFolder("XDG_DATA_HOME", root_ / "data");
    setFolder("XDG_CACHE_HOME", root_ / "cache");
    setFolder("XDG_RUNTIME_DIR", root_ / "runtime");
    setFolder("ZORVOBRENDLE_MACHINE_DIR", root_ / "machine");
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    installLinuxPlatform();
    makeTemplates();
    makeClientTemplates();
    makeBrokenTemplates();
    registerAddIn();
}

fs::path TestDesk::newFolder()
{
    fs::path folder = root_ / ("folder " + std::to_string(++nFolders_));
    fs::create_directories(folder);
    return folder;
}

void TestDesk::makeTemplates()
{
    fs::create_directories(templates());
    const fs::path text = root_ / "letter.fodt";
    write(text, std::string(kRootElement) + "text\"><office:body><office:text><text:p>Dear reader</text:p>"
                                            "</office:text></office:body></office:document>");
    convert(root_, text, "dot:MS Word 97 Vorlage", templates());
    convert(root_, text, "rtf:Rich Text Format", templates());
    fs::rename(templates() / "letter.dot", templates() / "LETTER.DOT");
    const fs::path sheet = root_ / "budget.fods";
    write(sheet,
          std::string(kRootElement) +
              "spreadsheet\"><office:body><office:spreadsheet><table:table table:name=\"Budget\">"
              "<table:table-row><table:table-cell office:value-type=\"string\"><text:p>Planned</text:p>"
              "</table:table-cell></table:table-row></table:table></office:spreadsheet></office:body>"
              "</office:document>");
    convert(root_, sheet, "xlt:MS Excel 97 Vorlage/Template", templates());
    fs::rename(templates() / "budget.xlt", templates() / "BUDGET.XLT");
}

void TestDesk::makeClientTemplates() const
{
    const std::string sProperty = "<office:meta><meta:user-defined meta:name=\"ClientName\">[Client]"
                                  "</meta:user-defined></office:meta>";
    const fs::path text = root_ / "client.fodt";
    write(text, std::string(kRootElement) + "text\">" + sProperty +
                    "<office:body><office:text><text:p>For <text:user-defined text:name=\"ClientName\">"
                    "[Client]</text:user-defined></text:p></office:text></office:body></office:document>");
    convert(root_, text, "dot:MS Word 97 Vorlage", templates());
    fs::rename(templates() / "client.dot", templates() / "CLIENT.DOT");
    const fs::path sheet = root_ / "client.fods";
    write(sheet,
          std::string(kRootElement) + "spreadsheet\">" + sProperty +
              "<office:body><office:spreadsheet><table:table table:name=\"Budget\"><table:table-row>"
              "<table:table-cell office:value-type=\"string\"><text:p>[Client]</text:p></table:table-cell>"
              "</table:table-row></table:table><table:named-expressions><table:named-range "
              "table:name=\"ClientName\" table:base-cell-address=\"$Budget.$A$1\" "
              "table:cell-range-address=\"$Budget.$A$1\"/></table:named-expressions>"
              "</office:spreadsheet></office:body></office:document>");
    convert(root_, sheet, "xlt:MS Excel 97 Vorlage/Template", templates());
    fs::rename(templates() / "client.xlt", templates() / "CLIENT.XLT");
}

void TestDesk::makeBrokenTemplates() const
{
    const std::string letter = bytesOf(templates() / "LETTER.DOT");
    write(templates() / "EMPTY.DOT", "");
    write(templates() / "TRUNCATED.DOT", letter.substr(0, letter.size() / 3));
    write(templates() / "RANDOM.DOT", std::string(5000, 'x'));
    std::string corrupt = letter.substr(0, 8);
    for (int n = 0; n < 6000; ++n)
        corrupt += static_cast<char>(n * 37 % 251);
    write(templates() / "CORRUPT.DOT", corrupt);
    write(templates() / "CORRUPT.XLT", corrupt);
    fs::copy_file(templates() / "BUDGET.XLT", templates() / "SHEET.DOT");
    // Made with the password "secret": no command line makes one.
    fs::copy_file(sourceFolder() / "tests/office/data/PROTECTED.DOT", templates() / "PROTECTED.DOT");
}

/// As the office's own extension manager leaves an extension of the user's behind.
void TestDesk::registerAddIn() const
{
    const fs::path folder = root_ / "config/libreoffice/4/user/uno_packages/cache/registry/"
                                    "com.sun.star.comp.deployment.component.PackageRegistryBackend";
    fs::create_directories(folder);
    write(folder / "unorc", "[Bootstrap]\nUNO_SERVICES=?$ORIGIN/addin.rdb\n");
    write(folder / "addin.rdb",
          "<?xml version=\"1.0\"?>\n"
          "<components xmlns=\"http://openoffice.org/2010/uno-components\">\n"
          "<component loader=\"com.sun.star.loader.SharedLibrary\" environment=\"gcc3\" uri=\"file://" +
              std::string(ZORVO_TEST_ADDIN) +
              "\">\n<implementation name=\"zorvo.test.AddIn\" constructor=\"zorvo_test_addin\">"
              "<service name=\"ZorvoTSR.Connect\"/></implementation>\n</component></components>\n");
}

std::string dos(const fs::path& native)
{
    return "Z:" + replaceAll(native.string(), "/", "\\");
}

bool waitUntil(const std::function<bool()>& condition, int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

std::string bytesOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::stringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

namespace {

std::vector<std::string> cellsOf(const std::string& line)
{
    std::vector<std::string> cells;
    std::istringstream parts(line.substr(1));
    for (std::string cell; std::getline(parts, cell, '|');)
        cells.push_back(cell);
    return cells;
}

} // namespace

std::string flatText(const std::vector<std::string>& lines)
{
    std::string text = std::string(kRootElement) + "text\"><office:body><office:text>";
    for (const std::string& line : lines) {
        if (!line.starts_with('|')) {
            text += "<text:p>" + line + "</text:p>";
            continue;
        }
        text += "<table:table>";
        for (std::size_t n = 0; n < cellsOf(line).size(); ++n)
            text += "<table:table-column/>";
        text += "<table:table-row>";
        for (const std::string& cell : cellsOf(line))
            text += "<table:table-cell><text:p>" + cell + "</text:p></table:table-cell>";
        text += "</table:table-row></table:table>";
    }
    return text + "</office:text></office:body></office:document>";
}

void writeWordTemplate(const fs::path& file, const std::vector<std::string>& lines)
{
    const fs::path folder = TestDesk::instance().newFolder();
    write(folder / "text.fodt", flatText(lines));
    convert(TestDesk::instance().root(), folder / "text.fodt", "dot:MS Word 97 Vorlage", folder);
    fs::rename(folder / "text.dot", file);
}

std::string richTextOf(const std::vector<std::string>& lines)
{
    std::string text = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\n";
    for (const std::string& line : lines) {
        if (!line.starts_with('|')) {
            text += "\\pard\\plain " + line + "\\par\n";
            continue;
        }
        const std::vector<std::string> cells = cellsOf(line);
        text += "\\trowd";
        for (std::size_t n = 1; n <= cells.size(); ++n)
            text += "\\cellx" + std::to_string(n * 2000);
        for (const std::string& cell : cells)
            text += "\\pard\\intbl " + cell + "\\cell";
        text += "\\row\n";
    }
    return text + "}";
}

std::string textOf(const fs::path& file)
{
    const fs::path folder = TestDesk::instance().newFolder();
    const bool bSheet = endsWithNoCase(file.string(), ".xls");
    convert(TestDesk::instance().root(), file, bSheet ? "csv" : "txt:Text (encoded):UTF8", folder);
    return bytesOf(folder / file.filename().replace_extension(bSheet ? ".csv" : ".txt"));
}

std::string flatXmlOf(const fs::path& file)
{
    const fs::path folder = TestDesk::instance().newFolder();
    const std::string sFormat = endsWithNoCase(file.string(), ".xls") ? "fods" : "fodt";
    convert(TestDesk::instance().root(), file, sFormat, folder);
    return bytesOf(folder / file.filename().replace_extension("." + sFormat));
}

ScopedVariable::ScopedVariable(const char* name, const std::string& value)
    : name_(name)
    , bWasSet_(getenv(name) != nullptr)
{
    if (bWasSet_)
        before_ = getenv(name);
    setenv(name, value.c_str(), 1);
}

ScopedVariable::~ScopedVariable()
{
    if (bWasSet_)
        setenv(name_.c_str(), before_.c_str(), 1);
    else
        unsetenv(name_.c_str());
}

int numberOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}

std::string descriptionOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RunTimeError& e) {
        return e.description();
    }
    return {};
}

} // namespace zorvo
