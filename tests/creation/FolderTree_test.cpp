#include "creation/forms/FolderTree.h"

#include "tests/creation/CreationTest.h"

#include <QTest>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FolderTreeTest : public CreationTest {
protected:
    FolderTreeTest()
    {
        for (const char* path : {"Z:\\home\\user\\Documents\\Clients", "Z:\\home\\user\\Ärger",
                                 "Z:\\home\\user\\.hidden\\Deep", "Z:\\home\\user\\apples", "Z:\\srv"})
            fakes.files->addFolder(path);
        fakes.files->addFile("Z:\\home\\user\\note.txt");
    }

    FolderTree& shown()
    {
        if (!tree_) {
            tree_ = std::make_unique<FolderTree>("fldrDocumentFolder");
            QObject::connect(tree_.get(), &FolderTree::folderClicked, tree_.get(),
                             [this](const std::string& sPath) { clicked.push_back(sPath); });
            tree_->resize(400, 400);
            tree_->show();
            tree_->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(tree_.get()));
        }
        return *tree_;
    }

    /// Names below an index as the tree shows them; lists the folder first.
    static std::vector<std::string> names(FolderTree& tree, const QModelIndex& parent)
    {
        QAbstractItemModel& model = *tree.model();
        if (model.canFetchMore(parent))
            model.fetchMore(parent);
        std::vector<std::string> result;
        for (int row = 0; row < model.rowCount(parent); ++row)
            result.push_back(model.index(row, 0, parent).data().toString().toStdString());
        return result;
    }

    std::vector<std::string> clicked;

private:
    std::unique_ptr<FolderTree> tree_;
};

TEST_F(FolderTreeTest, ShowsNativeNamesBelowOneRoot)
{
    const QModelIndex root = shown().model()->index(0, 0);
    EXPECT_EQ(root.data().toString(), QStringLiteral("/"));
    EXPECT_THAT(names(shown(), root), ElementsAre("home", "srv"));
    EXPECT_EQ(shown().objectName(), QStringLiteral("fldrDocumentFolder"));
}

TEST_F(FolderTreeTest, ListsFoldersWithoutRegardToCaseAndLeavesFilesAndHiddenOnesOut)
{
    shown().selectFolder("Z:\\home\\user");
    EXPECT_THAT(names(shown(), shown().currentIndex()), ElementsAre("apples", "Documents", "Ärger"));
}

TEST_F(FolderTreeTest, LooksIntoAFolderOnlyWhenItIsOpened)
{
    const QModelIndex home = shown().model()->index(0, 0, shown().model()->index(0, 0));
    EXPECT_TRUE(shown().model()->canFetchMore(home));
    EXPECT_TRUE(shown().model()->hasChildren(home));
    shown().expand(home);
    EXPECT_FALSE(shown().model()->canFetchMore(home));
}

TEST_F(FolderTreeTest, AFolderWithoutFoldersLosesItsMarkOnceOpened)
{
    shown().selectFolder("Z:\\srv");
    EXPECT_TRUE(shown().model()->hasChildren(shown().currentIndex()));
    shown().expand(shown().currentIndex());
    EXPECT_FALSE(shown().model()->hasChildren(shown().currentIndex()));
}

TEST_F(FolderTreeTest, SelectsAFolderOpensTheWayToItAndTellsNobody)
{
    shown().selectFolder("Z:\\HOME\\user\\documents\\Clients");
    EXPECT_EQ(shown().selectedFolder(), "Z:\\home\\user\\Documents\\Clients");
    EXPECT_TRUE(shown().isExpanded(shown().currentIndex().parent()));
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(FolderTreeTest, OfAFolderThatIsNotThereSelectsTheLastOnTheWay)
{
    shown().selectFolder("Z:\\home\\user\\gone\\further");
    EXPECT_EQ(shown().selectedFolder(), "Z:\\home\\user");
}

TEST_F(FolderTreeTest, ATextThatIsNoPathSelectsNothing)
{
    shown().selectFolder("");
    shown().selectFolder("somewhere");
    EXPECT_EQ(shown().selectedFolder(), "");
}

TEST_F(FolderTreeTest, AHiddenFolderThatIsAskedForIsShown)
{
    shown().selectFolder("Z:\\home\\user\\.hidden\\Deep");
    EXPECT_EQ(shown().selectedFolder(), "Z:\\home\\user\\.hidden\\Deep");
    EXPECT_THAT(names(shown(), shown().currentIndex().parent().parent()),
                ElementsAre(".hidden", "apples", "Documents", "Ärger"));
}

TEST_F(FolderTreeTest, ExpandsAPathWithAllAboveIt)
{
    shown().expandFolder("Z:\\home\\user\\Documents");
    shown().selectFolder("Z:\\home\\user\\Documents");
    EXPECT_TRUE(shown().isExpanded(shown().currentIndex()));
    EXPECT_TRUE(shown().isExpanded(shown().currentIndex().parent()));
}

TEST_F(FolderTreeTest, AClickTellsThePathInTheBackslashForm)
{
    shown().selectFolder("Z:\\home\\user\\Documents");
    const QModelIndex apples = shown().currentIndex().siblingAtRow(0);
    QTest::mouseClick(shown().viewport(), Qt::LeftButton, {}, shown().visualRect(apples).center());
    ASSERT_FALSE(clicked.empty());
    EXPECT_EQ(clicked.back(), "Z:\\home\\user\\apples");
    EXPECT_EQ(shown().selectedFolder(), "Z:\\home\\user\\apples");
}

TEST_F(FolderTreeTest, AClickOnTheSelectedFolderTellsItAgain)
{
    shown().selectFolder("Z:\\home\\user\\Documents");
    QTest::mouseClick(shown().viewport(), Qt::LeftButton, {},
                      shown().visualRect(shown().currentIndex()).center());
    EXPECT_THAT(clicked, ElementsAre("Z:\\home\\user\\Documents"));
}

TEST_F(FolderTreeTest, TheKeysGoFromFolderToFolderAndTellEach)
{
    shown().selectFolder("Z:\\home\\user\\apples");
    QTest::keyClick(&shown(), Qt::Key_Down);
    EXPECT_THAT(clicked, ElementsAre("Z:\\home\\user\\Documents"));
}

TEST_F(FolderTreeTest, TheFocusAloneChoosesNothing)
{
    shown().setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(shown().hasFocus());
    EXPECT_THAT(clicked, IsEmpty());
    EXPECT_EQ(shown().selectedFolder(), "");
}

TEST_F(FolderTreeTest, ARefreshShowsNewFoldersAndKeepsWhatIsOpen)
{
    shown().expandFolder("Z:\\home\\user\\Documents");
    shown().selectFolder("Z:\\home\\user\\Documents\\Clients");
    fakes.files->addFolder("Z:\\home\\user\\Berries");
    shown().refresh();
    const QModelIndex documents = shown().currentIndex().parent();
    EXPECT_EQ(shown().selectedFolder(), "Z:\\home\\user\\Documents\\Clients");
    EXPECT_TRUE(shown().isExpanded(documents));
    EXPECT_THAT(names(shown(), documents.parent()), ElementsAre("apples", "Berries", "Documents", "Ärger"));
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(FolderTreeTest, ARefreshTakesVanishedFoldersAway)
{
    shown().selectFolder("Z:\\home\\user\\Documents\\Clients");
    platform().files = std::make_shared<FakeFiles>();
    shown().refresh();
    EXPECT_THAT(names(shown(), shown().model()->index(0, 0)), IsEmpty());
    EXPECT_THAT(clicked, IsEmpty());
}

} // namespace
} // namespace zorvo
