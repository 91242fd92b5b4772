#include "pages/CommandLines.h"
#include "pages/FolderScheme.h"
#include "pages/PageHost.h"
#include "platform/pageProtocol.h"

#include <QApplication>

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

/// The engine and what it loads may write where they like; what reaches the program is ours alone.
void keepStandardOutputToUs()
{
    static std::ostream program(std::cout.rdbuf());
    zorvo::PageHost::setOutput(program);
    std::cout.rdbuf(std::cerr.rdbuf());
}

/// The engine doesn't find out by itself that somebody listens.
void serveAssistivePrograms()
{
    constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
    qputenv(kFlags, qgetenv(kFlags) + " --force-renderer-accessibility");
}

/// The engine draws with OpenGL. A window that finds this out later is made anew, and is no longer the one
/// that was put into the program's.
void drawWithOpenGlFromTheStart()
{
    qputenv("QT_WIDGETS_RHI", "1");
    qputenv("QT_WIDGETS_RHI_BACKEND", "opengl");
}

} // namespace

/// Shows pages within a window of the program that has started it. What to show, and where, it is told on its
/// standard input, with which it ends.
int main(int argc, char** argv)
{
    using namespace zorvo;
    if (argc > 1 && std::string_view(argv[1]) == pageProtocol::kAccessible)
        serveAssistivePrograms();
    drawWithOpenGlFromTheStart();
    FolderScheme::registerScheme();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zorvo-page"));
    QApplication::setQuitOnLastWindowClosed(false);
    keepStandardOutputToUs();

    PageHost host;
    const CommandLines commands([&host](const std::string& sLine) { host.take(pageProtocol::parse(sLine)); });
    host.greet();
    const int nResult = QApplication::exec();
    // The reader may be waiting on an input that never ends.
    std::_Exit(nResult);
}
