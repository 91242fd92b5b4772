#include "tests/bus/ProbeClasses.h"

#include "base/RunTimeError.h"

#include <QEventLoop>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace zorvo {

namespace {

using Kind = ArgumentKind;
using Direction = ArgumentDirection;
using Arguments = std::vector<Value>;

int& living()
{
    static int nLiving = 0;
    return nLiving;
}

std::vector<QEventLoop*>& modalLoops()
{
    static std::vector<QEventLoop*> loops;
    return loops;
}

struct Probe : AutomationObject {
    Probe() { ++living(); }
    ~Probe() override { --living(); }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;
    std::string sNote;
};

void runModal()
{
    QEventLoop loop;
    modalLoops().push_back(&loop);
    loop.exec();
    modalLoops().pop_back();
}

std::string described(const Value& value)
{
    if (std::holds_alternative<std::monostate>(value))
        return "missing";
    if (const auto* b = std::get_if<bool>(&value))
        return *b ? "b True" : "b False";
    if (const auto* n = std::get_if<std::int16_t>(&value))
        return "n " + std::to_string(*n);
    if (const auto* n = std::get_if<std::int32_t>(&value))
        return "i " + std::to_string(*n);
    if (const auto* n = std::get_if<std::uint32_t>(&value))
        return "u " + std::to_string(*n);
    if (const auto* s = std::get_if<std::string>(&value))
        return "s " + *s;
    return "other";
}

template <typename Body>
AutomationOperation operation(const char* name, std::vector<AutomationArgument> arguments, Body body)
{
    return {name, std::move(arguments), [body](AutomationObject& instance, Arguments& values) -> Value {
                return body(instance, values);
            }};
}

AutomationClass probeClass(ProbeHost& host)
{
    const AutomationArgument textResult{"text", Kind::text, Direction::result};
    const AutomationArgument numberResult{"number", Kind::int32, Direction::result};
    const AutomationArgument textIn{"sText", Kind::text, Direction::in};
    const AutomationArgument numberIn{"nNumber", Kind::int32, Direction::in};
    return {"Test.Probe",
            {
                operation("Echo", {textIn, textResult}, [](auto&, Arguments& values) { return values[0]; }),
                operation("Nothing", {}, [](auto&, Arguments&) { return Value(); }),
                operation("Modal", {numberResult},
                          [](auto&, Arguments&) {
                              runModal();
                              return Value(living());
                          }),
                operation("FinishModal", {},
                          [](auto&, Arguments&) {
                              if (modalLoops().empty())
                                  throw RunTimeError(kInvalidCall, "nothing is modal");
                              modalLoops().back()->quit();
                              return Value();
                          }),
                operation("FinishOldestModal", {},
                          [](auto&, Arguments&) {
                              modalLoops().front()->quit();
                              return Value();
                          }),
                operation("Fail", {numberIn, textIn},
                          [](auto&, Arguments& values) -> Value {
                              throw RunTimeError(std::get<std::int32_t>(values[0]),
                                                 std::get<std::string>(values[1]));
                          }),
                operation("FailStrangely", {},
                          [](auto&, Arguments&) -> Value { throw std::runtime_error("not one of ours"); }),
                operation("Walk",
                          {textIn,
                           {"sValues", Kind::textArray, Direction::inOut},
                           {"nCount", Kind::int32, Direction::inOut},
                           numberResult},
                          [](auto&, Arguments& values) {
                              auto list = std::get<std::vector<std::string>>(values[1]);
                              list.push_back(std::get<std::string>(values[0]));
                              values[2] = std::get<std::int32_t>(values[2]) + 1;
                              values[1] = std::move(list);
                              return Value(std::int32_t{259});
                          }),
                operation("Info",
                          {textIn,
                           {"bInstalled", Kind::boolean, Direction::out},
                           {"appPath", Kind::text, Direction::out},
                           {"hHive", Kind::uint32, Direction::in}},
                          [](auto&, Arguments& values) {
                              values[1] = std::get<std::uint32_t>(values[3]) == 0x80000002U;
                              values[2] = "C:\\" + std::get<std::string>(values[0]);
                              return Value();
                          }),
                operation("Kinds",
                          {{"first", Kind::variant, Direction::in},
                           {"second", Kind::variant, Direction::in},
                           textResult},
                          [](auto&, Arguments& values) {
                              return Value(described(values[0]) + ", " + described(values[1]));
                          }),
                operation("WrongKind", {numberResult},
                          [](auto&, Arguments&) { return Value(std::string("abc")); }),
                operation("Living", {numberResult}, [](auto&, Arguments&) { return Value(living()); }),
                operation("SetNote", {textIn},
                          [](AutomationObject& instance, Arguments& values) {
                              dynamic_cast<Probe&>(instance).sNote = std::get<std::string>(values[0]);
                              return Value();
                          }),
                operation("Note", {textResult},
                          [](AutomationObject& instance, Arguments&) {
                              return Value(dynamic_cast<Probe&>(instance).sNote);
                          }),
                operation("LoadForm", {},
                          [&host](auto&, Arguments&) {
                              host.bFormLoaded = true;
                              return Value();
                          }),
                operation("UnloadFormAfter", {numberIn},
                          [&host](auto&, Arguments& values) {
                              QTimer::singleShot(std::get<std::int32_t>(values[0]), [&host] {
                                  host.bFormLoaded = false;
                                  host.reconsiderEnd();
                              });
                              return Value();
                          }),
                operation("End", {textIn, {"sOut", Kind::textArray, Direction::inOut}, textResult},
                          [&host](auto&, Arguments&) {
                              host.endProcess();
                              return Value();
                          }),
                operation("Crash", {}, [](auto&, Arguments&) -> Value { std::_Exit(9); }),
            },
            [] { return std::make_shared<Probe>(); }};
}

} // namespace

std::vector<AutomationClass> probeClasses(ProbeHost& host)
{
    AutomationClass refusing{
        "Test.Refusing", {}, []() -> AutomationObjectPtr { throw RunTimeError(70, "not today"); }};
    return {probeClass(host), std::move(refusing)};
}

} // namespace zorvo
