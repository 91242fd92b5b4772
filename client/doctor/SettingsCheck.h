#pragma once

#include "client/doctor/Diagnosis.h"

namespace zorvo {

/// The stored settings of all companies.
DiagnosisSection checkSettings();

} // namespace zorvo
