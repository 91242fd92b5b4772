#include "shell/automationClasses.h"

#include "base/RunTimeError.h"
#include "catalogue/clsZorvoProductStatus.h"
#include "shell/ZorvoTreeSelector.h"
#include "shell/clsAbout.h"
#include "shell/clsHelpDisplay.h"
#include "shell/clsSWDSearch.h"

#include <limits>
#include <utility>

namespace zorvo {

namespace {

using Direction = ArgumentDirection;
using Kind = ArgumentKind;

/// An operation with no argument and no result.
template <typename Class>
AutomationOperation plainOperation(const char* name, void (Class::*operation)())
{
    return {name, {}, [operation](AutomationObject& instance, std::vector<Value>& /*arguments*/) -> Value {
                (dynamic_cast<Class&>(instance).*operation)();
                return {};
            }};
}

template <typename Class>
AutomationClass automationClass(const char* progId, std::vector<AutomationOperation> operations)
{
    return {progId, std::move(operations), [] { return std::make_shared<Class>(); }};
}

/// A flag as automation carries it: a missing one is false, a Boolean true is -1, a number is itself.
std::int16_t flag(const Value& value)
{
    if (std::holds_alternative<std::monostate>(value))
        return 0;
    if (const auto* b = std::get_if<bool>(&value))
        return *b ? -1 : 0;
    if (const auto* n = std::get_if<std::int16_t>(&value))
        return *n;
    if (const auto* n = std::get_if<std::int32_t>(&value)) {
        if (*n < std::numeric_limits<std::int16_t>::min() || *n > std::numeric_limits<std::int16_t>::max())
            throw RunTimeError(kOverflow);
        return static_cast<std::int16_t>(*n);
    }
    throw RunTimeError(kTypeMismatch);
}

AutomationClass treeSelectorClass()
{
    using Class = ZorvoTreeSelector;
    return automationClass<Class>(
        "ZorvoTSelector.ZorvoTreeSelector",
        {
            plainOperation("ShowTreeDirectly", &Class::ShowTreeDirectly),
            plainOperation("ShowTreeDFS", &Class::ShowTreeDFS),
            plainOperation("ShowEngagementListDFS", &Class::ShowEngagementListDFS),
            plainOperation("searchSWD", &Class::searchSWD),
            plainOperation("show_aboutDialog", &Class::show_aboutDialog),
            plainOperation("QBK_Help", &Class::QBK_Help),
            plainOperation("makeTopWindow", &Class::makeTopWindow),
            {"ShowTreeForCompany",
             {{"sCompanyID", Kind::text, Direction::in}},
             [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
                 dynamic_cast<Class&>(instance).ShowTreeForCompany(std::get<std::string>(arguments[0]));
                 return {};
             }},
        });
}

AutomationClass productStatusClass()
{
    using Class = clsZorvoProductStatus;
    return automationClass<Class>(
        "ZorvoTSelector.clsZorvoProductStatus",
        {
            {"sGetProductStatusXML",
             {{"bNoctaOnly", Kind::variant, Direction::in},
              {"bAllProducts", Kind::variant, Direction::in},
              {"result", Kind::text, Direction::result}},
             [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
                 return dynamic_cast<Class&>(instance).sGetProductStatusXML(flag(arguments[0]),
                                                                            flag(arguments[1]));
             }},
            {"GetQBKInfo",
             {{"sProductType", Kind::text, Direction::in},
              {"ProductGroup", Kind::text, Direction::in},
              {"version", Kind::text, Direction::in},
              {"hHive", Kind::uint32, Direction::in},
              {"bInstalled", Kind::boolean, Direction::out},
              {"appPath", Kind::text, Direction::out}},
             [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
                 bool bInstalled = false;
                 std::string appPath;
                 dynamic_cast<Class&>(instance).GetQBKInfo(
                     std::get<std::string>(arguments[0]), std::get<std::string>(arguments[1]),
                     std::get<std::string>(arguments[2]), bInstalled, appPath,
                     static_cast<Hive>(std::get<std::uint32_t>(arguments[3])));
                 arguments[4] = bInstalled;
                 arguments[5] = appPath;
                 return {};
             }},
            {"sGetTreeOrderXML",
             {{"result", Kind::text, Direction::result}},
             [](AutomationObject& instance, std::vector<Value>& /*arguments*/) -> Value {
                 return dynamic_cast<Class&>(instance).sGetTreeOrderXML();
             }},
            {"nGetNestedKeyValues",
             {{"pKey", Kind::text, Direction::in},
              {"sSearchKey", Kind::text, Direction::in},
              {"sStringValueKey", Kind::text, Direction::in},
              {"sRetValue", Kind::textArray, Direction::inOut},
              {"nRetCount", Kind::int32, Direction::inOut},
              {"result", Kind::int32, Direction::result}},
             [](AutomationObject& instance, std::vector<Value>& arguments) -> Value {
                 return dynamic_cast<Class&>(instance).nGetNestedKeyValues(
                     std::get<std::string>(arguments[0]), std::get<std::string>(arguments[1]),
                     std::get<std::string>(arguments[2]), std::get<std::vector<std::string>>(arguments[3]),
                     std::get<std::int32_t>(arguments[4]));
             }},
        });
}

} // namespace

std::vector<AutomationClass> automationClasses()
{
    return {
        treeSelectorClass(),
        automationClass<clsAbout>("ZorvoTSelector.clsAbout",
                                  {plainOperation("show_QBK_About", &clsAbout::show_QBK_About)}),
        automationClass<clsHelpDisplay>("ZorvoTSelector.clsHelpDisplay",
                                        {plainOperation("show_QBK_Help", &clsHelpDisplay::show_QBK_Help)}),
        automationClass<clsSWDSearch>("ZorvoTSelector.clsSWDSearch",
                                      {plainOperation("SWD_RunSearch", &clsSWDSearch::SWD_RunSearch)}),
        productStatusClass(),
    };
}

} // namespace zorvo
