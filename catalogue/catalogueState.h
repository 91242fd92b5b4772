#pragma once

#include "catalogue/SwdInstalledTable.h"

namespace zorvo {

/// What the catalogue keeps for the life of the process. A test makes it anew with
/// `catalogueState() = CatalogueState()`.
struct CatalogueState {
    SwdInstalledTable swdInstalled;
};

CatalogueState& catalogueState();

} // namespace zorvo
