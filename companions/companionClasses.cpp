#include "companions/companionClasses.h"

#include "companions/classIds.h"

#include <utility>

namespace zorvo {

namespace {

constexpr int kChooseLocation = 1;

AutomationOperation setCompanyID()
{
    return {"SetCompanyID",
            {{"sCompanyID", ArgumentKind::text, ArgumentDirection::in}},
            [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
                dynamic_cast<AddInConnection&>(instance).SetCompanyID(std::get<std::string>(arguments[0]));
                return {};
            }};
}

/// Folder and place come back too: the folder in a form that a file name can be put behind.
AutomationOperation profileForm(std::function<ProfileAnswer(const ProfileQuestion&)> ask)
{
    return {"TreeSelectProfileDataForm",
            {{"sProfileData", ArgumentKind::text, ArgumentDirection::result},
             {"sFolder", ArgumentKind::text, ArgumentDirection::inOut},
             {"nTop", ArgumentKind::int32, ArgumentDirection::inOut},
             {"nLeft", ArgumentKind::int32, ArgumentDirection::inOut}},
            [ask = std::move(ask)](AutomationObject&, std::vector<Value>& arguments) -> Value {
                const ProfileAnswer answer =
                    ask({std::get<std::string>(arguments[0]), std::get<std::int32_t>(arguments[1]),
                         std::get<std::int32_t>(arguments[2])});
                arguments = {answer.sFolder, std::int32_t{answer.nTop}, std::int32_t{answer.nLeft}};
                return answer.sProfile;
            }};
}

ServedClass addInClass(const char* progId, std::vector<AutomationOperation> operations)
{
    ServedClass served;
    served.automation = {progId, std::move(operations), [] { return std::make_shared<AddInConnection>(); }};
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

std::vector<ServedClass> companionClasses(const CompanionDialogs& dialogs)
{
    return {addInClass(kWordAddIn.progId, {setCompanyID(), profileForm(dialogs.askProfile)}),
            addInClass(kExcelAddIn.progId, {setCompanyID()}), frameworkClass(),
            locationClass(dialogs.chooseLocation)};
}

} // namespace zorvo
