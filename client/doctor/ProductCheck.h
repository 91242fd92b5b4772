#pragma once

#include "client/doctor/Diagnosis.h"

namespace zorvo {

/// Each product year that the registry names, of both hives and families, with its templates and its part of
/// the catalogue.
DiagnosisSection checkProducts();

} // namespace zorvo
