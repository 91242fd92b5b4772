#include <QApplication>
#include <gtest/gtest.h>

/// All test programs run under one application object, so that forms, pictures and timers work in each.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen").toUtf8());
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
