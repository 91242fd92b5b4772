#pragma once

#include "platform/FileSearch.h"

#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// A file search that remembers what it was asked. It answers from the files of `platform().files` in a slow,
/// obvious way, unless a test gives it the answer.
class FakeFileSearch : public FileSearch {
public:
    std::vector<std::string> find(const FileQuestion& question, const Progress& progress) override;

    std::vector<FileQuestion> asked;
    /// While it is set, it answers.
    std::function<std::vector<std::string>()> answer;
    /// While it isn't 0, `find` throws it.
    int nFailure = 0;
};

} // namespace zorvo
