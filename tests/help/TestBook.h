#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zorvo::help {

/// Writes compiled help files for tests: any pages, sound or not, without compression.
class TestBook {
public:
    /// A file of the book; the path begins with "/".
    TestBook& add(const std::string& path, const std::string& bytes);
    /// A page with this body.
    TestBook& page(const std::string& path, const std::string& title, const std::string& body);
    TestBook& title(const std::string& title);
    TestBook& start(const std::string& page);
    /// Lines of the contents: name and page.
    TestBook& contents(const std::vector<std::pair<std::string, std::string>>& lines);
    TestBook& index(const std::vector<std::pair<std::string, std::string>>& lines);
    TestBook& number(std::uint32_t number, const std::string& page);

    std::string bytes() const;
    void write(const std::string& file) const;

private:
    std::map<std::string, std::string> allFiles() const;

    std::map<std::string, std::string> files_;
    std::map<std::uint32_t, std::string> numbers_;
    std::string title_;
    std::string start_;
};

/// Little endian.
std::string u32(std::uint32_t value);
std::string u16(std::uint32_t value);

/// A site map with one line for each pair of name and page.
std::string siteMapText(const std::vector<std::pair<std::string, std::string>>& lines);

std::string readFile(const std::string& file);
void writeFile(const std::string& file, const std::string& bytes);

/// The sample file of the build tree.
std::string sampleBook();

} // namespace zorvo::help
