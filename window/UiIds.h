#pragma once

class QWidget;

namespace zorvo {

/// With ZORVOBRENDLE_UI_IDS=1 in the environment a test finds every control by the accessible description,
/// which is then "#" and the object name. Otherwise descriptions are for people, and these do nothing.

/// The widget and all below it that have a name of the program's own.
void markUiIds(QWidget& root);
/// One widget that has come later.
void markUiId(QWidget& widget);

} // namespace zorvo
