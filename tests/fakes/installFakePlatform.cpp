#include "tests/fakes/installFakePlatform.h"

namespace zorvo {

FakePlatform::FakePlatform()
    : before_(platform())
{
    files->addFolder(folders->sProgram);
    files->addFolder(folders->sDocuments);
    files->addFolder(folders->sTemporary);
    Platform fakes;
    fakes.registry = registry;
    fakes.settings = settings;
    fakes.files = files;
    fakes.folders = folders;
    fakes.launcher = launcher;
    fakes.libraries = libraries;
    fakes.machine = machine;
    platform() = fakes;
}

FakePlatform::~FakePlatform()
{
    platform() = before_;
}

} // namespace zorvo
