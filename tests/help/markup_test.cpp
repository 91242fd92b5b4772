#include "help/book/Markup.h"

#include <gmock/gmock.h>

namespace zorvo::help {
namespace {

std::string walk(std::string_view page)
{
    std::string all;
    Markup markup(page);
    while (const auto piece = markup.next()) {
        constexpr std::string_view kSigns = "=+-";
        all += kSigns[static_cast<std::size_t>(piece->kind)];
        all += std::string(piece->text) + "|";
    }
    return all;
}

TEST(Markup, TextAndTagsComeInOrder)
{
    EXPECT_EQ(walk("a<b>c</b>d<br/>"), "=a|+b|=c|-b|=d|+br|");
}

TEST(Markup, CommentsAndDeclarationsArePassedOver)
{
    EXPECT_EQ(walk("<!DOCTYPE html><!-- <b> -->x<?xml?>y"), "=x|=y|");
    EXPECT_EQ(walk("x<!-- without an end <b>"), "=x|");
}

TEST(Markup, AQuotedSignDoesntEndATag)
{
    EXPECT_EQ(walk("<a href=\"x>y\">z"), "+a|=z|");
    EXPECT_EQ(walk("<p title='>'>z"), "+p|=z|");
    EXPECT_EQ(walk("<p title = '>' a>z"), "+p|=z|");
    EXPECT_EQ(walk("<p title=it's=\">z"), "+p|=z|") << "a value that doesn't begin with a quote has none";
    EXPECT_EQ(walk("<!x=\"><b>"), "+b|") << "nor has a declaration";
    EXPECT_EQ(walk("<!x"), "");
}

TEST(Markup, ATagWithoutAnEndEndsWithThePage)
{
    EXPECT_EQ(walk("a<b"), "=a|+b|");
    EXPECT_EQ(walk("a<"), "=a|");
    EXPECT_EQ(walk("a</"), "=a|");
    EXPECT_EQ(walk("a<b c=\"d"), "=a|+b|");
}

TEST(Markup, ALoneSignIsText)
{
    EXPECT_EQ(walk("1 < 2<b>"), "=1 |=< 2|+b|");
}

TEST(Markup, AttributesAreFoundHoweverTheyAreWritten)
{
    EXPECT_EQ(attributeValue(R"( Name="Local" VALUE='a b.htm' x=1 y)", "value"), "a b.htm");
    EXPECT_EQ(attributeValue(" name = Local value=a&amp;b", "value"), "a&b");
    EXPECT_EQ(attributeValue(" checked", "checked"), "");
    EXPECT_EQ(attributeValue(" a=\"without end", "a"), "without end");
    EXPECT_EQ(attributeValue(" a=1", "b"), std::nullopt);
    EXPECT_EQ(attributeValue(" = = =", "a"), std::nullopt);
}

TEST(Markup, EntitiesBecomeCharacters)
{
    EXPECT_EQ(withoutEntities("a &amp; b &lt;c&gt; &quot;&apos;"), "a & b <c> \"'");
    EXPECT_EQ(withoutEntities("&copy;&eacute;&yuml;&nbsp;&mdash;"), "©éÿ\u00a0—");
    EXPECT_EQ(withoutEntities("&#65;&#x42;&#8364;&#128512;"), "AB€😀");
}

TEST(Markup, WhatIsNoEntityStays)
{
    EXPECT_EQ(withoutEntities("a & b"), "a & b");
    EXPECT_EQ(withoutEntities("&unknown; &; &#; &#x;"), "&unknown; &; &#; &#x;");
    EXPECT_EQ(withoutEntities("&#0;&#xd800;&#x110000;&#99999999999;"),
              "&#0;&#xd800;&#x110000;&#99999999999;");
    EXPECT_EQ(withoutEntities("&amp"), "&amp");
}

TEST(Markup, ThePlainTextIsWhatAReaderSees)
{
    EXPECT_EQ(
        plainText("<title>T</title><style>p{}</style><p>One <b>wo</b>rd</p><p>two&nbsp;&amp;\n three</p>"
                  "<script>if (a < b) x()</script>end"),
        "One word two\u00a0& three end");
}

TEST(Markup, ThePlainTextOfASilentElementWithoutAnEndIsNone)
{
    EXPECT_EQ(plainText("a<script>b"), "a");
}

TEST(Markup, TheTitleIsTheTitleElements)
{
    EXPECT_EQ(pageTitle("<html><head><title> A &amp;\n B </title></head><body><title>no</title>"), "A & B");
    EXPECT_EQ(pageTitle("<html><body><title>no</title>"), "");
    EXPECT_EQ(pageTitle("<title>without end"), "without end");
}

TEST(Markup, NestingCountsElementsThatAreOpen)
{
    EXPECT_EQ(nesting("<html><body><p>a<p>b<br><img></body></html>"), 2U);
    EXPECT_EQ(nesting("<div><div><div></div></div></div>"), 3U);
    EXPECT_EQ(nesting("</div></div><div>"), 1U);
    std::string deep;
    for (int i = 0; i < 5000; ++i)
        deep += "<table><tr><td>";
    EXPECT_EQ(nesting(deep), 5000U);
    std::string flat = "<ul>";
    for (int i = 0; i < 5000; ++i)
        flat += "<li>x";
    EXPECT_EQ(nesting(flat), 1U) << "nobody writes their ends";
}

} // namespace
} // namespace zorvo::help
