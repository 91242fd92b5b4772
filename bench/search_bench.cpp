// How long the search of a library's examples takes, first and again, against grep over the same files.
//
//   bench_search [number of files]      10,000 of 20 KB by default
//
// Exit code 1 when the first search takes more than 3 times as long as `grep -rilF`, a repeated one more than
// 0.3 times, or when they don't find the same files.

#include "platform/linux/filesearch/LinuxFileSearch.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

constexpr double kMostOfFirst = 3;
constexpr double kMostOfRepeated = 0.3;
constexpr std::size_t kDefaultFiles = 10'000;
constexpr std::size_t kFileSize = 20'000;
constexpr std::size_t kWords = 8'000;
/// The rounds follow one another, so that a machine's other work falls on all alike.
constexpr int kRounds = 5;

/// Words of 2 to 11 letters, the first of them as frequent as in a language.
class RandomProse {
public:
    RandomProse()
    {
        for (std::size_t i = 0; i < kWords; ++i) {
            std::string sWord;
            for (std::size_t n = 2 + engine_() % 10; n > 0; --n)
                sWord.push_back(static_cast<char>('a' + engine_() % 26));
            words_.push_back(sWord);
            weights_.push_back(1.0 / static_cast<double>(i + 5));
        }
        distribution_ = std::discrete_distribution<std::size_t>(weights_.begin(), weights_.end());
    }

    std::string file(bool bWithWord)
    {
        std::string sFile = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}}"
                            "{\\stylesheet{\\s0 Normal;}}\r\n";
        while (sFile.size() < kFileSize) {
            sFile += "\\pard\\plain\\s0\\sb120\\sl240\\fs24\\f0 ";
            for (int n = 0; n < 12; ++n)
                sFile += words_[distribution_(engine_)] + ' ';
            sFile += "{\\b " + words_[distribution_(engine_)] + "} \\u8211? ";
            for (int n = 0; n < 20; ++n)
                sFile += words_[distribution_(engine_)] + ' ';
            if (bWithWord && sFile.size() > kFileSize / 2)
                sFile += "Zebracorn ";
            sFile += "\\par\r\n";
        }
        return sFile + '}';
    }

private:
    std::mt19937 engine_{20240305};
    std::vector<std::string> words_;
    std::vector<double> weights_;
    std::discrete_distribution<std::size_t> distribution_;
};

void fillLibrary(const std::string& sFolder, std::size_t nFiles)
{
    RandomProse prose;
    std::array<char, 32> name{};
    for (std::size_t i = 0; i < nFiles; ++i) {
        std::snprintf(name.data(), name.size(), "/Example%05zu.rtf", i);
        putFile(sFolder + name.data(), prose.file(i % 50 == 0));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // a file just written isn't kept
}

double secondsOf(const std::function<std::size_t()>& search, std::size_t nWanted)
{
    const auto start = std::chrono::steady_clock::now();
    const std::size_t nFound = search();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (nFound != nWanted) {
        std::printf("%zu files found, not %zu\n", nFound, nWanted);
        std::exit(EXIT_FAILURE);
    }
    return taken.count();
}

std::size_t grep(const std::string& sFolder)
{
    FILE* lines = popen(("grep -rilF zebracorn '" + sFolder + "'").c_str(), "r");
    std::size_t nLines = 0;
    for (int c = std::fgetc(lines); c != EOF; c = std::fgetc(lines))
        nLines += c == '\n' ? 1 : 0;
    pclose(lines);
    return nLines;
}

std::size_t find(LinuxFileSearch& search)
{
    return search.find({"C:\\lib", "zebracorn", "*.rtf"}, {}).size();
}

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool run(std::size_t nFiles)
{
    const TemporaryFolder folder;
    fs::create_directories(folder / "lib");
    fs::create_directories(folder / "dosdevices");
    fs::create_symlink(folder.path(), folder / "dosdevices/c:");
    fillLibrary(folder / "lib", nFiles);
    const std::size_t nWanted = (nFiles + 49) / 50;
    const std::string sCache = folder / "cache/search.db";
    LinuxFileSearch search(DosPaths(folder.path()), sCache);

    std::vector<double> greps;
    std::vector<double> firsts;
    std::vector<double> repeats;
    for (int round = -1; round < kRounds; ++round) {
        fs::remove(sCache);
        const double nGrep = secondsOf([&] { return grep(folder / "lib"); }, nWanted);
        const double nFirst = secondsOf([&] { return find(search); }, nWanted);
        const double nRepeated = secondsOf([&] { return find(search); }, nWanted);
        if (round < 0)
            continue; // it warms the disk's cache
        greps.push_back(nGrep);
        firsts.push_back(nFirst);
        repeats.push_back(nRepeated);
    }
    const double nGrep = medianOf(greps);
    const double nFirst = medianOf(firsts) / nGrep;
    const double nRepeated = medianOf(repeats) / nGrep;
    std::printf("%zu files of 20 KB, grep %.0f ms: first search %.2f times (limit %.1f), again %.2f times "
                "(limit %.1f), cache %.1f MB\n",
                nFiles, nGrep * 1e3, nFirst, kMostOfFirst, nRepeated, kMostOfRepeated,
                static_cast<double>(fs::file_size(sCache)) / 1e6);
    return nFirst <= kMostOfFirst && nRepeated <= kMostOfRepeated;
}

} // namespace

} // namespace zorvo

int main(int argc, char** argv)
{
    const std::size_t nFiles = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : zorvo::kDefaultFiles;
    return zorvo::run(nFiles) ? EXIT_SUCCESS : EXIT_FAILURE;
}
