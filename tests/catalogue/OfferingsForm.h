#pragma once

#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/OfferingsHost.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/forms/frmAllProducts.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/RecordingPageEngine.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>

namespace zorvo {

/// The form of all offerings over a tree of one group, with a recorded page engine and help viewer.
class OfferingsForm : public CatalogueTest {
protected:
    OfferingsForm()
    {
        platform().pages = engine;
        platform().help = help;
        XmlDocument captions;
        captions.loadXML("<Captions><Web><OnTheWeb2>https://www.zorvo.example/</OnTheWeb2></Web></Captions>");
        captionState().setDocument(std::move(captions));
        offeringsHost().loadTree = [this](TreeNodes& nodes) {
            nodes.add("", "Tessora", "Tessora", -1, 1);
            for (const std::string& sKey : keys)
                nodes.add("Tessora", sKey, sKey, -1, 1);
        };
    }
    ~OfferingsForm() override
    {
        goMousePointer().ClearMousePointer();
        offeringsHost() = OfferingsHost();
        captionState() = CaptionState();
        ReleaseHTMLHelp();
    }

    /// Loads and shows; the first page is asked for.
    frmAllProducts& open()
    {
        form = std::make_unique<frmAllProducts>();
        form->showModeless();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 20000));
        return *form;
    }
    /// The same, with the first page there.
    void openToFirstPage()
    {
        open();
        finish(engine->navigated.back());
        forget();
    }
    void forget()
    {
        engine->navigated.clear();
        engine->told.clear();
        fakes.launcher->opened.clear();
    }
    void finish(const std::string& sAddress) const { engine->listener->pageFinished(sAddress); }
    void select(const std::string& sKey)
    {
        TreeNodes& nodes = tree().nodes();
        nodes.setSelected(*nodes.find(sKey), true);
    }
    TreeView& tree() const { return *form->findChild<TreeView*>(QStringLiteral("ssTreeZorvoBrendle")); }
    QWidget& page() const { return *form->findChild<QWidget*>(QStringLiteral("webZorvoBrendle")); }
    QCheckBox& check(const char* sName) const
    {
        return *form->findChild<QCheckBox*>(QString::fromLatin1(sName));
    }
    QPushButton& button(const char* sName) const
    {
        return *form->findChild<QPushButton*>(QString::fromLatin1(sName));
    }
    std::vector<std::string> inBrowser() const
    {
        std::vector<std::string> targets;
        for (const auto& opened : fakes.launcher->opened)
            targets.push_back(opened.sTarget);
        return targets;
    }

    std::vector<std::string> keys = {"AUD`301", "REV`302", "CON`123",  "ZER`0",
                                     "NEG`-5",  "TXT`abc", "BIG`40000"};
    std::shared_ptr<RecordingPageEngine> engine = std::make_shared<RecordingPageEngine>();
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    RecordingMessages messages;
    std::unique_ptr<frmAllProducts> form;
};

} // namespace zorvo
