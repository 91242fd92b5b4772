#include "creation/forms/frmProgressForm.h"

#include "branding/companyIdentity.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/creationState.h"
#include "creation/forms/QtCreationForms.h"
#include "tests/creation/CreationTest.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/support/pictureBytes.h"
#include "window/MainFormGate.h"
#include "window/MnemonicLabel.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace zorvo {
namespace {

constexpr int kPatienceMs = 10000;

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class frmProgressFormTest : public CreationTest {
protected:
    frmProgressFormTest()
    {
        ReleaseHTMLHelp();
        platform().help = help;
        for (const char* name : kPictures)
            fakes.files->addFile(std::string("C:\\Zorvo\\Images\\") + name, pictureBytes(16));
        setDocuments({"C:\\T\\Letter.dot", "C:\\T\\Budget.xlt"});
    }
    ~frmProgressFormTest() override { ReleaseHTMLHelp(); }

    void setDocuments(const std::vector<std::string>& templates)
    {
        std::string sDocuments;
        for (const std::string& sTemplate : templates)
            sDocuments += "<Document><Title>Title</Title><FileName>" + sTemplate +
                          "</FileName><Type>TSR</Type><Year>2007</Year></Document>";
        batch.objSelectionDoc.loadXML("<Documents>" + sDocuments + "</Documents>");
        batch.objDocumentNodes = batch.objSelectionDoc.selectNodes("Documents/Document");
        batch.nDocumentCount = static_cast<std::int32_t>(templates.size());
        batch.sFolder = "C:\\Out\\";
    }

    template <typename Control>
    Control& control(const char* name)
    {
        return *form->findChild<Control*>(QString::fromLatin1(name));
    }
    QPushButton& button(const char* name) { return control<QPushButton>(name); }
    TreeView& list() { return control<TreeView>("TGenFileList"); }
    std::string status() { return control<QLabel>("sbProgress").text().toStdString(); }

    /// Shows the form modally, acts when its work is done, and unloads it.
    void show(const std::function<void()>& act)
    {
        frmProgressForm shown;
        form = &shown;
        shown.setBatch(batch);
        if (beforeShow)
            beforeShow();
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            // Pending events are served in the middle of the work, too.
            const bool bBegun = list().nodes().count() > 0 || !messages.reports.empty();
            if (!bBegun || goMousePointer().MousePointer() != 0)
                return;
            watch.stop();
            act();
            shown.unload();
        });
        watch.start(1);
        QTimer::singleShot(kPatienceMs, &shown, [&] {
            ADD_FAILURE() << "the form did not get ready";
            shown.unload();
        });
        shown.showModal();
        shown.unload();
        form = nullptr;
    }

    static constexpr const char* kPictures[] = {"Quillbook16.ico",    "Tessora16.ico",      "Product16.ico",
                                                "Open Chapter16.ico", "Default Page16.ico", "Excel16.ico",
                                                "Word16.ico",         "Brendle.ico"};
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    DocumentBatch batch;
    frmProgressForm* form = nullptr;
    std::function<void()> beforeShow;
};

TEST_F(frmProgressFormTest, CarriesItsCaptionAndThoseOfItsControls)
{
    show([this] {
        EXPECT_EQ(form->objectName(), QStringLiteral("frmProgressForm"));
        EXPECT_EQ(form->caption(), QStringLiteral("Documents - Finished"));
        EXPECT_EQ(control<MnemonicLabel>("lblFolderTitle").caption(), QStringLiteral("Document &Folder"));
        EXPECT_EQ(control<MnemonicLabel>("lblDocCreatedTitle").caption(),
                  QStringLiteral("&Documents Created"));
        EXPECT_EQ(control<QGroupBox>("fraInstructions").title(), QStringLiteral("Instructions"));
        const auto lines = form->findChildren<MnemonicLabel*>(QStringLiteral("lblInst"));
        ASSERT_EQ(lines.size(), 2);
        EXPECT_EQ(
            lines[0]->caption(),
            QStringLiteral("1. To open documents, select one or more documents below, and click Open."));
        EXPECT_EQ(lines[1]->caption(), QStringLiteral("2. To create more documents, click Finished."));
        EXPECT_EQ(button("cmdOpen").text(), QStringLiteral("&Open"));
        EXPECT_EQ(button("cmdFinished").text(), QStringLiteral("&Finished"));
        EXPECT_EQ(button("cmdHelp").text(), QStringLiteral("&Help"));
        EXPECT_EQ(list().accessibleName(), QStringLiteral("Documents Created"));
    });
}

TEST_F(frmProgressFormTest, ShowsTheFolderInTheNativeForm)
{
    show([this] { EXPECT_EQ(control<QLabel>("lblFolderPath").text(), QStringLiteral("/fake/drive_c/Out")); });
}

TEST_F(frmProgressFormTest, MakesTheBatchAsSoonAsItIsUpAndListsIt)
{
    show([this] {
        ASSERT_EQ(list().nodes().count(), 2);
        EXPECT_EQ(list().nodes().item(1).text(), "LETTER.DOC");
        EXPECT_EQ(list().nodes().item(1).image(), 8);
        EXPECT_EQ(list().nodes().item(1).key(), "");
        EXPECT_EQ(list().nodes().item(2).text(), "BUDGET.XLS");
        EXPECT_EQ(list().nodes().item(2).image(), 7);
        EXPECT_EQ(status(), " Multiple documents were successfully created.");
    });
}

TEST_F(frmProgressFormTest, IsReadyForUseOnceAllIsMade)
{
    show([this] {
        EXPECT_FALSE(control<QProgressBar>("ProgressBar1").isVisible());
        EXPECT_TRUE(control<QGroupBox>("fraInstructions").isEnabled());
        for (const MnemonicLabel* line : form->findChildren<MnemonicLabel*>(QStringLiteral("lblInst")))
            EXPECT_TRUE(line->isEnabled());
        for (const char* name : {"cmdOpen", "cmdFinished", "cmdHelp"}) {
            EXPECT_TRUE(button(name).isEnabled());
            EXPECT_TRUE(button(name).isVisible());
        }
        EXPECT_TRUE(list().isEnabled());
        EXPECT_TRUE(button("cmdFinished").hasFocus());
        EXPECT_EQ(goMousePointer().MousePointer(), 0);
    });
}

TEST_F(frmProgressFormTest, NothingCanBePressedWhileItWorks)
{
    setDocuments({"C:\\T\\Letter.dot", "C:\\T\\Gone.dot"});
    bool bLooked = false;
    messages.whileBoxIsUp = [&] {
        bLooked = true;
        const auto& bar = control<QProgressBar>("ProgressBar1");
        EXPECT_TRUE(bar.isVisible());
        EXPECT_EQ(bar.maximum(), 3);
        EXPECT_EQ(bar.value(), 2);
        EXPECT_EQ(bar.text(), QStringLiteral("1 of 2"));
        EXPECT_EQ(status(), " Now saving Title...");
        EXPECT_FALSE(control<QGroupBox>("fraInstructions").isEnabled());
        for (const char* name : {"cmdOpen", "cmdFinished", "cmdHelp"}) {
            EXPECT_FALSE(button(name).isEnabled());
            EXPECT_FALSE(button(name).isVisible());
        }
        EXPECT_FALSE(list().isEnabled());
        EXPECT_EQ(goMousePointer().MousePointer(), 11);
    };
    show([] {});
    EXPECT_TRUE(bLooked);
}

TEST_F(frmProgressFormTest, LoadsItsPicturesAndItsCompanysWordingUnderABusyPointer)
{
    class Gate : public MainFormGate {
    public:
        bool isEnabled() override { return bEnabled_; }
        void setEnabled(bool bEnabled) override
        {
            bEnabled_ = bEnabled;
            bEnabled ? released() : locked();
        }
        std::function<void()> locked;
        std::function<void()> released;

    private:
        bool bEnabled_ = true;
    } gate;
    fakes.files->addFile(
        "C:\\Zorvo\\xmlCaptions.xml",
        "<Captions><Rebrand><Find1>Documents</Find1><Replace1>Papers</Replace1></Rebrand></Captions>");
    xmlCaptionLoader();
    StoreCompanyID("ABC");
    frmProgressForm loading;
    const auto* images = &loading.findChild<TreeView*>(QStringLiteral("TGenFileList"))->nodes().images();
    int nImagesWhenLocked = -1;
    int nImagesWhenReleased = -1;
    QString captionWhenReleased;
    gate.locked = [&] { nImagesWhenLocked = images->count(); };
    gate.released = [&] {
        nImagesWhenReleased = images->count();
        captionWhenReleased = loading.caption();
    };
    mainFormGate() = &gate;
    loading.load();
    mainFormGate() = nullptr;
    EXPECT_EQ(nImagesWhenLocked, 0);
    EXPECT_EQ(nImagesWhenReleased, 8);
    EXPECT_EQ(captionWhenReleased, QStringLiteral("Papers - Finished"));
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    loading.unload();
}

TEST_F(frmProgressFormTest, ServesPendingEventsOnceTheBarHasGoneAndBeforeTheButtonsCome)
{
    setDocuments({"C:\\T\\Letter.dot", "C:\\T\\Gone.dot"});
    bool bServed = false;
    // The version's question, which serves events too, has been asked for the first document.
    messages.whileBoxIsUp = [&] {
        QTimer::singleShot(0, form, [&] {
            bServed = true;
            EXPECT_FALSE(control<QProgressBar>("ProgressBar1").isVisible());
            EXPECT_FALSE(control<QGroupBox>("fraInstructions").isEnabled());
            EXPECT_FALSE(button("cmdFinished").isVisible());
            EXPECT_FALSE(list().isEnabled());
        });
    };
    show([] {});
    EXPECT_TRUE(bServed);
}

TEST_F(frmProgressFormTest, PaintsBarStatusAndListForEachDocumentThoughNoEventsAreServed)
{
    class Painted : public QObject {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Paint && note)
                note(watched);
            return false;
        }
        std::function<void(QObject*)> note;
    } painted;
    setDocuments({"C:\\T\\Letter.dot", "C:\\T\\Letter.dot", "C:\\T\\Budget.xlt"});
    std::vector<int> bars;
    std::vector<int> entries;
    std::vector<std::string> texts;
    beforeShow = [&] {
        painted.note = [&](QObject* watched) {
            if (watched == &control<QProgressBar>("ProgressBar1"))
                bars.push_back(control<QProgressBar>("ProgressBar1").value());
            else if (watched == list().viewport())
                entries.push_back(list().nodes().count());
            else
                texts.push_back(status());
        };
        for (QWidget* each : std::initializer_list<QWidget*>{
                 &control<QProgressBar>("ProgressBar1"), list().viewport(), &control<QLabel>("sbProgress")})
            each->installEventFilter(&painted);
    };
    show([&] { painted.note = {}; });
    for (const int nValue : {2, 3, 4})
        EXPECT_THAT(bars, Contains(nValue));
    for (const int nEntries : {1, 2, 3})
        EXPECT_THAT(entries, Contains(nEntries));
    EXPECT_THAT(texts, Contains(" Now saving Title...").Times(testing::Ge(3)));
}

TEST_F(frmProgressFormTest, KeepsTheNewestEntryInSight)
{
    setDocuments(std::vector<std::string>(60, "C:\\T\\Letter.dot"));
    show([this] {
        const QModelIndex last = list().model()->index(59, 0);
        EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(last).center()));
    });
}

TEST_F(frmProgressFormTest, ComingToTheFrontWhileItWorksStartsNoSecondBatch)
{
    setDocuments({"C:\\T\\Gone.dot", "C:\\T\\Letter.dot"});
    messages.whileBoxIsUp = [&] {
        QWidget box;
        box.setAttribute(Qt::WA_ShowWithoutActivating);
        box.show();
        QApplication::setActiveWindow(&box);
        ASSERT_FALSE(form->isActiveWindow());
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(form->isActiveWindow());
    };
    show([this] { EXPECT_EQ(list().nodes().count(), 2); });
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(frmProgressFormTest, CannotBeClosedWhileItWorks)
{
    setDocuments({"C:\\T\\Gone.dot", "C:\\T\\Letter.dot"});
    messages.whileBoxIsUp = [&] {
        EXPECT_FALSE(form->close());
        EXPECT_TRUE(form->isVisible());
    };
    show([this] {
        EXPECT_EQ(list().nodes().count(), 2);
        EXPECT_TRUE(form->close());
        EXPECT_FALSE(form->isFormLoaded());
    });
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(frmProgressFormTest, ComingToTheFrontAgainMakesNothingAndKeepsTheFocus)
{
    show([this] {
        list().setFocus();
        const auto nCalls = office->calls().size();
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        EXPECT_EQ(office->calls().size(), nCalls);
        EXPECT_TRUE(list().isEnabled());
        EXPECT_TRUE(list().hasFocus());
    });
}

TEST_F(frmProgressFormTest, FillsItsPicturesFromOneToEight)
{
    show([this] {
        const ImageList& images = list().nodes().images();
        ASSERT_EQ(images.count(), 8);
        EXPECT_EQ(images.indexOf("Quillbook16.ico"), 1);
        EXPECT_EQ(images.indexOf("Tessora16.ico"), 2);
        EXPECT_EQ(images.indexOf("Product16.ico"), 3);
        EXPECT_EQ(images.item(4).picture, nullptr);
        EXPECT_EQ(images.indexOf("Open Chapter16.ico"), 5);
        EXPECT_EQ(images.indexOf("Default Page16.ico"), 6);
        EXPECT_EQ(images.indexOf("Excel16.ico"), 7);
        EXPECT_EQ(images.indexOf("Word16.ico"), 8);
    });
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(frmProgressFormTest, OpensTheSelectedEntries)
{
    show([this] {
        TreeNodes& nodes = list().nodes();
        nodes.setSelected(nodes.item(1), true);
        nodes.setSelected(nodes.item(2), true);
        button("cmdOpen").click();
    });
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Open \"C:\\Out\\LETTER.DOC\""));
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Open \"C:\\Out\\BUDGET.XLS\""));
}

TEST_F(frmProgressFormTest, OpensThemInTheOrderOfTheListHoweverTheyWereSelected)
{
    show([this] {
        TreeNodes& nodes = list().nodes();
        nodes.setSelected(nodes.item(2), true);
        nodes.setSelected(nodes.item(1), true);
        button("cmdOpen").click();
    });
    const auto calls = office->calls();
    const auto word = std::find(calls.begin(), calls.end(), "Word.Documents.Open \"C:\\Out\\LETTER.DOC\"");
    ASSERT_NE(word, calls.end());
    EXPECT_NE(std::find(word, calls.end(), "Excel.Workbooks.Open \"C:\\Out\\BUDGET.XLS\""), calls.end());
}

TEST_F(frmProgressFormTest, ADoubleClickOpensTheEntry)
{
    show([this] {
        const QModelIndex second = list().model()->index(1, 0);
        const QPoint place = list().visualRect(second).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place);
    });
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Open \"C:\\Out\\BUDGET.XLS\""));
    EXPECT_THAT(office->calls(), testing::Not(Contains("Word.Documents.Open \"C:\\Out\\LETTER.DOC\"")));
}

TEST_F(frmProgressFormTest, TellsOfASelectedEntryThatWasDeleted)
{
    show([this] {
        fakes.files->remove("C:\\Out\\LETTER.DOC");
        list().nodes().setSelected(list().nodes().item(1), true);
        button("cmdOpen").click();
    });
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "The document LETTER.DOC does not exist at C:\\Out\\");
}

TEST_F(frmProgressFormTest, FinishedUnloadsTheForm)
{
    show([this] {
        button("cmdFinished").click();
        EXPECT_FALSE(form->isFormLoaded());
    });
}

TEST_F(frmProgressFormTest, HelpShowsTopicOne)
{
    show([this] { button("cmdHelp").click(); });
    ASSERT_THAT(help->shown, SizeIs(1));
    EXPECT_EQ(help->shown[0].command, HelpViewer::kContext);
    EXPECT_EQ(help->shown[0].nData, 1U);
}

TEST_F(frmProgressFormTest, CtrlCAndCtrlVAreSwallowedInTheListOnly)
{
    class Watcher : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress)
                keys.push_back(static_cast<QKeyEvent*>(event)->key());
            return false;
        }
        std::vector<int> keys;
    };
    show([this] {
        Watcher watcher;
        list().installEventFilter(&watcher);
        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(&list(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_THAT(watcher.keys, testing::Each(int(Qt::Key_Control)));
        QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
        EXPECT_THAT(watcher.keys, Contains(int(Qt::Key_A)));
        Watcher beside;
        button("cmdFinished").installEventFilter(&beside);
        button("cmdFinished").setFocus();
        QTest::keyClick(&button("cmdFinished"), Qt::Key_C, Qt::ControlModifier);
        EXPECT_THAT(beside.keys, Contains(int(Qt::Key_C)));
    });
}

TEST_F(frmProgressFormTest, SaysWhatIsMissingWhenThereIsNoApplication)
{
    office->bWordInstalled = false;
    show([this] {
        EXPECT_TRUE(control<QLabel>("lblNotice").isVisible());
        EXPECT_EQ(control<QLabel>("lblNotice").text().toStdString(), creationState().sMissingOffice);
        EXPECT_EQ(status(), " Multiple documents were successfully created.");
    });
}

TEST_F(frmProgressFormTest, HasNothingToSayOfDocumentsThatAreWhole)
{
    show([this] { EXPECT_FALSE(control<QLabel>("lblNotice").isVisible()); });
}

TEST_F(frmProgressFormTest, WithOneDocumentItOpensThatAndUnloadsItself)
{
    setDocuments({"C:\\T\\Letter.dot"});
    batch.sFileName = "Mine";
    frmProgressForm shown;
    shown.setBatch(batch);
    shown.showModal();
    EXPECT_FALSE(shown.isFormLoaded());
    EXPECT_EQ(shown.findChild<QLabel*>(QStringLiteral("sbProgress"))->text(),
              QStringLiteral(" Mine successfully created..."));
    EXPECT_THAT(office->calls(), Contains("Word.Visible = True"));
}

TEST_F(frmProgressFormTest, WithNoDocumentItReportsAndUnloadsItselfAllTheSame)
{
    setDocuments({});
    frmProgressForm shown;
    shown.setBatch(batch);
    shown.showModal();
    EXPECT_FALSE(shown.isFormLoaded());
    EXPECT_THAT(messages.tags(), ElementsAre("frmProgressForm.Form_Activate"));
}

TEST_F(frmProgressFormTest, AFailingBatchLeavesTheFormAsItIs)
{
    batch.objSelectionDoc.loadXML("<Documents><Document/><Document/></Documents>");
    batch.objDocumentNodes = batch.objSelectionDoc.selectNodes("Documents/Document");
    show([this] {
        EXPECT_TRUE(form->isVisible());
        EXPECT_FALSE(button("cmdFinished").isVisible());
    });
    EXPECT_THAT(messages.tags(), ElementsAre("frmProgressForm.Process_Multi_Docs"));
}

TEST_F(frmProgressFormTest, TheCreationFormsRunABatchAndUnloadItsForm)
{
    QtCreationForms forms({});
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        auto* shown = qobject_cast<frmProgressForm*>(QApplication::activeModalWidget());
        if (!shown || goMousePointer().MousePointer() != 0 || creationState().objWordApp ||
            !fakes.files->fileExists("C:\\Out\\BUDGET.XLS"))
            return;
        watch.stop();
        shown->findChild<QPushButton*>(QStringLiteral("cmdFinished"))->click();
    });
    watch.start(1);
    forms.runBatch(batch);
    EXPECT_EQ(Form::loadedForms(), 0);
    EXPECT_TRUE(fakes.files->fileExists("C:\\Out\\LETTER.DOC"));
}

TEST_F(frmProgressFormTest, TheBoxOfASingleDocumentIsTheOneGiven)
{
    std::vector<std::string> calls;
    QtCreationForms forms({[&](const std::string& sName) { calls.push_back("show " + sName); },
                           [&] { calls.emplace_back("unload"); }});
    forms.showSingleInstance("Letter");
    forms.unloadSingleInstance();
    EXPECT_THAT(calls, ElementsAre("show Letter", "unload"));
    EXPECT_THAT(messages.boxes, IsEmpty());
}

} // namespace
} // namespace zorvo
