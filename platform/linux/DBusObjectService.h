#pragma once

#include "platform/ObjectService.h"

#include <memory>

namespace zorvo {

/// Our own classes on the session bus, as com.zorvo.TSelector. Needs a QCoreApplication; all of it runs on
/// that thread.
///
/// The process ends (the application's event loop exits with 0) when no client object is left, no call is
/// running and no form is loaded; one that no client ever asked for anything waits a few seconds first. When
/// the bus dies the windows are closed as at the user's own close, and the loop exits in any case.
class DBusObjectService : public ObjectService {
public:
    DBusObjectService();
    /// Under another bus name, for programs of other classes and for tests.
    explicit DBusObjectService(std::string busName);
    ~DBusObjectService() override;

    bool start(std::vector<AutomationClass> classes, std::function<bool()> isFormLoaded) override;
    void reconsiderEnd() override;
    [[noreturn]] void endProcess() override;

private:
    struct State;
    std::string busName_;
    std::unique_ptr<State> state_;
};

} // namespace zorvo
