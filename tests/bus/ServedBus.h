#pragma once

#include "tests/bus/BusClient.h"
#include "tests/bus/PrivateBus.h"
#include "tests/bus/TestProcess.h"

#include <gtest/gtest.h>

namespace zorvo {

inline const QString kProbe = QStringLiteral("Test.Probe");
inline const QString kRoot = QStringLiteral("/com/zorvo/TSelector");
inline const QString kTestServer = QStringLiteral(TEST_SERVER);

/// Tests on the shared bus, which starts the test server for the program's name. Each begins and ends without
/// one.
class ServedBus : public testing::Test {
protected:
    void SetUp() override
    {
        sharedBus().addService(QStringLiteral("com.zorvo.TSelector"), kTestServer);
        ASSERT_TRUE(waitUntil([] { return !isServed(sharedBus().address()); }));
    }
    void TearDown() override
    {
        // A server that never had a client would wait for one.
        if (isServed(address()))
            BusClient(address()).service(QStringLiteral("CreateObject"), {kProbe});
        EXPECT_TRUE(waitUntil([] { return !isServed(sharedBus().address()); })) << "the server stays";
    }

    static QString address() { return sharedBus().address(); }
    static QString text(const QDBusMessage& reply, int nIndex = 0)
    {
        return reply.arguments().value(nIndex).toString();
    }
    static int number(const QDBusMessage& reply, int nIndex = 0)
    {
        return reply.arguments().value(nIndex).toInt();
    }
};

} // namespace zorvo
