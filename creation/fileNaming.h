#pragma once

#include <optional>
#include <string>

namespace zorvo {

/// A full path in `sFolder` (with a closing backslash) that no file has yet, made from a template's name: the
/// text between the template's last backslash and the first `sTemplateExt`. A path whose folder holds that
/// extension, or that holds none, is a failure: it is reported, and the result is empty.
std::string ParseFileName(const std::string& sTemplatePath, const std::string& sTemplateExt,
                          const std::string& sFolder, const std::string& sNewExt);

/// `sBase` and `sExt`, or else the first of `sBase_000` to `sBase_998` with it, that no file has. When all
/// are taken, the failure (13) is reported and the result is `sBase_999` with the extension, be there such a
/// file or not.
std::string CreateNewFileName(const std::string& sBase, const std::string& sExt);

/// The same, or nothing when all are taken.
std::optional<std::string> sFreeFileName(const std::string& sBase, const std::string& sExt);

/// The name that a new document is saved under. Without a name of its own in `sFileName` it takes one from
/// the template, and `sFileName` comes back as the name alone.
std::string sSaveNameFor(const std::string& sTemplatePath, const std::string& sTemplateExt,
                         const std::string& sFolder, std::string& sFileName, const std::string& sNewExt);

/// The folder and the template's name without its extension; throws RunTimeError 5 where ParseFileName fails.
std::string sBaseNameFor(const std::string& sTemplatePath, const std::string& sTemplateExt,
                         const std::string& sFolder);

} // namespace zorvo
