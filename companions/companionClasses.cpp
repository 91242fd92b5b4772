#include "companions/companionClasses.h"

#include "companions/classIds.h"

namespace zorvo {

namespace {

constexpr int kChooseLocation = 1;

ServedClass addInClass(const char* progId)
{
    const AutomationOperation setCompanyID{
        "SetCompanyID",
        {{"sCompanyID", ArgumentKind::text, ArgumentDirection::in}},
        [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
            dynamic_cast<AddInConnection&>(instance).SetCompanyID(std::get<std::string>(arguments[0]));
            return {};
        }};
    ServedClass served;
    served.automation = {progId, {setCompanyID}, [] { return std::make_shared<AddInConnection>(); }};
    return served;
}

ServedClass frameworkClass()
{
    ServedClass served;
    served.automation = {kActXManager.progId, {}, [] { return std::make_shared<ActXManager>(); }};
    served.instancing = Instancing::shared;
    return served;
}

ServedClass locationClass(std::function<void()> chooseLocation)
{
    ServedClass served;
    served.automation = {
        kReferenceLocation.classId, {}, [] { return std::make_shared<ReferenceLocation>(); }};
    served.dispatch[kChooseLocation] = [choose = std::move(chooseLocation)](AutomationObject&,
                                                                            std::vector<Value>&) -> Value {
        choose();
        return {};
    };
    return served;
}

} // namespace

std::vector<ServedClass> companionClasses(std::function<void()> chooseLocation)
{
    return {addInClass(kWordAddIn.progId), addInClass(kExcelAddIn.progId), frameworkClass(),
            locationClass(std::move(chooseLocation))};
}

} // namespace zorvo
