#include "companions/referenceLocation.h"

#include "base/RunTimeError.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeRegistry.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

namespace zorvo {

/// Does something with the dialog once it is up.
template <typename Action>
void whenDialogIsUp(Action action)
{
    QTimer::singleShot(50, qApp, [action] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog)
            action(*dialog);
        else
            whenDialogIsUp(action);
    });
}

class ReferenceLocationDialog : public testing::Test {
protected:
    void SetUp() override { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    FakeRegistry registry_;
    FakeFiles files_;
    QTemporaryDir folder_;
};

TEST_F(ReferenceLocationDialog, KeepsTheChosenFolder)
{
    whenDialogIsUp([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Location of reference material"));
        // Typed in, as the dialog's list of folders fills in its own time.
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(folder_.path());
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    chooseReferenceLocation(registry_, files_);
    EXPECT_EQ(storedReferenceLocation(registry_), files_.fromNative(folder_.path().toStdString()));
}

TEST_F(ReferenceLocationDialog, BeginsAtTheStoredFolder)
{
    storeReferenceLocation(registry_, files_.fromNative(folder_.path().toStdString()));
    QString start;
    whenDialogIsUp([&start](QFileDialog& dialog) {
        start = dialog.directory().path();
        dialog.reject();
    });
    chooseReferenceLocation(registry_, files_);
    EXPECT_EQ(start, folder_.path());
}

TEST_F(ReferenceLocationDialog, ChangesNothingWhenItIsCancelled)
{
    whenDialogIsUp([](QFileDialog& dialog) { dialog.reject(); });
    chooseReferenceLocation(registry_, files_);
    EXPECT_EQ(storedReferenceLocation(registry_), "");
}

TEST_F(ReferenceLocationDialog, FailsWhenTheAnswerCannotBeKept)
{
    registry_.failWrites(kRegistryAccessDenied);
    EXPECT_THROW(storeReferenceLocation(registry_, "C:\\x"), RunTimeError);
}

} // namespace zorvo
