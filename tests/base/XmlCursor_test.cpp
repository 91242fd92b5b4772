#include "base/XmlCursor.h"

#include "base/XmlDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

using testing::ElementsAre;

XmlDocument parsed(const std::string& sXml)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(sXml)) << sXml;
    return document;
}

TEST(XmlCursor, WalksElementsAndPassesOverTextAndComments)
{
    const XmlDocument document = parsed("<a> text <!-- c --><b/>more<?pi?><c/> </a>");
    const XmlCursor first = document.documentElement().cursor().firstElement();
    ASSERT_TRUE(first);
    EXPECT_EQ(first.baseName(), "b");
    EXPECT_EQ(first.nextElement().baseName(), "c");
    EXPECT_FALSE(first.nextElement().nextElement());
    EXPECT_FALSE(first.firstElement());
    EXPECT_TRUE(first.parent() == document.documentElement().cursor());
    EXPECT_FALSE(first.parent().parent());
}

TEST(XmlCursor, WalksABranchInDocumentOrder)
{
    const XmlDocument document = parsed("<a><b><c/><d/></b><e/></a>");
    const XmlCursor top = document.documentElement().cursor().firstElement();
    std::vector<std::string> names;
    for (XmlCursor at = top; at; at = at.nextInDocument(top))
        names.emplace_back(at.baseName());
    EXPECT_THAT(names, ElementsAre("b", "c", "d"));
}

TEST(XmlCursor, NamesAnElementOnlyWithoutANamespace)
{
    const XmlDocument document = parsed("<a xmlns:x='urn:x'><x:b/><b/></a>");
    const XmlCursor top = document.documentElement().cursor();
    EXPECT_FALSE(top.firstElement().isNamed("b"));
    EXPECT_EQ(top.firstElement().baseName(), "b");
    EXPECT_TRUE(top.child("b") == top.firstElement().nextElement());
    EXPECT_FALSE(top.child("B"));
}

TEST(XmlCursor, ReadsTextsAsANodeDoes)
{
    const XmlDocument document =
        parsed("<!DOCTYPE a [<!ENTITY e 'ntity'>]><a q=' 1 &amp; 2 ' r='&e;'><b/><c> plain </c>"
               "<d> one <!-- c --><![CDATA[<two>]]><e>three</e> </d><f>&e;&amp;</f></a>");
    const XmlNode top = document.documentElement();
    for (XmlNode child = top.firstChild(); child; child = child.nextSibling())
        EXPECT_EQ(child.cursor().text(), child.text());
    EXPECT_EQ(top.cursor().child("c").trimmedText(), "plain");
    EXPECT_EQ(top.cursor().child("d").trimmedText(), "one <two>three");
    EXPECT_EQ(top.cursor().attribute("q"), " 1 & 2 ");
    EXPECT_EQ(top.cursor().attribute("r"), top.attribute("r"));
    EXPECT_FALSE(top.cursor().attribute("Q"));
}

TEST(XmlCursor, LeavesAttributesOfANamespaceOut)
{
    const XmlDocument document = parsed("<a xmlns:x='urn:x' x:q='1'/>");
    EXPECT_FALSE(document.documentElement().cursor().attribute("q"));
}

TEST(XmlCursor, ComesBackAsANodeThatKeepsTheDocument)
{
    XmlNode kept;
    {
        const XmlDocument document = parsed("<a><b>text</b></a>");
        kept = document.at(document.documentElement().cursor().firstElement());
    }
    EXPECT_EQ(kept.text(), "text");
    EXPECT_TRUE(kept.at(XmlCursor()).isNull());
    EXPECT_FALSE(XmlNode().cursor());
}

} // namespace
} // namespace zorvo
