#include "platform/Platform.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/linuxPlatform.h"
#include "search/BuildExampleDocument.h"
#include "search/searchState.h"
#include "window/messageBox.h"

#include <chrono>
#include <cstdio>
#include <vector>

/// bench_result FOLDER FILE...: the result document of these examples, with the template in the folder;
/// prints the seconds that it took. Paths are backslash paths.
int main(int argc, char** argv)
{
    using namespace zorvo;
    installLinuxPlatform();
    platform().office = makeLibreOffice();
    bool bFailed = false;
    setMessageBoxHandler([&](const std::string& sPrompt, int /*nStyle*/, const std::string& /*sTitle*/) {
        std::fprintf(stderr, "%s\n", sPrompt.c_str());
        bFailed = true;
        return int{kMsgResultOk};
    });
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    SearchState& state = searchState();
    state.sSWDPath = {arguments.at(0)};
    state.sSWDTemplate = {"dot"};
    state.sSWDFoundFiles.assign(arguments.begin() + 1, arguments.end());
    state.nSWDFoundCount = static_cast<std::int16_t>(state.sSWDFoundFiles.size());

    const auto begin = std::chrono::steady_clock::now();
    BuildExampleDocument();
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::printf("%.4f\n", seconds.count());
    return bFailed ? 1 : 0;
}
