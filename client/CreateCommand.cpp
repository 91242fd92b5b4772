#include "client/CreateCommand.h"

#include "base/paths.h"
#include "branding/companyIdentity.h"
#include "client/CreateOptions.h"
#include "client/DocumentMaker.h"
#include "client/TemplateFinder.h"
#include "client/exitCodes.h"
#include "client/failureLine.h"
#include "client/givenPath.h"
#include "client/outcomeText.h"
#include "client/profileFile.h"
#include "client/selectionFile.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/linuxPlatform.h"
#include "platform/machineAccess.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace zorvo {

namespace {

/// A document to make, or why there is none to.
struct Order {
    SelectedDocument document;
    std::string sObstacle;
};

std::vector<Order> ordersFor(const CreateOptions& options)
{
    std::vector<Order> orders;
    if (options.sSelectionFile) {
        for (SelectedDocument& document : readSelectionFile(givenPath(*options.sSelectionFile)))
            orders.push_back({std::move(document), {}});
        return orders;
    }
    const TemplateFinder finder;
    for (const TemplateName& name : options.templates) {
        try {
            for (SelectedDocument& document : finder.find(name))
                orders.push_back({std::move(document), {}});
        } catch (const RunTimeError& error) {
            orders.push_back({{.sTitle = name.text()}, error.description()});
        }
    }
    return orders;
}

/// The folder in backslash form, made if need be.
std::string targetFolder(const std::string& sGiven)
{
    const std::string sFolder = givenPath(sGiven);
    MakeNestedFolder(sFolder);
    if (!platform().files->folderExists(sFolder))
        throw RunTimeError(kPathNotFound, "The folder " + sGiven + " is not there and can't be made");
    return withBackslash(sFolder);
}

/// A line that a person at a terminal sees while documents are made.
class ProgressLine {
public:
    ProgressLine(std::ostream& err, std::size_t nTotal)
        : err_(err)
        , nTotal_(nTotal)
        , bShown_(&err == &std::cerr && isatty(STDERR_FILENO) == 1)
    {
    }

    void show(std::size_t nAt, const std::string& sTitle)
    {
        if (bShown_)
            err_ << kClearLine << nAt << " of " << nTotal_ << ": " << oneLine(sTitle) << std::flush;
    }
    void clear()
    {
        if (bShown_)
            err_ << kClearLine << std::flush;
    }

private:
    static constexpr const char* kClearLine = "\r\x1b[K";

    std::ostream& err_;
    std::size_t nTotal_;
    bool bShown_;
};

/// Where the documents go and what the add-in puts into them.
struct Delivery {
    std::string sFolder;
    std::string sProfileData;
};

std::vector<DocumentOutcome> carryOut(const std::vector<Order>& orders, const Delivery& delivery, bool bLines,
                                      std::ostream& out, std::ostream& err)
{
    std::vector<DocumentOutcome> outcomes;
    DocumentMaker maker(delivery.sFolder, delivery.sProfileData, err);
    ProgressLine progress(err, orders.size());
    for (const Order& order : orders) {
        progress.show(outcomes.size() + 1, order.document.sTitle);
        outcomes.push_back(order.sObstacle.empty() ? maker.make(order.document)
                                                   : DocumentOutcome{.sTitle = order.document.sTitle,
                                                                     .sReason = oneLine(order.sObstacle)});
        progress.clear();
        if (bLines)
            out << outcomeLine(outcomes.back()) << std::endl;
    }
    return outcomes;
}

int create(const CreateOptions& options, std::ostream& out, std::ostream& err)
{
    if (options.sCompany)
        StoreCompanyID(*options.sCompany);
    const std::vector<Order> orders = ordersFor(options);
    Delivery delivery;
    if (options.sProfileFile)
        delivery.sProfileData = readProfileFile(givenPath(*options.sProfileFile));
    delivery.sFolder = targetFolder(options.sFolder);
    const auto outcomes = carryOut(orders, delivery, !options.bJson, out, err);
    if (options.bJson)
        out << outcomeJson(outcomes, platform().files->toNative(delivery.sFolder));
    err << summaryLine(outcomes) << std::endl;
    const bool bAllCreated =
        std::all_of(outcomes.begin(), outcomes.end(), [](const auto& outcome) { return outcome.bCreated; });
    return bAllCreated ? kExitDone : kExitFailed;
}

} // namespace

int runCreateCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    installLinuxPlatform();
    platform().office = makeLibreOffice();
    return createDocuments(args, out, err);
}

int createDocuments(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto options = parseCreateOptions(args);
    if (!options) {
        err << "usage: brendle create " << kCreateArguments << '\n';
        return kExitWrongUsage;
    }
    try {
        return create(*options, out, err);
    } catch (const RunTimeError& error) {
        err << failureLine(error) << '\n';
        return kExitFailed;
    }
}

} // namespace zorvo
