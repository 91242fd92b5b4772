#pragma once

namespace zorvo {

/// Makes `ReportError` write the failure in the log and show it in a box. A program calls it once at its
/// start.
///
/// A report that comes up while another one shows its box is dropped whole. Failures of the log and of the
/// box are ignored.
void installErrorReporter();

} // namespace zorvo
