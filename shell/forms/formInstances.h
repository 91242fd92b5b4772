#pragma once

#include "window/DefaultInstance.h"

class QString;

namespace zorvo {

class TemplateTree;
class frmSingleInstance;
class frmSplash;

/// The forms that the program reaches by their own names. Touching one loads it.
DefaultInstance<TemplateTree>& templateTree();
DefaultInstance<frmSplash>& splash();
DefaultInstance<frmSingleInstance>& singleInstance();

/// Text of the main form's first status panel. Reaches for the main form, and so loads it when it isn't
/// there.
void setMainStatusText(const QString& text);

} // namespace zorvo
