#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// A user account of its own for the tests with the real office: home, settings, runtime and data folders
/// below one temporary folder, small templates made by the office itself, and the machine's adaptors in
/// `platform()`. One per run of the test program.
class TestDesk {
public:
    static TestDesk& instance();

    TestDesk();
    TestDesk(const TestDesk&) = delete;
    TestDesk& operator=(const TestDesk&) = delete;

    const std::filesystem::path& root() const { return root_; }
    /// "LETTER.DOT" and "BUDGET.XLT" lie here, "CLIENT.DOT" and "CLIENT.XLT" that show the document property
    /// ClientName, and broken ones beside them.
    std::filesystem::path templates() const { return root_ / "Templates"; }
    /// A new empty folder.
    std::filesystem::path newFolder();

private:
    void makeTemplates();
    void makeClientTemplates() const;
    void makeBrokenTemplates() const;
    void registerAddIn() const;

    std::filesystem::path root_;
    int nFolders_ = 0;
};

/// The backslash form, by way of drive Z.
std::string dos(const std::filesystem::path& native);

/// The limit only ends a test that fails: what is waited for comes on a slow machine, too.
bool waitUntil(const std::function<bool()>& condition, int milliseconds = 60'000);

std::string bytesOf(const std::filesystem::path& file);
/// A flat document and a rich text with these lines: a paragraph each, and "|a|b|" for a table of one row.
std::string flatText(const std::vector<std::string>& lines);
/// The same as a Word 97 template at `file`, made by the office.
void writeWordTemplate(const std::filesystem::path& file, const std::vector<std::string>& lines);
std::string richTextOf(const std::vector<std::string>& lines);
/// The text of a document of any format, as the office itself reads it.
std::string textOf(const std::filesystem::path& file);

/// The document as the office writes it in one flat XML file, properties included.
std::string flatXmlOf(const std::filesystem::path& file);

/// An environment variable as long as this lives.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::string& value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string name_;
    std::string before_;
    bool bWasSet_;
};

/// The number of the RunTimeError that the call throws, 0 when it throws none.
int numberOf(const std::function<void()>& call);
/// The same for its description.
std::string descriptionOf(const std::function<void()>& call);

} // namespace zorvo
