#pragma once

namespace zorvo {

class TreeWindow;

/// Turns the selected nodes into the selection document, in the order of the tree: `<Documents>` with a
/// `<Document>` per document node whose product the machine still has. Then documents are made from it or, in
/// a partner's session, the window unloads and hands it over. A failure is reported; the text then stays
/// unfinished and goes nowhere.
void ProcessOK(TreeWindow& form);

} // namespace zorvo
