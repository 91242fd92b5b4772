#pragma once

#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/RecordingOffice.h"
#include "tests/fakes/installFakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvo {

/// Files in memory in which whatever the office stores looks like a Word or Excel file.
class OfficeFiles : public FakeFiles {
public:
    void write(const std::string& path, std::string_view bytes) override;

    /// With false it looks like nothing.
    bool bGoodFiles = true;
};

/// A machine with two editions of a product and one of another, their templates and catalogues, and an
/// office.
class CreateTest : public testing::Test {
protected:
    CreateTest();
    ~CreateTest() override;

    struct Run {
        int nExit = -1;
        std::string out;
        std::string err;
    };
    /// `brendle create` with these arguments.
    static Run create(const std::vector<std::string>& args);
    /// The same with `--to C:\Out` ahead.
    static Run createInOut(std::vector<std::string> args);

    /// A product year: the registry's entry and the catalogue's element.
    void addProduct(const std::string& sKey, const std::string& sYear, const std::string& sDocuments);
    static std::string document(const std::string& sName, const std::string& sFile);
    void writeCatalogues();

    FakePlatform fakes;
    std::shared_ptr<OfficeFiles> files = std::make_shared<OfficeFiles>();
    std::shared_ptr<RecordingOffice> office = std::make_shared<RecordingOffice>();

private:
    std::string sTreeOrder_;
    std::string sLibrary_;
};

} // namespace zorvo
