#include "client/serviceCommands.h"

#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "client/handOver.h"
#include "client/programServer.h"
#include "platform/linux/linuxPlatform.h"

#include <functional>

namespace zorvo {

namespace {

constexpr const char* kTreeSelector = "ZorvoTSelector.ZorvoTreeSelector";
constexpr const char* kProductStatus = "ZorvoTSelector.clsZorvoProductStatus";

int wrongUsage(std::ostream& err, const char* usage)
{
    err << "usage: brendle " << usage << '\n';
    return kExitWrongUsage;
}

/// Runs a call; a failure is one line on `err`.
int guarded(std::ostream& err, const std::function<void()>& work)
{
    try {
        work();
        return kExitDone;
    } catch (const RunTimeError& error) {
        err << failureLine(error) << '\n';
        return kExitFailed;
    }
}

/// A subcommand that takes nothing, calls one operation and prints its text, if it has one.
int runPlain(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, const char* name,
             const char* progId, const char* operation)
{
    if (!args.empty())
        return wrongUsage(err, name);
    return guarded(err, [&] {
        const Value result = createProgramObject(progId)->call(operation);
        if (const auto* text = std::get_if<std::string>(&result))
            out << *text << '\n';
    });
}

void printHandOver(const HandOverFile& file, std::ostream& out)
{
    if (const auto text = file.newText())
        out << *text << '\n';
}

} // namespace

int runShowCommand(const std::vector<std::string>& args, std::ostream& /*out*/, std::ostream& err)
{
    const std::string kCompany = "--company";
    if (args.empty())
        return guarded(err, [] { createProgramObject(kTreeSelector)->call("ShowTreeDirectly"); });
    std::string sCompany;
    if (args.size() == 2 && args[0] == kCompany)
        sCompany = args[1];
    else if (args.size() == 1 && args[0].rfind(kCompany + '=', 0) == 0)
        sCompany = args[0].substr(kCompany.size() + 1);
    else
        return wrongUsage(err, "show [--company ID]");
    return guarded(
        err, [&sCompany] { createProgramObject(kTreeSelector)->call("ShowTreeForCompany", {sCompany}); });
}

int runSelectCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (!args.empty())
        return wrongUsage(err, "select");
    return guarded(err, [&out] {
        installLinuxPlatform();
        const auto selector = createProgramObject(kTreeSelector);
        const HandOverFile file;
        ServerEnd end(*selector);
        selector->call("ShowTreeDFS");
        // The window's last acts are the file and the end of its process.
        end.wait();
        printHandOver(file, out);
    });
}

int runEngagementsCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (!args.empty())
        return wrongUsage(err, "engagements");
    return guarded(err, [&out] {
        installLinuxPlatform();
        const auto selector = createProgramObject(kTreeSelector);
        const HandOverFile file;
        selector->call("ShowEngagementListDFS");
        printHandOver(file, out);
    });
}

int runSearchCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runPlain(args, out, err, "search", kTreeSelector, "searchSWD");
}

int runAboutCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runPlain(args, out, err, "about", kTreeSelector, "show_aboutDialog");
}

int runHelpCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runPlain(args, out, err, "help", kTreeSelector, "QBK_Help");
}

int runTopCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runPlain(args, out, err, "top", kTreeSelector, "makeTopWindow");
}

int runStatusCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    bool bAll = false;
    bool bTessora = false;
    for (const std::string& sArgument : args) {
        if (sArgument != "--all" && sArgument != "--tessora")
            return wrongUsage(err, "status [--all] [--tessora]");
        (sArgument == "--all" ? bAll : bTessora) = true;
    }
    return guarded(err, [&] {
        const Value xml = createProgramObject(kProductStatus)->call("sGetProductStatusXML", {bTessora, bAll});
        out << std::get<std::string>(xml) << '\n';
    });
}

int runTreeOrderCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runPlain(args, out, err, "treeorder", kProductStatus, "sGetTreeOrderXML");
}

} // namespace zorvo
