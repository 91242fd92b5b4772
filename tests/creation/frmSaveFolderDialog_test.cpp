#include "creation/forms/frmSaveFolderDialog.h"

#include "branding/companyIdentity.h"
#include "catalogue/basHTMLHelp.h"
#include "creation/forms/FolderTree.h"
#include "creation/forms/QtCreationForms.h"
#include "tests/creation/CreationTest.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "window/MnemonicLabel.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class frmSaveFolderDialogTest : public CreationTest {
protected:
    frmSaveFolderDialogTest()
    {
        ReleaseHTMLHelp();
        platform().help = help;
        fakes.files->addFolder("Z:\\home\\user\\Documents\\Clients");
        fakes.files->addFolder("Z:\\home\\user\\.cache\\web");
        fakes.folders->specials[SpecialFolders::kDocuments] = "Z:\\home\\user\\Documents";
        fakes.folders->specials[SpecialFolders::kInternetCache] = "Z:\\home\\user\\.cache";
    }
    ~frmSaveFolderDialogTest() override
    {
        ReleaseHTMLHelp();
        if (form)
            form->unloadForm();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template <typename Control>
    Control& control(const char* name)
    {
        return *form->findChild<Control*>(QString::fromLatin1(name));
    }
    FolderTree& tree() { return control<FolderTree>("fldrDocumentFolder"); }
    QLineEdit& text() { return control<QLineEdit>("txtDocumentFolder"); }
    void press(const char* name) { control<QPushButton>(name).click(); }
    std::string status() { return control<QLabel>("sbProgress").text().toStdString(); }
    void type(const std::string& sText) { text().setText(QString::fromStdString(sText)); }

    std::optional<std::string> stored(const std::string& sKey = "DocumentFolder")
    {
        return fakes.settings->get("ZorvoBrendle", "Settings", sKey);
    }

    /// Shows the form, acts once it is up, and hides it if the act leaves it open.
    void show(const std::function<void()>& act)
    {
        if (!form)
            form = new frmSaveFolderDialog([this] { form = nullptr; });
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (!form->isActiveWindow() || !tree().hasFocus())
                return;
            watch.stop();
            act();
            form->hide();
        });
        watch.start(1);
        form->showForm();
    }

    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    frmSaveFolderDialog* form = nullptr;
};

TEST_F(frmSaveFolderDialogTest, CarriesItsCaptionAndThoseOfItsControls)
{
    show([this] {
        EXPECT_EQ(form->objectName(), QStringLiteral("frmSaveFolderDialog"));
        EXPECT_EQ(form->caption(), QStringLiteral("Documents - Select a Folder to Store Documents"));
        EXPECT_EQ(control<QGroupBox>("fraInstructions").title(), QStringLiteral(" Instructions "));
        const auto lines = form->findChildren<MnemonicLabel*>(QStringLiteral("lblInstr"));
        ASSERT_EQ(lines.size(), 2);
        EXPECT_EQ(lines[0]->caption(),
                  QStringLiteral("1. To select an existing document folder, select from the tree below and "
                                 "then OK."));
        EXPECT_EQ(lines[1]->caption(),
                  QStringLiteral("2. To create a new document folder, type in the path and folder name and "
                                 "select Create Folder button below then OK."));
        EXPECT_EQ(control<QPushButton>("cmdCreate").text(), QStringLiteral("&Create Folder"));
        EXPECT_EQ(control<QPushButton>("cmdOK").text(), QStringLiteral("OK"));
        EXPECT_EQ(control<QPushButton>("cmdCancel").text(), QStringLiteral("Cancel"));
        EXPECT_EQ(control<QPushButton>("cmdHelp").text(), QStringLiteral("&Help"));
        EXPECT_FALSE(text().accessibleName().isEmpty());
        EXPECT_FALSE(tree().accessibleName().isEmpty());
        EXPECT_NE(form->findChild<MnemonicLabel*>(QStringLiteral("lblDocumentFolderEntry")), nullptr);
        EXPECT_NE(form->findChild<MnemonicLabel*>(QStringLiteral("lblDocumentFolderSelection")), nullptr);
    });
}

TEST_F(frmSaveFolderDialogTest, WithNoStoredFolderSelectsTheDocumentsFolderAndCopiesIt)
{
    show([this] {
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents"));
        EXPECT_EQ(tree().selectedFolder(), "Z:\\home\\user\\Documents");
        EXPECT_TRUE(tree().hasFocus());
    });
}

TEST_F(frmSaveFolderDialogTest, ShowsAStoredFolderNativelyAndOpensItInTheTree)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "DocumentFolder", "Z:\\home\\user\\Documents\\Clients");
    show([this] {
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents/Clients"));
        EXPECT_EQ(tree().selectedFolder(), "Z:\\home\\user\\Documents\\Clients");
        EXPECT_TRUE(tree().isExpanded(tree().currentIndex().parent()));
    });
}

TEST_F(frmSaveFolderDialogTest, OpensTheStoredFolderItself)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "DocumentFolder", "Z:\\home\\user\\Documents");
    show([this] { EXPECT_TRUE(tree().isExpanded(tree().currentIndex())); });
}

TEST_F(frmSaveFolderDialogTest, ShowsAStoredFolderThatNoLongerExistsAndOkRefusesIt)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "DocumentFolder", "Z:\\home\\user\\Gone\\Deep");
    show([this] {
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Gone/Deep"));
        EXPECT_EQ(tree().selectedFolder(), "Z:\\home\\user");
        press("cmdOK");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(status(),
                  " The document folder does not exist. To create a folder, edit the Document Folder "
                  "text then click Create Folder.");
    });
    EXPECT_FALSE(form->isOK());
}

TEST_F(frmSaveFolderDialogTest, ReadsThePlainKeyAndWritesThePrefixedOneForAnotherCompany)
{
    fakes.settings->set("ZorvoBrendle", "Settings", "DocumentFolder", "Z:\\home\\user\\Documents\\Clients");
    fakes.settings->set("ZorvoBrendle", "Settings", "ABCDocumentFolder", "C:\\Out");
    StoreCompanyID("ABC");
    show([this] {
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents/Clients"));
        type("/home/user");
    });
    EXPECT_EQ(stored(), "Z:\\home\\user\\Documents\\Clients");
    EXPECT_EQ(stored("ABCDocumentFolder"), "Z:\\home\\user");
}

TEST_F(frmSaveFolderDialogTest, AClickInTheTreeGoesToTheTextAndClearsTheStatus)
{
    show([this] {
        type("");
        press("cmdOK");
        EXPECT_EQ(status(), " Please select a document folder.");
        tree().expandFolder("Z:\\home\\user\\Documents");
        const QModelIndex clients = tree().model()->index(0, 0, tree().currentIndex());
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(clients).center());
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents/Clients"));
        EXPECT_EQ(status(), "");
    });
}

TEST_F(frmSaveFolderDialogTest, OkTakesTheFolderTrimmedAndHides)
{
    show([this] {
        type("  /home/user/Documents ");
        press("cmdOK");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_TRUE(form->isOK());
    EXPECT_EQ(form->getFilePath(), "Z:\\home\\user\\Documents");
    EXPECT_EQ(form->getFileName(), "");
    EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents"));
    EXPECT_TRUE(form->isFormLoaded());
}

TEST_F(frmSaveFolderDialogTest, OkTakesABackslashPathToo)
{
    show([this] {
        type("C:\\Out");
        press("cmdOK");
    });
    EXPECT_TRUE(form->isOK());
    EXPECT_EQ(form->getFilePath(), "C:\\Out");
}

TEST_F(frmSaveFolderDialogTest, OkOnAnEmptyTextAsksForAFolderAndStays)
{
    show([this] {
        type("   ");
        press("cmdOK");
        EXPECT_EQ(text().text(), QString());
        EXPECT_EQ(status(), " Please select a document folder.");
        EXPECT_TRUE(form->isVisible());
    });
    EXPECT_FALSE(form->isOK());
}

TEST_F(frmSaveFolderDialogTest, OkOnAForbiddenFolderStays)
{
    show([this] {
        type("/home/user/.cache/web");
        press("cmdOK");
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(status(), "Please re-select the document folder.");
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/.cache/web"));
    });
    EXPECT_FALSE(form->isOK());
    EXPECT_THAT(messages.boxes, SizeIs(1));
}

TEST_F(frmSaveFolderDialogTest, CreateFolderMakesItAndShowsItInTheTree)
{
    show([this] {
        type(" /home/user/a/b/c ");
        press("cmdCreate");
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/a/b/c"));
        EXPECT_EQ(status(), " The document folder has been created.");
        EXPECT_EQ(tree().selectedFolder(), "Z:\\home\\user\\a\\b\\c");
        EXPECT_TRUE(tree().hasFocus());
    });
    EXPECT_TRUE(fakes.files->folderExists("Z:\\home\\user\\a\\b\\c"));
}

TEST_F(frmSaveFolderDialogTest, CreateFolderOnAnExistingOneChangesNothing)
{
    show([this] {
        press("cmdCreate");
        EXPECT_EQ(status(), " Document folder already exists. To create a new folder, edit the text in the "
                            "Document Folder field then click Create Folder.");
    });
}

TEST_F(frmSaveFolderDialogTest, CreateFolderOnAnEmptyTextTellsWhatToDo)
{
    show([this] {
        type("");
        press("cmdCreate");
        EXPECT_EQ(status(),
                  " To create a folder, select then edit the Document Folder text then click Create "
                  "Folder.");
    });
}

TEST_F(frmSaveFolderDialogTest, CreateFolderLooksAtTheWholeDiskAgain)
{
    show([this] {
        const QModelIndex user = tree().currentIndex().parent();
        const int nFolders = tree().model()->rowCount(user);
        fakes.files->addFolder("Z:\\home\\user\\Elsewhere");
        type("/home/user/Documents/New");
        press("cmdCreate");
        EXPECT_EQ(tree().model()->rowCount(tree().currentIndex().parent().parent()), nFolders + 1);
    });
}

TEST_F(frmSaveFolderDialogTest, AClickWhileACreatedFolderIsBroughtInSightIsNotFollowed)
{
    show([this] {
        type("/home/user/New");
        bool bClicked = false;
        QTimer::singleShot(0, form, [&] {
            bClicked = true;
            Q_EMIT tree().folderClicked("Z:\\home\\user\\Documents");
        });
        press("cmdCreate");
        EXPECT_TRUE(bClicked);
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/New"));
        EXPECT_EQ(status(), " The document folder has been created.");
    });
}

TEST_F(frmSaveFolderDialogTest, TheTreeIsFollowedAgainAfterAFolderWasCreated)
{
    show([this] {
        type("/home/user/New");
        press("cmdCreate");
        QTest::keyClick(&tree(), Qt::Key_Up);
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents"));
    });
}

TEST_F(frmSaveFolderDialogTest, CancelHidesAndRemembersTheTypedText)
{
    show([this] {
        type("/home/user/Documents/Clients");
        press("cmdCancel");
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_FALSE(form->isOK());
    EXPECT_EQ(stored(), "Z:\\home\\user\\Documents\\Clients");
}

TEST_F(frmSaveFolderDialogTest, ClosingItIsACancelAndTheNextShowWorks)
{
    show([this] {
        type("/home/user/Documents/Clients");
        EXPECT_TRUE(form->close());
    });
    EXPECT_FALSE(form->isOK());
    EXPECT_EQ(stored(), "Z:\\home\\user\\Documents\\Clients");
    show([this] {
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/Documents/Clients"));
        press("cmdOK");
    });
    EXPECT_TRUE(form->isOK());
}

TEST_F(frmSaveFolderDialogTest, EnterIsOkAndEscapeIsCancel)
{
    show([this] {
        QTest::keyClick(&text(), Qt::Key_Return);
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_TRUE(form->isOK());
    show([this] {
        QTest::keyClick(&text(), Qt::Key_Escape);
        EXPECT_FALSE(form->isVisible());
    });
    EXPECT_FALSE(form->isOK());
}

TEST_F(frmSaveFolderDialogTest, UnloadingRemembersTheTypedText)
{
    show([this] {
        type("C:\\Out");
        press("cmdOK");
        fakes.settings->set("ZorvoBrendle", "Settings", "DocumentFolder", "other");
    });
    form->unloadForm();
    EXPECT_EQ(stored(), "C:\\Out");
    EXPECT_EQ(form, nullptr);
}

TEST_F(frmSaveFolderDialogTest, AnotherShowStartsAfresh)
{
    show([this] { press("cmdOK"); });
    EXPECT_TRUE(form->isOK());
    form->setFileName("name");
    show([this] {
        EXPECT_FALSE(form->isOK());
        EXPECT_EQ(form->getFilePath(), "");
        EXPECT_EQ(form->getFileName(), "");
    });
}

TEST_F(frmSaveFolderDialogTest, AVisitToAnotherWindowStoresAndKeepsWhatWasTyped)
{
    StoreCompanyID("ABC");
    show([this] {
        type("/home/user/typed");
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        EXPECT_EQ(stored("ABCDocumentFolder"), "Z:\\home\\user\\typed");
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        EXPECT_EQ(text().text(), QStringLiteral("/home/user/typed"));
    });
}

TEST_F(frmSaveFolderDialogTest, FileNamesLoseDoubledBackslashes)
{
    form = new frmSaveFolderDialog([this] { form = nullptr; });
    form->setFileName("C:\\\\Out\\\\\\\\Name");
    EXPECT_EQ(form->getFileName(), "C:\\Out\\\\Name");
}

TEST_F(frmSaveFolderDialogTest, CtrlXIsSwallowedInTheTreeOnly)
{
    show([this] {
        bool bSeen = false;
        class Watcher : public QObject {
        public:
            explicit Watcher(bool& bSeen)
                : bSeen_(bSeen)
            {
            }
            bool eventFilter(QObject* /*watched*/, QEvent* event) override
            {
                // Ctrl itself comes as a key of its own.
                if (event->type() == QEvent::KeyPress)
                    bSeen_ = bSeen_ || static_cast<QKeyEvent*>(event)->key() == Qt::Key_X;
                return false;
            }

        private:
            bool& bSeen_;
        } watcher(bSeen);
        tree().installEventFilter(&watcher);
        QTest::keyClick(&tree(), Qt::Key_X, Qt::ControlModifier);
        EXPECT_FALSE(bSeen);
        QTest::keyClick(&tree(), Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(bSeen);
        type("cut me");
        text().setFocus();
        text().selectAll();
        QTest::keyClick(&text(), Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(text().text(), QString());
    });
}

TEST_F(frmSaveFolderDialogTest, HelpShowsTopicOne)
{
    show([this] { press("cmdHelp"); });
    ASSERT_THAT(help->shown, SizeIs(1));
    EXPECT_EQ(help->shown[0].command, HelpViewer::kContext);
    EXPECT_EQ(help->shown[0].nData, 1U);
}

TEST_F(frmSaveFolderDialogTest, TellsItsPlaceInTwips)
{
    show([this] { form->setGeometry(40, 30, 600, 500); });
    EXPECT_EQ(form->left(), 600);
    EXPECT_EQ(form->top(), 450);
}

TEST_F(frmSaveFolderDialogTest, ReadsAsTheCompanysOwnWhenItLoads)
{
    StoreCompanyID("ABC");
    fakes.files->addFile("C:\\Zorvo\\Images\\Brendle.ico");
    show([] {});
    EXPECT_THAT(messages.tags(), ElementsAre("basBranding.LoadBrandedPicture(Brendle.ico)"));
}

TEST_F(frmSaveFolderDialogTest, TheCreationFormsKeepOneInstanceUntilItsUnload)
{
    QtCreationForms forms({});
    SaveFolderDialog& first = forms.saveFolderDialog();
    EXPECT_EQ(&forms.saveFolderDialog(), &first);
    first.setNumberofFiles(3);
    EXPECT_EQ(Form::loadedForms(), 0);
    first.unloadForm();
    EXPECT_NE(&forms.saveFolderDialog(), &first);
    forms.saveFolderDialog().unloadForm();
}

} // namespace
} // namespace zorvo
