#include "platform/linux/DBusObjectService.h"

#include "platform/linux/DBusClassServer.h"
#include "platform/linux/EndOfService.h"

#include <QDBusConnection>
#include <cstdio>
#include <unistd.h>

namespace zorvo {

namespace {
constexpr const char* kBusName = "com.zorvo.TSelector";
constexpr std::chrono::seconds kWaitForFirstClient{5};

std::vector<ServedClass> served(std::vector<AutomationClass> classes)
{
    std::vector<ServedClass> all;
    all.reserve(classes.size());
    for (AutomationClass& each : classes)
        all.push_back({std::move(each)});
    return all;
}
} // namespace

struct DBusObjectService::State {
    State(const QString& busName, std::vector<AutomationClass> classes, std::function<bool()> isFormLoaded)
        : server(QDBusConnection::sessionBus(), busName, served(std::move(classes)))
        , end(server, std::move(isFormLoaded), {kWaitForFirstClient, std::chrono::seconds(0)})
    {
    }

    DBusClassServer server;
    EndOfService end;
};

DBusObjectService::DBusObjectService()
    : DBusObjectService(kBusName)
{
}

DBusObjectService::DBusObjectService(std::string busName)
    : busName_(std::move(busName))
{
}

DBusObjectService::~DBusObjectService() = default;

bool DBusObjectService::start(std::vector<AutomationClass> classes, std::function<bool()> isFormLoaded)
{
    state_ = std::make_unique<State>(QString::fromStdString(busName_), std::move(classes),
                                     std::move(isFormLoaded));
    if (state_->server.start())
        return true;
    state_.reset();
    return false;
}

void DBusObjectService::reconsiderEnd()
{
    if (state_)
        state_->end.considerSoon();
}

void DBusObjectService::endProcess()
{
    if (state_)
        state_->server.answerAll();
    std::fflush(nullptr);
    ::_exit(0);
}

} // namespace zorvo
