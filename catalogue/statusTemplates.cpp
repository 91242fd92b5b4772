#include "catalogue/statusTemplates.h"

#include "base/text.h"

#include <array>
#include <vector>

namespace zorvo {

namespace {

constexpr std::string_view kDocumentStart =
    R"(<?xml version="1.0" encoding="utf-8" ?><ZorvoMSOfficeProductsStatus>)";
constexpr std::string_view kGroupStart =
    R"(<ProductGroup><Title><![CDATA[?Title?]]></Title><TitleShort><![CDATA[?TitleShort?]]></TitleShort>)"
    R"(<IconLarge><![CDATA[?IconLarge?]]></IconLarge><IconSmall><![CDATA[?IconSmall?]]></IconSmall>)";
constexpr std::string_view kProductStart =
    R"(<ProductRegistryNode Version="?yyyy?" Installed="?Installed?" SWDType="?SWDType?")"
    R"( LatestFlag="?latest?" numProdClassID="?numProdClassID?"><ProductKey><![CDATA[?Node?]]></ProductKey>)";
constexpr std::string_view kProductName = "<ProductName><![CDATA[?ProductName?]]></ProductName>";
constexpr std::string_view kTemplatePath = "<TemplatePath><![CDATA[?TemplatePath?]]></TemplatePath>";
constexpr std::string_view kProductEnd = "</ProductRegistryNode>";
constexpr std::string_view kGroupEnd = "</ProductGroup>";
constexpr std::string_view kDocumentEnd = "</ZorvoMSOfficeProductsStatus>";

/// In the order of replacement.
constexpr std::array<std::string_view, 8> kPlaceholders = {
    "?yyyy?", "?Installed?",   "?SWDType?", "?TemplatePath?",
    "?Node?", "?ProductName?", "?latest?",  "?numProdClassID?",
};
using Fillings = std::array<std::string_view, kPlaceholders.size()>;

const std::string& productTemplate()
{
    static const std::string joined =
        std::string(kProductStart).append(kProductName).append(kTemplatePath).append(kProductEnd);
    return joined;
}

/// The product template cut at its placeholders, so that a node is made by appending.
struct Piece {
    std::string_view sText;   // what stands in front of the placeholder
    std::size_t nFilling = 0; // index into the fillings
};
struct CutTemplate {
    std::vector<Piece> pieces;
    std::string_view sTail;
};

CutTemplate cutProductTemplate()
{
    CutTemplate cut;
    cut.sTail = productTemplate();
    for (auto nStart = cut.sTail.find('?'); nStart != std::string_view::npos; nStart = cut.sTail.find('?')) {
        for (std::size_t n = 0; n < kPlaceholders.size(); ++n) {
            if (!cut.sTail.substr(nStart).starts_with(kPlaceholders[n]))
                continue;
            cut.pieces.push_back({cut.sTail.substr(0, nStart), n});
            cut.sTail.remove_prefix(nStart + kPlaceholders[n].size());
            break;
        }
    }
    return cut;
}

/// A placeholder lies between question marks and the template has none left once it is filled: without a
/// question mark in a value no replacement can touch it.
bool mayHoldPlaceholder(const Fillings& fillings)
{
    for (const std::string_view sFilling : fillings) {
        if (sFilling.find('?') != std::string_view::npos)
            return true;
    }
    return false;
}

std::string fillByAppending(const Fillings& fillings)
{
    static const CutTemplate cut = cutProductTemplate();
    std::size_t nSize = productTemplate().size();
    for (const std::string_view sFilling : fillings)
        nSize += sFilling.size();
    std::string sNode;
    sNode.reserve(nSize);
    for (const Piece& piece : cut.pieces)
        sNode.append(piece.sText).append(fillings[piece.nFilling]);
    return sNode.append(cut.sTail);
}

std::string fillOneAfterTheOther(const Fillings& fillings)
{
    std::string sNode = productTemplate();
    for (std::size_t n = 0; n < kPlaceholders.size(); ++n)
        sNode = replaceAllNoCase(sNode, kPlaceholders[n], fillings[n]);
    return sNode;
}

std::string_view booleanText(bool bValue)
{
    return bValue ? "True" : "False";
}

} // namespace

std::string_view statusDocumentStart()
{
    return kDocumentStart;
}

std::string_view statusDocumentEnd()
{
    return kDocumentEnd;
}

std::string FillProductGroup(const std::string& sTitle, const std::string& sTitleShort,
                             const std::string& sIconLarge, const std::string& sIconSmall)
{
    std::string sGroup = replaceAll(kGroupStart, "?Title?", sTitle);
    sGroup = replaceAll(sGroup, "?TitleShort?", sTitleShort);
    sGroup = replaceAll(sGroup, "?IconLarge?", sIconLarge);
    return replaceAll(sGroup, "?IconSmall?", sIconSmall);
}

std::string_view productGroupEnd()
{
    return kGroupEnd;
}

std::string BuildProductNode(const ProductNodeValues& values)
{
    const Fillings fillings = {
        values.sYear,
        booleanText(values.bInstalled),
        booleanText(containsNoCase(values.sProductKey, "Sablewood")),
        values.sTemplatePath,
        values.sProductKey,
        values.sName,
        booleanText(values.bLatest),
        values.sClassID,
    };
    return mayHoldPlaceholder(fillings) ? fillOneAfterTheOther(fillings) : fillByAppending(fillings);
}

} // namespace zorvo
