#include "client/brendle.h"

#include "client/CallCommand.h"
#include "client/CreateCommand.h"
#include "client/CreateOptions.h"
#include "client/DoctorCommand.h"
#include "client/RegistryCommand.h"
#include "client/SettingCommand.h"
#include "client/exitCodes.h"
#include "client/serviceCommands.h"

#include <algorithm>
#include <iterator>

namespace zorvo {

namespace {

struct Command {
    const char* name;
    const char* arguments;
    const char* purpose;
    int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
};

constexpr Command kCommands[] = {
    {"show", "[--company ID]", "Opens the catalogue window, as the company ID if one is given.",
     runShowCommand},
    {"select", "", "Opens the window for a selection, waits until it has gone and prints what was selected.",
     runSelectCommand},
    {"engagements", "", "Lists the ready-made engagements and prints the chosen one.", runEngagementsCommand},
    {"search", "", "Opens the search of the example library.", runSearchCommand},
    {"about", "", "Shows the About box.", runAboutCommand},
    {"help", "", "Shows the help contents.", runHelpCommand},
    {"top", "", "Brings the window to the front, if it is open.", runTopCommand},
    {"status", "[--all] [--tessora]",
     "Prints the product status document: with all offerings, of the Tessora products only.",
     runStatusCommand},
    {"treeorder", "", "Prints the path of the tree order file in use.", runTreeOrderCommand},
    {"create", kCreateArguments,
     "Makes documents from templates in a folder, unattended, and prints a line for each.\n"
     "FOLDER is made when it isn't there; no file in it is ever written over. FILE is a selection as a\n"
     "partner's session hands it over. NAME is the document's name in the catalogue, * all of the "
     "product's.\n"
     "--json prints one JSON object instead. The exit code is 1 when a document failed.",
     runCreateCommand},
    {"doctor", "[--json]",
     "Looks the machine over for the help desk: programs, folders, products, settings and add-ins.\n"
     "It changes nothing. --json prints one JSON object. The exit code is 1 when something is wrong.",
     runDoctorCommand},
    {"call", "PROGID OPERATION [ARG ...]",
     "Calls any operation of a registered class and prints each result on a line of its own.\n"
     "An ARG is text, a number, true or false, as the operation takes it; an array is [first,second] or a\n"
     "JSON array of texts, [] when empty; a missing variant is ''.",
     runCallCommand},
    {"registry",
     "import FILE.reg | export KEY [FILE.reg] | list KEY | get KEY [VALUE] |\n"
     "       set KEY VALUE DATA [--type REG_SZ|REG_DWORD|...] | delete KEY [VALUE]",
     "Works on the registry store.", runRegistryCommand},
    {"setting", "list | get KEY | set KEY DATA", "Works on the user's stored settings.", runSettingCommand},
};

bool isHelp(const std::string& sArgument)
{
    return sArgument == "--help" || sArgument == "-h";
}

std::string usageOf(const Command& command)
{
    const std::string sName = std::string("usage: brendle ") + command.name;
    return *command.arguments ? sName + ' ' + command.arguments : sName;
}

void printOverview(std::ostream& out)
{
    out << "usage: brendle COMMAND [ARGUMENT ...]\n\nCommands:\n";
    for (const Command& command : kCommands) {
        const std::string sPurpose = command.purpose;
        const std::string sName = command.name;
        out << "  " << sName << std::string(13 - sName.size(), ' ') << sPurpose.substr(0, sPurpose.find('\n'))
            << '\n';
    }
    out << "\nbrendle COMMAND --help tells more about a command.\n";
}

} // namespace

int runBrendle(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    if (!args.empty() && isHelp(args[0])) {
        printOverview(out);
        return kExitDone;
    }
    const auto* found =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&args](const Command& command) { return !args.empty() && args[0] == command.name; });
    if (found == std::end(kCommands)) {
        err << "usage: brendle COMMAND [ARGUMENT ...]; brendle --help lists the commands\n";
        return kExitWrongUsage;
    }
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (!rest.empty() && isHelp(rest[0])) {
        out << usageOf(*found) << "\n\n" << found->purpose << '\n';
        return kExitDone;
    }
    return found->run(rest, out, err);
}

} // namespace zorvo
