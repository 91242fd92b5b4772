#include "tests/fakes/FakeFileSearch.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/Files.h"
#include "platform/Keyword.h"
#include "platform/Platform.h"
#include "platform/RtfReader.h"
#include "platform/searchWords.h"

#include <algorithm>
#include <optional>

namespace zorvo {

namespace {

std::string textOf(const std::string& sBytes)
{
    if (!RtfReader::isRtf(sBytes))
        return sBytes;
    std::string sText;
    RtfReader([&sText](std::string_view piece) { sText += piece; }).read(sBytes, true);
    return sText;
}

bool holdsAll(const std::string& sText, const Keyword& keyword)
{
    KeywordInText found(keyword);
    WordCutter cutter([&found](std::string_view word) { found.take(word); });
    cutter.take(sText);
    cutter.end();
    return found.isFound() && !keyword.isBeyondWords();
}

std::optional<std::string> bytesOf(const std::string& sPath)
{
    try {
        return platform().files->read(sPath);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

} // namespace

std::vector<std::string> FakeFileSearch::find(const FileQuestion& question, const Progress& progress)
{
    asked.push_back(question);
    if (nFailure != 0)
        throw RunTimeError(nFailure);
    if (progress)
        progress(0, 1);
    if (answer)
        return answer();
    const Keyword keyword(question.sTextOrProperty);
    const WordPattern names(upperCase(question.sFileName.empty() ? "*" : question.sFileName));
    std::vector<std::string> found;
    for (const Files::Entry& entry : platform().files->list(question.sLookIn)) {
        const std::string sPath = sJoinPath(question.sLookIn, entry.sName);
        const std::optional<std::string> bytes = bytesOf(sPath);
        if (!entry.bFolder && names.matches(upperCase(entry.sName)) && !entry.sName.starts_with("~$") &&
            bytes && holdsAll(textOf(*bytes), keyword))
            found.push_back(sPath);
    }
    std::sort(found.begin(), found.end(), [](const std::string& a, const std::string& b) {
        const int nOrder = compareNoCase(a, b);
        return nOrder != 0 ? nOrder < 0 : a < b;
    });
    return found;
}

} // namespace zorvo
