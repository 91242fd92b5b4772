#include "tests/creation/CreationTest.h"

#include "base/sessionState.h"
#include "branding/xmlCaptionLoaderManager.h"
#include "creation/CreationForms.h"
#include "creation/creationState.h"
#include "tree/SelectionConsumer.h"
#include "tree/treeState.h"
#include "window/clsMousePointer.h"

#include <QCoreApplication>

namespace zorvo {

namespace {

void freshState()
{
    sessionState() = SessionState();
    captionState() = CaptionState();
    treeState() = TreeState();
    creationState() = CreationState();
    creationForms() = nullptr;
    setSelectionConsumer({});
    goMousePointer().ClearMousePointer();
}

} // namespace

CreationTest::CreationTest()
{
    freshState();
    platform().office = office;
    platform().objects = objects;
    fakes.files->addFile("C:\\T\\Letter.dot");
    fakes.files->addFile("C:\\T\\Budget.xlt");
    fakes.files->addFolder("C:\\Out");
}

CreationTest::~CreationTest()
{
    freshState();
}

void CreationTest::watchPendingEvents()
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [this] { nCallsAtPendingEvents = static_cast<int>(office->calls().size()); }, Qt::QueuedConnection);
}

Lines joined(const std::vector<Lines>& parts)
{
    Lines result;
    for (const Lines& part : parts)
        result.insert(result.end(), part.begin(), part.end());
    return result;
}

} // namespace zorvo
