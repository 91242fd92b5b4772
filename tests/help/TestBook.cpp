#include "tests/help/TestBook.h"

#include "tests/support/testFolders.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace zorvo::help {

namespace {

constexpr std::size_t kBlock = 4096;
constexpr std::uint32_t kNone = 0xffffffffU;
const std::string kGuid(16, '\x11');

std::string u64(std::uint64_t value)
{
    return u32(static_cast<std::uint32_t>(value)) + u32(static_cast<std::uint32_t>(value >> 32U));
}

/// Seven bits a byte, the highest first.
std::string packed(std::uint64_t value)
{
    std::string bytes(1, static_cast<char>(value & 0x7fU));
    while ((value >>= 7U) != 0)
        bytes.insert(bytes.begin(), static_cast<char>((value & 0x7fU) | 0x80U));
    return bytes;
}

std::string directory(const std::map<std::string, std::string>& files)
{
    std::string entries;
    std::uint64_t offset = 0;
    std::size_t count = 0;
    for (const auto& [path, bytes] : files) {
        entries += packed(path.size()) + path + packed(0) + packed(offset) + packed(bytes.size());
        offset += bytes.size();
        ++count;
    }
    std::string block = "PMGL" + u32(static_cast<std::uint32_t>(kBlock - 20 - entries.size())) + u32(0) +
                        u32(kNone) + u32(kNone) + entries;
    block.resize(kBlock - 2);
    block += u16(static_cast<std::uint32_t>(count));
    return "ITSP" + u32(1) + u32(0x54) + u32(10) + u32(kBlock) + u32(2) + u32(1) + u32(kNone) + u32(0) +
           u32(0) + u32(kNone) + u32(1) + u32(0x409) + kGuid + u32(0x54) + u32(kNone) + u32(kNone) +
           u32(kNone) + block;
}

std::string systemEntry(std::uint32_t code, const std::string& text)
{
    return u16(code) + u16(static_cast<std::uint32_t>(text.size() + 1)) + text + '\0';
}

} // namespace

std::string u32(std::uint32_t value)
{
    return u16(value & 0xffffU) + u16(value >> 16U);
}

std::string u16(std::uint32_t value)
{
    return {static_cast<char>(value & 0xffU), static_cast<char>(value >> 8U & 0xffU)};
}

std::string siteMapText(const std::vector<std::pair<std::string, std::string>>& lines)
{
    std::string text = "<HTML><BODY><UL>\n";
    for (const auto& [name, page] : lines)
        text += "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name +
                "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>\n";
    return text + "</UL></BODY></HTML>\n";
}

TestBook& TestBook::add(const std::string& path, const std::string& bytes)
{
    files_[path] = bytes;
    return *this;
}

TestBook& TestBook::page(const std::string& path, const std::string& title, const std::string& body)
{
    return add(path, "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>");
}

TestBook& TestBook::title(const std::string& title)
{
    title_ = title;
    return *this;
}

TestBook& TestBook::start(const std::string& page)
{
    start_ = page;
    return *this;
}

TestBook& TestBook::contents(const std::vector<std::pair<std::string, std::string>>& lines)
{
    return add("/toc.hhc", siteMapText(lines));
}

TestBook& TestBook::index(const std::vector<std::pair<std::string, std::string>>& lines)
{
    return add("/index.hhk", siteMapText(lines));
}

TestBook& TestBook::number(std::uint32_t number, const std::string& page)
{
    numbers_[number] = page;
    return *this;
}

std::map<std::string, std::string> TestBook::allFiles() const
{
    std::map<std::string, std::string> files = files_;
    std::string system = u32(3);
    if (files.contains("/toc.hhc"))
        system += systemEntry(0, "toc.hhc");
    if (files.contains("/index.hhk"))
        system += systemEntry(1, "index.hhk");
    if (!start_.empty())
        system += systemEntry(2, start_);
    if (!title_.empty())
        system += systemEntry(3, title_);
    files.emplace("/#SYSTEM", system);
    if (!numbers_.empty()) {
        std::string strings(1, '\0');
        std::string pairs;
        for (const auto& [number, page] : numbers_) {
            pairs += u32(number) + u32(static_cast<std::uint32_t>(strings.size()));
            strings += page + '\0';
        }
        files.emplace("/#IVB", u32(static_cast<std::uint32_t>(pairs.size())) + pairs);
        files.emplace("/#STRINGS", strings);
    }
    return files;
}

std::string TestBook::bytes() const
{
    const std::map<std::string, std::string> files = allFiles();
    const std::string listing = directory(files);
    std::string content;
    for (const auto& [path, bytes] : files)
        content += bytes;
    const std::uint64_t listingAt = 0x60 + 0x18;
    const std::uint64_t contentAt = listingAt + listing.size();
    return "ITSF" + u32(3) + u32(0x60) + u32(1) + u32(0) + u32(0x409) + kGuid + kGuid + u64(0x60) +
           u64(0x18) + u64(listingAt) + u64(listing.size()) + u64(contentAt) + u32(0x1fe) + u32(0) +
           u64(contentAt + content.size()) + u32(0) + u32(0) + listing + content;
}

void TestBook::write(const std::string& file) const
{
    writeFile(file, bytes());
}

std::string readFile(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::string& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string sampleBook()
{
    return (buildFolder() / "program/QBK_HELP.chm").string();
}

} // namespace zorvo::help
