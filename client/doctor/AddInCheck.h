#pragma once

#include "client/doctor/Diagnosis.h"

namespace zorvo {

/// The classes of other components that the program calls, the add-ins of the office, and whether they show
/// their menu.
DiagnosisSection checkAddIns(Inspection& inspection);

} // namespace zorvo
