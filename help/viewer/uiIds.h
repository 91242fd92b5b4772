#pragma once

class QWidget;

namespace zorvo::help {

/// Where the environment asks for it, the accessible description of the control and of all below it becomes
/// "#" and its object name, by which a test finds it.
void markUiIds(QWidget& root);

} // namespace zorvo::help
