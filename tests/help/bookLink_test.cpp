#include "help/book/BookLink.h"

#include <gtest/gtest.h>

namespace zorvo::help {
namespace {

std::string resolved(std::string_view link, std::string_view from = "/dir/page.htm")
{
    const BookLink found = resolveLink(link, from, "Book.chm");
    constexpr std::string_view kKinds[] = {"page ", "web ", "outside"};
    std::string text(kKinds[static_cast<std::size_t>(found.kind)]);
    text += found.target;
    return found.anchor.empty() ? text : text + " #" + found.anchor;
}

TEST(BookLink, ANameIsRelativeToItsPage)
{
    EXPECT_EQ(resolved("a.htm"), "page /dir/a.htm");
    EXPECT_EQ(resolved("sub/a.htm"), "page /dir/sub/a.htm");
    EXPECT_EQ(resolved("../a.htm"), "page /a.htm");
    EXPECT_EQ(resolved("./a.htm#here"), "page /dir/a.htm #here");
    EXPECT_EQ(resolved("/a.htm"), "page /a.htm");
    EXPECT_EQ(resolved("a.htm", "/"), "page /a.htm");
    EXPECT_EQ(resolved("sub\\a.htm"), "page /dir/sub/a.htm");
}

TEST(BookLink, AnAnchorAloneIsOnTheSamePage)
{
    EXPECT_EQ(resolved("#here"), "page /dir/page.htm #here");
    EXPECT_EQ(resolved(""), "page /dir/page.htm");
}

TEST(BookLink, PercentsAreDecoded)
{
    EXPECT_EQ(resolved("a%20b%2Ehtm"), "page /dir/a b.htm");
    EXPECT_EQ(resolved("100%.htm"), "page /dir/100%.htm");
    EXPECT_EQ(resolved("a%zz%0"), "page /dir/a%zz%0");
    EXPECT_EQ(resolved("a%00b"), "page /dir/a%00b") << "no path holds a zero";
}

TEST(BookLink, NothingLeadsOutOfTheBook)
{
    EXPECT_EQ(resolved("../../../../etc/passwd"), "page /etc/passwd") << "a path in the book";
    EXPECT_EQ(resolved("..%2f..%2fx"), "page /x");
    EXPECT_EQ(resolved("file:///etc/passwd"), "outside");
    EXPECT_EQ(resolved("javascript:alert(1)"), "outside");
    EXPECT_EQ(resolved("FILE:/x"), "outside");
    EXPECT_EQ(resolved("data:text/html,x"), "outside");
    EXPECT_EQ(resolved("ftp://x"), "outside");
}

TEST(BookLink, WebAndMailAddressesAreForTheBrowser)
{
    EXPECT_EQ(resolved("http://x/y#z"), "web http://x/y#z");
    EXPECT_EQ(resolved("HTTPS://x"), "web HTTPS://x");
    EXPECT_EQ(resolved("mailto:a@b"), "web mailto:a@b");
}

TEST(BookLink, TheFormatsOwnFormsLeadIntoTheBookThatTheyName)
{
    EXPECT_EQ(resolved("mk:@MSITStore:C:\\help\\book.CHM::/a/b.htm#c"), "page /a/b.htm #c");
    EXPECT_EQ(resolved("ms-its:book.chm::/b.htm"), "page /b.htm");
    EXPECT_EQ(resolved("book.chm::/b.htm"), "page /b.htm");
    EXPECT_EQ(resolved("ms-its:other.chm::/b.htm"), "outside");
    EXPECT_EQ(resolved("other.chm::/b.htm"), "outside");
    EXPECT_EQ(resolved("ms-its:book.chm"), "outside");
}

TEST(BookLink, AQueryIsLeftOut)
{
    EXPECT_EQ(resolved("a.htm?x=1#y"), "page /dir/a.htm #y");
}

} // namespace
} // namespace zorvo::help
