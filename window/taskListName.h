#pragma once

class QString;
class QWidget;

namespace zorvo {

/// How the desktop's list of running programs knows the window from now on, where it goes by the launcher
/// that started a program: `launcher` is the name of a launcher's file, without its extension; without such a
/// file the list shows `name`. The windows that the program has not made yet go by the launcher, too.
void setTaskListName(QWidget& window, const QString& launcher, const QString& name);

} // namespace zorvo
