// How fast a text turns into a company's wording, against the rule carried out pass by pass, and whether the
// two agree on a great many random texts.
//
//   bench_rebrand [number of random texts]      one million by default
//
// Exit code 1 when they differ or when the fast form isn't 20 times as fast.

#include "branding/companyIdentity.h"
#include "branding/sRebrand.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "tests/branding/literalRebrand.h"
#include "tests/branding/randomTexts.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace zorvo {

namespace {

constexpr double kWantedFactor = 20;
constexpr std::size_t kDefaultTexts = 1'000'000;
constexpr std::size_t kTextsPerDocument = 50;

/// Captions, titles, tips and messages as the forms have them.
const std::vector<std::string>& ownTexts()
{
    // NOLINTBEGIN(bugprone-suspicious-missing-comma): long texts stand on several lines
    static const std::vector<std::string> texts = {
        "Zorvo's Brendle",
        "Users of these products are encouraged to contact Zorvo to offer any comments or suggestions to "
        "improve the "
        "usefulness of future editions.",
        "To create a new Brendle document, select one or more documents from the list, and then click New "
        "Document. "
        "Hint: To pick more than one document hold down the Ctrl key while you click with the mouse.",
        "Click the following link to ",
        "Contact Us",
        "Description",
        "Instructions",
        "All of Zorvo's Brendle &Offerings...",
        "View &All Zorvo's Brendle...",
        "Search Zorvo's Sablewood Library",
        "Zorvo's Brendle &Help",
        "Zorvo Brendle Help.",
        "Access the Zorvo Web site for FAQ's",
        "&My Zorvo Account",
        "Access Zorvonet Support.",
        "Zorvo Quick-&Tour",
        "&About Zorvo's Brendle...",
        "&Show the 'Zorvo Menu' for Non-Zorvo Documents",
        "Display the Zorvo menu when non-Zorvo documents are active in Excel or Word.",
        "Zorvo's Brendle Options",
        "View Settings",
        "View &current Brendle in the list",
        "View all Brendle in the list including &prior versions",
        "Program Settings",
        "Di&splay Zorvo's Brendle splash screen when program starts",
        "Show the Zorvo &menu in Excel or Word for non-Zorvo documents",
        "Click the Set Location button to set your preferred location of reference material.",
        "Set &Location",
        "OK",
        "Cancel",
        "&Help",
        "Zorvo's Brendle is creating the document below",
        "There is an error retrieving the branding picture:\r\n\r\nC:\\Program "
        "Files\\Zorvo\\Images\\Brendle.ico\r\n\r\n"
        "Please first repair or then uninstall to re-install Zorvo's Brendle to fix.\r\n\r\nIf this problem "
        "persists "
        "please contact Zorvo Support at (800) 555-0142.",
        "Zorvo's Brendle:  TemplateTree.ZorvoQuickTour",
        "Error 5 - Invalid procedure call or argument",
        "There is no error number and description available.",
        "Please select the Zorvo's Tessora Engagement you wish to add:",
        "Zorvo's Brendle Offerings",
        "Select a Zorvo &Sablewood Library:",
        "To search the example disclosures in Zorvo's Sablewood Library:",
        "ZorvoSysSupport.txt",
        "New Document",
        "E&xit",
    };
    // NOLINTEND(bugprone-suspicious-missing-comma)
    return texts;
}

using Rebrand = std::string (*)(const std::string&, bool);

/// Nanoseconds for a text: the best of several rounds, so that a busy machine doesn't count.
double measure(Rebrand rebrand, int nRounds, int nRepeats)
{
    double best = 0;
    std::size_t nBytes = 0;
    for (int round = 0; round < nRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < nRepeats; ++i) {
            for (const std::string& sText : ownTexts())
                nBytes += rebrand(sText, (i & 1) != 0).size();
        }
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
        const double perText = taken.count() / nRepeats / static_cast<double>(ownTexts().size());
        best = round == 0 ? perText : std::min(best, perText);
    }
    return nBytes == 0 ? 0 : best;
}

void useCaptions(const std::string& sXml)
{
    XmlDocument document;
    document.loadXML(sXml);
    captionState().setDocument(document);
}

bool compareSpeed(const char* sTitle)
{
    const double fast = measure(sRebrand, 7, 400);
    const double literal = measure(literalRebrand, 7, 20);
    std::printf("%-32s %8.0f ns a text, pass by pass %8.0f ns: %.0f times as fast\n", sTitle, fast, literal,
                literal / fast);
    return literal >= kWantedFactor * fast;
}

std::string pairsOfACompany()
{
    return "<Captions><Rebrand>"
           "<Find1>Zorvonet</Find1><Replace1>ABC Online</Replace1>"
           "<Find2>(800) 555-0142</Find2><Replace2>(800) 555-0199</Replace2>"
           "<Find3>Sablewood</Find3><Replace3>Northgate</Replace3>"
           "<Find4>My Zorvo</Find4><Replace4>My ABC</Replace4>"
           "<Find5>Quick-&amp;Tour</Find5><Replace5>&amp;Tour</Replace5>"
           "</Rebrand></Captions>";
}

bool compareResults(std::size_t nTexts)
{
    RandomTexts random(19991231);
    std::size_t nChanged = 0;
    for (std::size_t i = 0; i < nTexts; ++i) {
        if (i % kTextsPerDocument == 0) {
            StoreCompanyID(random.company());
            useCaptions(random.captionDocument());
        }
        const std::string sText = random.text();
        const bool bEscape = random.coin();
        const std::string sResult = sRebrand(sText, bEscape);
        if (sResult != literalRebrand(sText, bEscape)) {
            std::printf("Text %zu differs for company %s:\n%s\n", i, GetCompanyID().c_str(), sText.c_str());
            return false;
        }
        nChanged += sResult == sText ? 0 : 1;
    }
    std::printf("%zu random texts come out equal; %zu of them change\n", nTexts, nChanged);
    return true;
}

bool run(std::size_t nTexts)
{
    StoreCompanyID("ABC");
    useCaptions("<Captions/>");
    const bool bPlain = compareSpeed("No pairs");
    useCaptions(pairsOfACompany());
    const bool bPaired = compareSpeed("Five pairs");
    return compareResults(nTexts) && bPlain && bPaired;
}

} // namespace

} // namespace zorvo

int main(int argc, char** argv)
{
    const std::size_t nTexts = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : zorvo::kDefaultTexts;
    return zorvo::run(nTexts) ? EXIT_SUCCESS : EXIT_FAILURE;
}
