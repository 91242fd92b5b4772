#pragma once

#include <string>

/// The rules for the folder that a batch of documents goes to. `sStatus` is the line of the status bar: it
/// changes where there is something to tell.
namespace zorvo {

/// The path that the user's text names, without the blanks around it. A native path comes in the backslash
/// form; a text that is no path stays as it is.
std::string sFolderOfText(const std::string& sText);
/// The path as a control shows it.
std::string sTextOfFolder(const std::string& sPath);

bool bFolderExists(const std::string& sPath);

/// The folder exists, and documents are safe in it: not among the browser's temporary files nor in the
/// network neighbourhood, which the user is told in a box. `sPath` comes back trimmed.
bool bValidFolder(std::string& sPath, std::string& sStatus);

/// Whether the batch may go to the folder.
bool bAcceptFolder(const std::string& sPath, std::string& sStatus);

/// Makes the folder with all its parents. False when it is there already, or the path is empty. A folder that
/// can't be made counts as made: accepting it will tell.
bool bCreateFolder(const std::string& sPath, std::string& sStatus);

} // namespace zorvo
