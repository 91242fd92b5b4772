#pragma once

#include "platform/Office.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// An office with what the contract tests need around it, real or fake. Paths are backslash paths.
class OfficeStage {
public:
    virtual ~OfficeStage() = default;

    virtual Office& office() = 0;
    virtual std::string letterTemplate() = 0;
    virtual std::string budgetTemplate() = 0;
    /// A template and a rich text with these lines: a paragraph each, and "|a|b|" for a table of one row.
    virtual std::string textTemplate(const std::vector<std::string>& lines) = 0;
    virtual std::string richText(const std::vector<std::string>& lines) = 0;
    /// The lines of a saved Word document that aren't empty, a table as a line per cell.
    virtual std::vector<std::string> savedLines(const std::string& sPath) = 0;
    /// A new empty folder, with a closing backslash.
    virtual std::string folder() = 0;
    virtual std::optional<std::string> content(const std::string& sPath) = 0;
    virtual void putFile(const std::string& sPath, const std::string& bytes) = 0;
    virtual bool folderExists(const std::string& sPath) = 0;
    /// Puts add-in files into the applications' folders: B.dot and a.DOT; Tools.xla.
    virtual void provideAddInFiles() = 0;
};

std::unique_ptr<OfficeStage> makeFakeStage();
std::unique_ptr<OfficeStage> makeRealStage();

} // namespace zorvo
