#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// The name that a new document is saved under, made before there is a document (see sSaveNameFor).
///
/// A file that another program puts under the name meanwhile is never written over: the document takes the
/// next free name then. Only when the rule has run out of names, and so names a file that it knows to be
/// there, the save replaces that one.
class SaveName {
public:
    /// `sFileName` comes back as the name alone when it was generated, also after a save under another name.
    SaveName(std::string sTemplatePath, std::string sTemplateExt, std::string sFolder, std::string& sFileName,
             std::string sNewExt);

    /// Runs `saveAs` with the full path. Throws what it throws, RunTimeError 58 when name after name is
    /// taken.
    void save(const std::function<void(const std::string& sPath)>& saveAs);

private:
    void make();

    std::string sTemplatePath_;
    std::string sTemplateExt_;
    std::string sFolder_;
    std::string sGivenName_;
    std::string& sFileName_;
    std::string sNewExt_;
    std::string sPath_;
    bool bTaken_ = false;
};

} // namespace zorvo
