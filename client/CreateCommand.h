#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// `brendle create --to FOLDER (--selection FILE | PRODUCT/YEAR/NAME ...) [--company ID] [--profile FILE]
/// [--json]`: makes documents from templates in a folder, with no display and nobody to ask; `args` is what
/// stands behind "create".
///
///     --to FOLDER         native or with a drive; made when it isn't there. No file in it is ever written
///     over
///     --selection FILE    a selection document as a partner's session hands it over
///     PRODUCT/YEAR/NAME   product key, edition and the document's name in the catalogue; NAME may hold "/",
///     and
///                         `*` is all documents of the product
///     --company ID        the company that the add-ins are told
///     --profile FILE      the client's data for the add-in, which puts it into the documents: lines
///     "key=value",
///                         ClientName, PeriodEnd, EngagementType, PreparedBy and ReviewedBy for the samples
///
/// `out` gets a line per document as it is made, or with --json one object at the end; `err` a last line that
/// sums up. 0 when all were made, 1 when one failed (the others are made all the same) or nothing could
/// begin, with one line on `err`, 2 for wrong usage. Works with this machine's files, registry and office.
int runCreateCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

/// The same through the ports that are installed.
int createDocuments(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
