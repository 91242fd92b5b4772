#include "branding/xmlCaptionLoaderManager.h"

#include "base/failure.h"
#include "base/text.h"
#include "branding/brandedFiles.h"
#include "platform/xmlFiles.h"

#include <limits>
#include <utility>

namespace zorvo {

namespace {

constexpr const char* kCaptionFile = "xmlCaptions.xml";

/// The trimmed text of the one path; whatever fails gives the empty text.
std::string sGetCaption(const char* sPath)
{
    const XmlDocument* document = captionState().document();
    if (!document)
        return {};
    const XmlNode node = document->selectSingleNode(sPath);
    return node ? trimBlanks(node.text()) : std::string();
}

RebrandPairs readRebrandPairs()
{
    RebrandPairs read;
    constexpr std::int16_t kLastNumber = std::numeric_limits<std::int16_t>::max();
    RebrandPair pair;
    for (std::int16_t n = 1; bGetRebrandPair(n, pair.sFind, pair.sReplace); ++n) {
        read.pairs.push_back(pair);
        if (n == kLastNumber) {
            read.bPastLastNumber = true;
            break;
        }
    }
    return read;
}

} // namespace

void CaptionState::setDocument(XmlDocument document)
{
    *this = CaptionState();
    document_ = std::move(document);
}

XmlNode CaptionState::rebrandElement(const std::string& sName)
{
    if (!document_)
        return {};
    if (!rebrandElements_) {
        // One look at the document for all pairs: a look per number would make long lists quadratic. Names in
        // a namespace are no match for a plain path.
        rebrandElements_.emplace();
        for (const XmlNode& node : document_->selectNodes("Captions/Rebrand/*[namespace-uri()='']"))
            rebrandElements_->try_emplace(node.baseName(), node);
    }
    const auto found = rebrandElements_->find(sName);
    return found == rebrandElements_->end() ? XmlNode() : found->second;
}

const RebrandPairs& CaptionState::rebrandPairs()
{
    if (!pairs_)
        pairs_ = readRebrandPairs();
    return *pairs_;
}

CaptionState& captionState()
{
    static CaptionState state;
    return state;
}

void xmlCaptionLoader()
{
    captionState().setDocument(XmlDocument());
    try {
        captionState().setDocument(loadXmlFile(GetBrandedFilePath(kCaptionFile)));
    } catch (const RunTimeError& error) {
        recordFailure(error);
        ReportError("xmlCaptionLoaderManager.xmlCaptionLoader");
    }
}

bool bCaptionsLoaded()
{
    return captionState().document() != nullptr;
}

void ReleaseCaptions()
{
    captionState() = CaptionState();
}

std::string sGetDialogTitle()
{
    return sGetCaption("Captions/TemplateTreeCaptions/DialogTitle");
}

std::string sGetTreeLabelBoth()
{
    return sGetCaption("Captions/TemplateTreeCaptions/TreeLabel_both");
}

std::string sGetTreeLabelQbkOnly()
{
    return sGetCaption("Captions/TemplateTreeCaptions/TreeLabel_qbkonly");
}

std::string sGetTreeLabelTsrOnly()
{
    return sGetCaption("Captions/TemplateTreeCaptions/TreeLabel_tsronly");
}

std::string sGetCategoryDescrProduct()
{
    return sGetCaption("Captions/TemplateTreeCaptions/CategoryDescrProduct");
}

std::string sGetCategoryDescrCategeory()
{
    // The file format spells it so.
    return sGetCaption("Captions/TemplateTreeCaptions/CategoryDescrCategeory");
}

std::string sGetCategoryDescrDocument()
{
    return sGetCaption("Captions/TemplateTreeCaptions/CategoryDescrDocument");
}

std::string sGetAboutWarning()
{
    return sGetCaption("Captions/AboutDialog/Warning");
}

std::string sGetWebContactUs()
{
    return sGetCaption("Captions/Web/ContactUs");
}

std::string sGetWebOnTheWeb1()
{
    return sGetCaption("Captions/Web/OnTheWeb1");
}

std::string sGetWebOnTheWeb2()
{
    return sGetCaption("Captions/Web/OnTheWeb2");
}

std::string sGetWebOnTheWeb3()
{
    return sGetCaption("Captions/Web/OnTheWeb3");
}

std::string sGetWebQuickTour()
{
    return sGetCaption("Captions/Web/QuickTour");
}

std::string sGetWebMyAccount()
{
    return sGetCaption("Captions/Web/MyAccount");
}

bool bGetRebrandPair(std::int16_t N, std::string& sFind, std::string& sReplace)
{
    const std::string sNumber = std::to_string(N);
    const XmlNode find = captionState().rebrandElement("Find" + sNumber);
    if (!find)
        return false;
    sFind = trimBlanks(find.text());
    const XmlNode replace = captionState().rebrandElement("Replace" + sNumber);
    if (!replace)
        return false;
    sReplace = trimBlanks(replace.text());
    return !sFind.empty();
}

} // namespace zorvo
