#include "tests/window/WindowTest.h"
#include "window/ControlCaption.h"
#include "window/Form.h"
#include "window/LinkLabel.h"
#include "window/ListBar.h"
#include "window/MnemonicLabel.h"
#include "window/StatusPanels.h"
#include "window/TreeView.h"
#include "window/accessKey.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QVBoxLayout>

namespace zorvo {
namespace {

TEST(AccessKey, MarksGoAndDoubleOnesAreOne)
{
    EXPECT_EQ(withoutAccessKey(QStringLiteral("&Find Next")), QStringLiteral("Find Next"));
    EXPECT_EQ(withoutAccessKey(QStringLiteral("OT&&R's &Brendle")), QStringLiteral("OT&R's Brendle"));
    EXPECT_EQ(withoutAccessKey(QStringLiteral("&&&&")), QStringLiteral("&&"));
    EXPECT_EQ(withoutAccessKey(QStringLiteral("end&")), QStringLiteral("end"));
    EXPECT_EQ(withoutAccessKey(QString()), QString());
}

TEST(AccessKey, IsTheCharacterBehindTheFirstSingleMark)
{
    EXPECT_EQ(accessKeyOf(QStringLiteral("OT&&R's &brendle")), QChar(u'B'));
    EXPECT_TRUE(accessKeyOf(QStringLiteral("Tom && Jerry")).isNull());
    EXPECT_TRUE(accessKeyOf(QStringLiteral("end&")).isNull());
}

TEST(AccessKey, ATextAsACaptionReadsTheSame)
{
    EXPECT_EQ(withoutAccessKey(asCaption(QStringLiteral("a & b && c"))), QStringLiteral("a & b && c"));
}

TEST(MnemonicLabel, GivesItsBuddyFocusAndName)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QLineEdit first;
    QLineEdit second;
    MnemonicLabel label("lblFolderTitle", QStringLiteral("Document &Folder"));
    layout->addWidget(&first);
    layout->addWidget(&label);
    layout->addWidget(&second);
    label.setBuddy(&second);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(second.hasFocus());
    EXPECT_EQ(accessibleText(label), "Document Folder");
    EXPECT_EQ(accessibleText(second), "Document Folder");
    label.setCaption(QStringLiteral("&New && old"));
    EXPECT_EQ(accessibleText(second), "New & old");
}

TEST(MnemonicLabel, ShowsNoMarksWithoutABuddy)
{
    const MnemonicLabel label("lblDesc", QStringLiteral("Profit && &loss <b>"));
    EXPECT_EQ(label.text(), QStringLiteral("Profit & loss <b>"));
    EXPECT_EQ(label.caption(), QStringLiteral("Profit && &loss <b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(MnemonicLabel, Wraps)
{
    const MnemonicLabel label("lbl", QStringLiteral("words ").repeated(30));
    EXPECT_GT(label.heightForWidth(100), label.heightForWidth(1000));
}

TEST(LinkLabel, IsPressedByMouseAndKeyboard)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    LinkLabel link("linkContactUs", QStringLiteral("&Contact Us"));
    layout->addWidget(&link);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QSignalSpy clicks(&link, &LinkLabel::clicked);
    QTest::mouseClick(&link, Qt::LeftButton);
    QTest::keyClick(&link, Qt::Key_Space);
    QTest::keyClick(&link, Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([&] { return clicks.count() == 4; }));
    EXPECT_TRUE(link.focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(accessibleText(link), "Contact Us");
    EXPECT_EQ(accessibleRole(link), QAccessible::Button);
}

template <typename Control>
void expectCaption(Control& control)
{
    ASSERT_TRUE(controlCaption(control).has_value());
    EXPECT_TRUE(setControlCaption(control, QStringLiteral("OT&&R's &Brendle")));
    EXPECT_EQ(controlCaption(control), QStringLiteral("OT&&R's &Brendle"));
}

TEST(ControlCaption, IsReadAndWrittenOnEveryKindThatHasOne)
{
    Form form("frm");
    QLabel label(QStringLiteral("text"));
    MnemonicLabel mnemonic;
    LinkLabel link("link", {});
    QPushButton button;
    QCheckBox check;
    QRadioButton option;
    QGroupBox frame;
    expectCaption(form);
    expectCaption(label);
    expectCaption(mnemonic);
    expectCaption(link);
    expectCaption(button);
    expectCaption(check);
    expectCaption(option);
    expectCaption(frame);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("OT&&R's &Brendle"));
    EXPECT_EQ(accessibleText(frame), "OT&R's Brendle");
    EXPECT_EQ(accessibleText(check), "OT&R's Brendle");
}

TEST(ControlCaption, IsAbsentOnEveryOtherKind)
{
    QLabel picture;
    picture.setPixmap(QPixmap(4, 4));
    StatusPanels status("sb");
    ListBar bar("lb");
    bar.groups().add(1, "key", "Caption", -1);
    QObject* const others[] = {new QLineEdit(&bar),
                               new QToolButton(&bar),
                               new TreeView("tree", &bar),
                               &picture,
                               &status,
                               &status.panel(1),
                               &bar,
                               bar.findChild<QAbstractButton*>(QStringLiteral("key"))};
    for (QObject* other : others) {
        EXPECT_FALSE(controlCaption(*other).has_value()) << other->metaObject()->className();
        EXPECT_FALSE(setControlCaption(*other, QStringLiteral("x")));
    }
}

} // namespace
} // namespace zorvo
