#pragma once

#include "platform/Automation.h"

#include <memory>

namespace zorvo {

class ExcelApplication;
class WordApplication;

inline constexpr const char* kWordAddInProgID = "ZorvoTSR.Connect";
inline constexpr const char* kExcelAddInProgID = "ZorvoTSR.ExcelConnect";

/// The products' add-in inside the running Word, told the company; null when there is none, which is normal.
LateBoundPtr wordConnection(const std::shared_ptr<WordApplication>& objWordApp);
/// The add-in's object for workbooks. It is Word that is asked for it, so that there is none without a Word.
LateBoundPtr excelConnection(const std::shared_ptr<WordApplication>& objWordApp);

} // namespace zorvo
