#pragma once

#include "base/XmlDocument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// The caption document `xmlCaptions.xml`: a company's wording, web addresses and rebranding pairs. There are
/// no default texts: a caption that can't be read is the empty text.
namespace zorvo {

struct RebrandPair {
    std::string sFind;
    std::string sReplace;
};

/// The numbered pairs of a document, up to the first gap.
struct RebrandPairs {
    std::vector<RebrandPair> pairs;
    /// The list goes on past the largest 16-bit number: whoever counts through it fails with an overflow.
    bool bPastLastNumber = false;
};

/// The one caption document of the process and what was worked out from it. A test makes it anew with
/// `captionState() = CaptionState()`.
class CaptionState {
public:
    /// The document, or null before the first load and after a release.
    const XmlDocument* document() const { return document_ ? &*document_ : nullptr; }
    /// Replaces the document, and with it everything that was worked out from the one before.
    void setDocument(XmlDocument document);

    /// The first element `Captions/Rebrand/<sName>`, or null.
    XmlNode rebrandElement(const std::string& sName);
    /// All pairs as `bGetRebrandPair` gives them, read once per document.
    const RebrandPairs& rebrandPairs();

private:
    std::optional<XmlDocument> document_;
    std::optional<std::unordered_map<std::string, XmlNode>> rebrandElements_;
    std::optional<RebrandPairs> pairs_;
};

CaptionState& captionState();

/// Loads the document from the file that branding chooses. A file that is missing, can't be read or isn't
/// well formed leaves an empty document; any other failure is reported.
void xmlCaptionLoader();
/// A document is there, be it an empty one.
bool bCaptionsLoaded();
void ReleaseCaptions();

// Each gives the caption's text without blanks around it, empty when there is none or no document.
std::string sGetDialogTitle();
std::string sGetTreeLabelBoth();
std::string sGetTreeLabelQbkOnly();
std::string sGetTreeLabelTsrOnly();
std::string sGetCategoryDescrProduct();
std::string sGetCategoryDescrCategeory();
std::string sGetCategoryDescrDocument();
std::string sGetAboutWarning();
std::string sGetWebContactUs();
std::string sGetWebOnTheWeb1();
std::string sGetWebOnTheWeb2();
std::string sGetWebOnTheWeb3();
std::string sGetWebQuickTour();
std::string sGetWebMyAccount();

/// Reads the pair with number `N`. False when there is none: then the two texts are as far as they got. An
/// empty replacement is a pair, a missing one or an empty find text isn't.
bool bGetRebrandPair(std::int16_t N, std::string& sFind, std::string& sReplace);

} // namespace zorvo
