#include "catalogue/basHTMLHelp.h"

#include "catalogue/clsHTMLHelp.h"

#include <memory>

namespace zorvo {

namespace {

/// Its end closes the help, so it doesn't end with a process that just goes: help that an add-in asked for
/// stays when the add-in lets go of us.
std::shared_ptr<clsHTMLHelp>& instance()
{
    static auto& help = *new std::shared_ptr<clsHTMLHelp>;
    return help;
}

/// Its own reference: events run while the help comes to the front, and the main window may end in one of
/// them.
std::shared_ptr<clsHTMLHelp> heldInstance()
{
    EnsureHTMLHelp();
    return instance();
}

} // namespace

bool EnsureHTMLHelp(std::optional<std::uintptr_t> hWnd)
{
    if (instance())
        return false;
    instance() = std::make_shared<clsHTMLHelp>();
    if (hWnd)
        instance()->setHWnd(*hWnd);
    return true;
}

void ReleaseHTMLHelp()
{
    instance().reset();
}

void ShowHelpContext(std::uint32_t nContext)
{
    heldInstance()->HTMLHelpContext(nContext);
}

void ShowHelpContents()
{
    heldInstance()->HTMLHelpDisplayTOC();
}

} // namespace zorvo
