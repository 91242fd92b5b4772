#include "search/forms/SWDSearchHelpText.h"

#include "window/MnemonicLabel.h"
#include "window/spacing.h"

#include <QVBoxLayout>

namespace zorvo {

SWDSearchHelpText::SWDSearchHelpText()
    : Form("SWDSearchHelpText")
    , Label1_(
          new MnemonicLabel("Label1",
                            QStringLiteral("To search the example disclosures in Zorvo's Sablewood Library:\n"
                                           "- Enter keyword(s) without quotes.\n"
                                           "- Keep in mind that examples containing all of the keyword(s)\n"
                                           "entered, in no strict order, will be returned (e.g., entering\n"
                                           "Current Assets will return all examples containing the phrase\n"
                                           "'Current Assets' as well as all examples containing both of the\n"
                                           "words Current and Assets).\n"
                                           "- Use the ? wildcard character to match any single character\n"
                                           "(e.g., entering gr?y will return examples containing the word\n"
                                           "gray or grey).\n"
                                           "- Use the * wildcard character to match any number of\n"
                                           "characters (e.g., account* will return examples containing\n"
                                           "the word account, accounts, or accounting)."),
                            this))
{
    setCaption(QStringLiteral("Search Rules"));
    auto* layout = new QVBoxLayout(this);
    spaceForm(*layout);
    layout->addWidget(Label1_);
}

} // namespace zorvo
