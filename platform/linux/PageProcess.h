#pragma once

#include "platform/PageEngine.h"
#include "platform/linux/DosPaths.h"

namespace zorvo {

/// The engine is the program `zorvo-page`, one process for each page, which shows its window inside ours.
/// Windows are those of an X server.
class PageProcesses : public PageEngine {
public:
    /// `sProgram` is the native path of `zorvo-page`; empty for the one beside the running program.
    explicit PageProcesses(DosPaths paths, std::string sProgram = {});

    std::unique_ptr<Page> open(PageListener& listener, bool bAccessible) override;

private:
    DosPaths paths_;
    std::string sProgram_;
};

} // namespace zorvo
