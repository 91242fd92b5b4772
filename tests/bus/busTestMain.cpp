#include "tests/bus/PrivateBus.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {
std::unique_ptr<zorvo::PrivateBus>& bus()
{
    static std::unique_ptr<zorvo::PrivateBus> shared;
    return shared;
}
} // namespace

zorvo::PrivateBus& zorvo::sharedBus()
{
    return *bus();
}

/// The bus is up before anything asks for the session bus, whose address is read once per process.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    bus() = std::make_unique<zorvo::PrivateBus>();
    for (const QString& variable : bus()->environment().keys())
        qputenv(variable.toLocal8Bit(), bus()->environment().value(variable).toLocal8Bit());
    const int nResult = RUN_ALL_TESTS();
    bus().reset();
    return nResult;
}
