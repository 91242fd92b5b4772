#include "window/guardedSlot.h"

#include "tests/window/WindowTest.h"

#include <QLineEdit>
#include <gmock/gmock.h>

#include <stdexcept>

namespace zorvo {
namespace {

using testing::ElementsAre;

TEST(GuardedSlot, HandsOverArgumentsOrNone)
{
    QLineEdit edit;
    QString seen;
    int nCalls = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, &edit,
                     guardedSlot(&edit, [&](const QString& text) { seen = text; }));
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, guardedSlot(&edit, [&] { ++nCalls; }));
    edit.setText(QStringLiteral("x"));
    EXPECT_EQ(seen, QStringLiteral("x"));
    EXPECT_EQ(nCalls, 1);
}

TEST(GuardedSlot, ReportsWhatNoOneForesaw)
{
    const ReportedFailures reported;
    QObject source;
    EXPECT_FALSE(runGuarded(&source, [] { throw std::runtime_error("out of luck"); }));
    EXPECT_FALSE(runGuarded(&source, [] { throw 7; }));
    EXPECT_TRUE(runGuarded(&source, [] {}));
    EXPECT_THAT(reported.descriptions, ElementsAre("out of luck", testing::_));
    EXPECT_EQ(gnErrNumber, 51);
}

} // namespace
} // namespace zorvo
