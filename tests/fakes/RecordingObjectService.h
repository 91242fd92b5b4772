#pragma once

#include "platform/ObjectService.h"

#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// Thrown where the real service would end the process, so that a test can go on behind it.
struct ProcessEnded {};

/// Keeps the table of classes that it was started with and lets a test call an operation as a client would.
class RecordingObjectService : public ObjectService {
public:
    bool start(std::vector<AutomationClass> classes, std::function<bool()> isFormLoaded) override;
    void reconsiderEnd() override;
    [[noreturn]] void endProcess() override;

    /// Makes an object of the class. Throws RunTimeError 429 for an unknown one.
    AutomationObjectPtr create(const std::string& progId) const;
    /// Calls the operation of that name. `arguments` holds one value per argument but the result, in order;
    /// what comes back is in it. Throws RunTimeError 438 for an unknown operation.
    Value call(const std::string& progId, const std::string& operation, std::vector<Value>& arguments) const;
    Value call(const std::string& progId, const std::string& operation) const;

    /// What `start` gives.
    bool bStarts = true;
    std::vector<AutomationClass> classes;
    std::function<bool()> isFormLoaded;
    int nReconsidered = 0;
    int nEnded = 0;
    /// Run when the process would end.
    std::function<void()> onEnd;

private:
    const AutomationClass& classOf(const std::string& progId) const;
};

} // namespace zorvo
