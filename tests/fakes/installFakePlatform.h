#pragma once

#include "platform/Platform.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeMachineSide.h"
#include "tests/fakes/FakeRegistry.h"
#include "tests/fakes/FakeSettings.h"

namespace zorvo {

/// The fakes of a machine's ports, installed in `platform()` as long as this lives; what was there before
/// comes back. The ports of office, objects, service and help are null: a test that needs one sets it in
/// `platform()`.
///
///     const FakePlatform fakes = installFakePlatform();
///     fakes.registry->setText(HKEY_CURRENT_USER, "Software\\Zorvo\\QBN", "TurnOffMenu", "Off");
class FakePlatform {
public:
    FakePlatform();
    ~FakePlatform();
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    const std::shared_ptr<FakeRegistry> registry = std::make_shared<FakeRegistry>();
    const std::shared_ptr<FakeSettings> settings = std::make_shared<FakeSettings>();
    /// Holds the program, documents and temporary folder of `folders`, empty.
    const std::shared_ptr<FakeFiles> files = std::make_shared<FakeFiles>();
    const std::shared_ptr<FakeSpecialFolders> folders = std::make_shared<FakeSpecialFolders>();
    const std::shared_ptr<RecordingLauncher> launcher = std::make_shared<RecordingLauncher>();
    const std::shared_ptr<FakeLibraryLoader> libraries = std::make_shared<FakeLibraryLoader>();
    const std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();

private:
    Platform before_;
};

inline FakePlatform installFakePlatform()
{
    return {};
}

} // namespace zorvo
