#include "base/XmlDocument.h"
#include "base/xmlParsing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

int lineOf(std::string_view bytes)
{
    const auto fault = xmlFault(bytes);
    return fault ? fault->nLine : 0;
}

TEST(XmlFault, AWellFormedDocumentHasNone)
{
    EXPECT_FALSE(xmlFault("<?xml version='1.0'?>\n<a>\n<b/></a>\n"));
}

TEST(XmlFault, TellsTheLineOfTheFirstFault)
{
    EXPECT_EQ(lineOf("<a>\n<b>\n</a>\n<c"), 3);
    EXPECT_EQ(lineOf("<a>\r\n<b x=1/>\r\n</a>"), 2);
    EXPECT_EQ(lineOf("<a>\n\n&nothing;</a>"), 3);
    EXPECT_EQ(lineOf("<a>\n"), 2) << "the end of a file that stops too early";
    EXPECT_EQ(lineOf("words"), 1);
    EXPECT_EQ(lineOf("<a/>\n<b/>"), 2);
}

TEST(XmlFault, SaysWhatIsWrongInOneLine)
{
    const auto fault = xmlFault("<a>\n<b>\n</a>");
    ASSERT_TRUE(fault);
    EXPECT_THAT(fault->sText, testing::HasSubstr("mismatch"));
    EXPECT_EQ(fault->sText.find('\n'), std::string::npos);
}

TEST(XmlFault, TellsBytesThatTheEncodingDoesntHave)
{
    EXPECT_EQ(lineOf("<?xml version='1.0' encoding='utf-8'?>\n<a>\n\xFF</a>"), 3);
    EXPECT_EQ(lineOf("<?xml version='1.0' encoding='none-such'?>\n<a/>"), 1);
}

TEST(XmlFault, TellsAnEmptyFileAndOneThatGoesOnBehindAZero)
{
    EXPECT_EQ(lineOf(""), 1);
    EXPECT_EQ(lineOf(std::string_view("<a/>\n\0<b/>", 10)), 2);
}

TEST(XmlFault, TellsEntitiesThatGrowBeyondMeasure)
{
    std::string sText = "<!DOCTYPE a [<!ENTITY e 'xxxxxxxxxx'>]>\n<a>";
    for (int n = 0; n < 30'000; ++n)
        sText += "&e;\n";
    EXPECT_GT(lineOf(sText + "</a>"), 1000);
}

TEST(XmlFault, AnElementKnowsItsLineAlsoFarDown)
{
    XmlDocument document;
    document.loadBytes("<a>\n<b/>\n" + std::string(70'000, '\n') + "<c>x</c>\n</a>");
    const XmlCursor first = document.documentElement().cursor().firstElement();
    EXPECT_EQ(first.line(), 2);
    EXPECT_EQ(first.nextElement().line(), 70'003);
}

} // namespace
} // namespace zorvo
