#include "tests/bus/StandInClasses.h"

#include "base/RunTimeError.h"

#include <QEventLoop>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zorvo {

namespace {

using Kind = ArgumentKind;
using Direction = ArgumentDirection;
using Arguments = std::vector<Value>;
namespace fs = std::filesystem;

fs::path home()
{
    return std::getenv("HOME");
}

void note(const std::string& sLine)
{
    std::ofstream(home() / "diary", std::ios::app) << sLine << '\n';
}

fs::path handOverFolder()
{
    return home() / "Halvern House" / "Brendle";
}

void beginSession()
{
    fs::remove(handOverFolder() / "DFS_DFK.txt");
}

void handOver()
{
    std::ifstream answer(home() / "answer");
    if (!answer)
        return;
    fs::create_directories(handOverFolder());
    std::ofstream(handOverFolder() / "DFS_DFK.txt", std::ios::binary) << '"' << answer.rdbuf() << "\"\r\n";
}

AutomationOperation plain(const char* name, std::function<void()> body)
{
    return {name, {}, [name, body = std::move(body)](AutomationObject&, Arguments&) -> Value {
                note(name);
                body();
                return {};
            }};
}

std::string flag(const Value& value)
{
    const auto* b = std::get_if<bool>(&value);
    return b ? (*b ? "True" : "False") : "other";
}

AutomationClass treeSelector(ProbeHost& host)
{
    return {
        "ZorvoTSelector.ZorvoTreeSelector",
        {
            plain("ShowTreeDirectly", [] {}),
            plain("ShowTreeDFS",
                  [&host] {
                      beginSession();
                      host.bFormLoaded = true;
                      QTimer::singleShot(300, [&host] {
                          handOver();
                          host.endProcess();
                      });
                  }),
            plain("ShowEngagementListDFS",
                  [] {
                      beginSession();
                      QEventLoop loop;
                      QTimer::singleShot(200, &loop, &QEventLoop::quit);
                      loop.exec();
                      handOver();
                  }),
            plain("searchSWD", [] {}),
            plain("show_aboutDialog", [] {}),
            plain("QBK_Help", [&host] { host.endProcess(); }),
            plain("makeTopWindow", [] { throw RunTimeError(kObjectNotSet, "first line\r\nsecond line"); }),
            {"ShowTreeForCompany",
             {{"sCompanyID", Kind::text, Direction::in}},
             [](AutomationObject&, Arguments& values) -> Value {
                 note("ShowTreeForCompany '" + std::get<std::string>(values[0]) + "'");
                 return {};
             }},
        },
        [] { return std::make_shared<AutomationObject>(); }};
}

AutomationClass productStatus()
{
    return {
        "ZorvoTSelector.clsZorvoProductStatus",
        {
            {"sGetProductStatusXML",
             {{"bNoctaOnly", Kind::variant, Direction::in},
              {"bAllProducts", Kind::variant, Direction::in},
              {"sXML", Kind::text, Direction::result}},
             [](AutomationObject&, Arguments& values) -> Value {
                 return "<status tessora=\"" + flag(values[0]) + "\" all=\"" + flag(values[1]) + "\"/>";
             }},
            {"sGetTreeOrderXML",
             {{"sPath", Kind::text, Direction::result}},
             [](AutomationObject&, Arguments&) -> Value { return std::string("C:\\tmp\\\\TreeOrder.xml"); }},
        },
        [] { return std::make_shared<AutomationObject>(); }};
}

} // namespace

std::vector<AutomationClass> standInClasses(ProbeHost& host)
{
    return {treeSelector(host), productStatus()};
}

} // namespace zorvo
