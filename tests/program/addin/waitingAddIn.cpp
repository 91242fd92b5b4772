// The products' add-in with one thing more: it waits at the documents that a test names, so that the test
// can do what it wants at that very document, however quick or slow the machine is.
//
// $HOME/wait-at holds the numbers of those documents, counted from 1 over all offices of a batch; without the
// file the add-in goes on. $HOME/stuffed gets a character for each document that comes by.

#include "companions/office/AddIn.h"

#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/factory.hxx>
#include <uno/lbnames.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace css = com::sun::star;
using css::uno::Reference;
using rtl::OUString;

namespace {

std::filesystem::path fileAtHome(const char* name)
{
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home != nullptr ? home : "/nonexistent") / name;
}

/// The number of the document that comes by now.
std::uintmax_t countDocument()
{
    const std::filesystem::path count = fileAtHome("stuffed");
    std::ofstream(count, std::ios::app) << '.';
    std::error_code missing;
    return std::filesystem::file_size(count, missing);
}

bool isNamed(std::uintmax_t number)
{
    std::ifstream file(fileAtHome("wait-at"));
    for (std::uintmax_t each = 0; file >> each;)
        if (each == number)
            return true;
    return false;
}

class WaitingAddIn : public zorvo::AddIn {
public:
    using AddIn::AddIn;

    Any SAL_CALL invoke(const OUString& name, const Arguments& arguments,
                        css::uno::Sequence<sal_Int16>& outIndexes, Arguments& out) override
    {
        if (name == "StuffProperties")
            for (const std::uintmax_t number = countDocument(); isNamed(number);)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return AddIn::invoke(name, arguments, outIndexes, out);
    }
};

Reference<css::uno::XInterface> makeConnection(const Reference<css::uno::XComponentContext>& /*context*/)
{
    return static_cast<cppu::OWeakObject*>(new WaitingAddIn("ZorvoTSR.Connect"));
}

} // namespace

EXPORTED void component_getImplementationEnvironment(const char** environment, uno_Environment** /*own*/)
{
    *environment = CPPU_CURRENT_LANGUAGE_BINDING_NAME;
}

EXPORTED void* component_getFactory(const char* name, void* /*manager*/, void* /*key*/)
{
    const OUString wanted = OUString::createFromAscii(name);
    const Reference<css::lang::XSingleComponentFactory> factory =
        cppu::createSingleComponentFactory(makeConnection, wanted, css::uno::Sequence<OUString>(&wanted, 1));
    factory->acquire();
    return factory.get();
}
