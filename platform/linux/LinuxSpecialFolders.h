#pragma once

#include "platform/SpecialFolders.h"
#include "platform/linux/DosPaths.h"

namespace zorvo {

class Files;
class Registry;

/// The port on the folders of the desktop's conventions.
class LinuxSpecialFolders : public SpecialFolders {
public:
    explicit LinuxSpecialFolders(DosPaths paths);

    /// `$ZORVOBRENDLE_PROGRAM_DIR`, else the data folder installed beside the running program, else the build
    /// tree's.
    std::string program() override;
    /// `XDG_DOCUMENTS_DIR` of the environment or of the user's `user-dirs.dirs`, else the home folder.
    std::string documents() override;
    /// `$XDG_RUNTIME_DIR/zorvobrendle`; without such a folder `zorvobrendle-<user id>` below `$TMPDIR`, or
    /// one with a name that can't be foreseen when somebody has put his own there.
    std::string temporary() override;
    std::string special(int id) override;
    /// Empty also when it was deleted.
    std::string current() override;

private:
    std::string shownFolder(const std::string& native) const;

    DosPaths paths_;
    std::string madeTemporary_;
    /// Asked for with nearly every file; it stays where it is while the program runs.
    std::string programFolder_;
    std::string programFolderGiven_;
};

/// On a first start, when the key that names the user's application data folder isn't there: writes it, with
/// the value `AppData` for the user's configuration folder. False when it couldn't be written.
bool writeAppDataFolder(Registry& registry, Files& files);

} // namespace zorvo
