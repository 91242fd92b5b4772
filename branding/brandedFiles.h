#pragma once

#include "window/Picture.h"

#include <string>

namespace zorvo {

/// The full path of the file to use: the company's own, else the one among the pictures, else the one in the
/// program folder, whether that exists or not. Never empty.
std::string GetBrandedFilePath(const std::string& sFileName);

/// The picture of that name; a name without "." is a ".bmp". Null after a failure, which is reported.
PicturePtr LoadBrandedPicture(const std::string& sName);

} // namespace zorvo
