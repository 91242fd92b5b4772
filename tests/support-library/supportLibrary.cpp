#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

void note(const std::string& line)
{
    if (const char* file = std::getenv("SUPPORT_LIBRARY_NOTES"))
        std::ofstream(file, std::ios::app) << line << '\n';
}

struct Life {
    Life() { note("loaded"); }
    ~Life() { note("freed"); }
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;
};

const Life life;

} // namespace

extern "C" {

void GetAppInfoEx2(const char* folder, std::int32_t window, const char* report, const char* company)
{
    note(std::string(folder) + "|" + (window != 0 ? "window" : "none") + "|" + report + "|" + company);
}
}
