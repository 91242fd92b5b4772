#include "shell/forms/optionsDialog.h"

#include "base/failure.h"
#include "base/sessionState.h"
#include "shell/Settings.h"
#include "shell/forms/frmOptions.h"
#include "window/clsMousePointer.h"

namespace zorvo {

void editOptions(const std::function<void()>& reload)
{
    try {
        SessionState& session = sessionState();
        goMousePointer().SetModalDialogState(true);
        frmOptions form;
        form.SetData(session.bShowCurrentOnly, session.bIncludeAllOfferings, session.bDisplaySplash,
                     session.bMenuState, session.bShowViewOnTB);
        form.showModal();
        goMousePointer().SetModalDialogState(false);
        bool bCancel = false;
        SessionState chosen = session;
        form.GetData(bCancel, chosen.bShowCurrentOnly, chosen.bIncludeAllOfferings, chosen.bDisplaySplash,
                     chosen.bMenuState, chosen.bShowViewOnTB);
        if (bCancel)
            return;
        session.bShowCurrentOnly = chosen.bShowCurrentOnly;
        session.bIncludeAllOfferings = chosen.bIncludeAllOfferings;
        session.bDisplaySplash = chosen.bDisplaySplash;
        session.bMenuState = chosen.bMenuState;
        session.bShowViewOnTB = chosen.bShowViewOnTB;
        SaveSettings();
        reload();
    } catch (const RunTimeError& error) {
        recordFailure(error);
        goMousePointer().SetModalDialogState(false);
        ReportError("TemplateTree.ZorvoBrendleOptionsDialog");
    }
}

} // namespace zorvo
