#include "platform/linux/LibreOffice.h"
#include "tests/office/TestDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

/// A batch costs what the office's own conversion of the same templates costs, start and end included.
namespace zorvo {

namespace {

namespace fs = std::filesystem;
using Seconds = std::chrono::duration<double>;

constexpr int kDocuments = 50;
constexpr double kMostTimes = 1.15;

template <typename Work>
double secondsOf(const Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

void makeBatch(const fs::path& templates, const fs::path& folder)
{
    const auto office = makeLibreOffice();
    const auto word = office->createWord();
    for (int n = 0; n < kDocuments; ++n) {
        word->documentsAdd(dos(templates / (std::to_string(n) + ".DOT")));
        word->activeDocument()->saveAs(dos(folder / (std::to_string(n) + ".doc")), 0);
        word->activeDocument()->close();
    }
    word->quit();
}

void convertAll(const fs::path& templates, const fs::path& folder)
{
    const std::string command = "soffice -env:UserInstallation=file://" +
                                (TestDesk::instance().root() / "converter").string() +
                                " --headless --convert-to 'doc:MS Word 97' --outdir '" + folder.string() +
                                "' '" + templates.string() + "'/*.DOT >/dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0);
}

long filesIn(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

} // namespace

TEST(Speed, ABatchCostsNoMoreThanOneConversionOfAll)
{
    TestDesk& desk = TestDesk::instance();
    const fs::path templates = desk.newFolder();
    for (int n = 0; n < kDocuments; ++n)
        fs::copy_file(desk.templates() / "LETTER.DOT", templates / (std::to_string(n) + ".DOT"));
    // Another program's work may hit either; the best of some pairs counts.
    double best = 1000;
    for (int nPair = 0; nPair < 5 && best > kMostTimes; ++nPair) {
        const fs::path converted = desk.newFolder();
        const fs::path made = desk.newFolder();
        const double conversion = secondsOf([&] { convertAll(templates, converted); });
        const double batch = secondsOf([&] { makeBatch(templates, made); });
        ASSERT_EQ(filesIn(converted), kDocuments);
        ASSERT_EQ(filesIn(made), kDocuments);
        best = std::min(best, batch / conversion);
    }
    RecordProperty("times", std::to_string(best));
    EXPECT_LE(best, kMostTimes);
}

} // namespace zorvo
