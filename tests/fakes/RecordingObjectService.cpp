#include "tests/fakes/RecordingObjectService.h"

#include "base/RunTimeError.h"

#include <algorithm>

namespace zorvo {

bool RecordingObjectService::start(std::vector<AutomationClass> servedClasses,
                                   std::function<bool()> formLoaded)
{
    classes = std::move(servedClasses);
    isFormLoaded = std::move(formLoaded);
    return bStarts;
}

void RecordingObjectService::reconsiderEnd()
{
    ++nReconsidered;
}

void RecordingObjectService::endProcess()
{
    ++nEnded;
    if (onEnd)
        onEnd();
    throw ProcessEnded();
}

const AutomationClass& RecordingObjectService::classOf(const std::string& progId) const
{
    const auto found = std::find_if(classes.begin(), classes.end(), [&progId](const AutomationClass& served) {
        return served.sProgId == progId;
    });
    if (found == classes.end())
        throw RunTimeError(kCannotCreateObject);
    return *found;
}

AutomationObjectPtr RecordingObjectService::create(const std::string& progId) const
{
    return classOf(progId).create();
}

Value RecordingObjectService::call(const std::string& progId, const std::string& operation,
                                   std::vector<Value>& arguments) const
{
    const AutomationClass& served = classOf(progId);
    const auto found =
        std::find_if(served.operations.begin(), served.operations.end(),
                     [&operation](const AutomationOperation& each) { return each.sName == operation; });
    if (found == served.operations.end())
        throw RunTimeError(kMemberNotFound);
    const AutomationObjectPtr instance = served.create();
    return found->call(*instance, arguments);
}

Value RecordingObjectService::call(const std::string& progId, const std::string& operation) const
{
    std::vector<Value> none;
    return call(progId, operation, none);
}

} // namespace zorvo
