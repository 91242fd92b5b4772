#include "catalogue/basHTMLHelp.h"

#include "catalogue/clsHTMLHelp.h"

#include <memory>

namespace zorvo {

namespace {

std::unique_ptr<clsHTMLHelp>& instance()
{
    static std::unique_ptr<clsHTMLHelp> help;
    return help;
}

} // namespace

void EnsureHTMLHelp(std::optional<std::uintptr_t> hWnd)
{
    if (instance())
        return;
    instance() = std::make_unique<clsHTMLHelp>();
    if (hWnd)
        instance()->setHWnd(*hWnd);
}

void ReleaseHTMLHelp()
{
    instance().reset();
}

void ShowHelpContext(std::uint32_t nContext)
{
    EnsureHTMLHelp();
    instance()->HTMLHelpContext(nContext);
}

void ShowHelpContents()
{
    EnsureHTMLHelp();
    instance()->HTMLHelpDisplayTOC();
}

} // namespace zorvo
