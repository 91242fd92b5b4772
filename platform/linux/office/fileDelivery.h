#pragma once

#include <string>

namespace zorvo {

/// A file in the user's own temporary folder into which an office stores before the document comes to its
/// place. Gone with this object.
class StagedFile {
public:
    StagedFile();
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    const std::string& path() const { return path_; }
    /// There is no more room where it lies.
    bool isDiskFull() const;

private:
    std::string path_;
};

enum class Existing { replace, keep };

/// Throws what `deliverFile` would throw before any work: 76 for a missing folder, 58, 70.
void checkTarget(const std::string& target, Existing existing);

/// The bytes of `source` become the file `target` (native paths) at one stroke: neither a crash nor a full
/// disk leaves a part of it there. With Existing::keep a file that is there, or comes up meanwhile, stays and
/// the call throws 58; otherwise 61, 70, 75 or 76.
void deliverFile(const std::string& source, const std::string& target, Existing existing);

} // namespace zorvo
