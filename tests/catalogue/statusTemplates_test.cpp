#include "catalogue/statusTemplates.h"

#include "base/text.h"
#include "tests/catalogue/CatalogueTest.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

using namespace zorvo;

namespace {

/// The rule word for word: the joined strings, then one replacement after the other.
std::string filledByTheRule(const ProductNodeValues& values)
{
    std::string sNode =
        R"(<ProductRegistryNode Version="?yyyy?" Installed="?Installed?" SWDType="?SWDType?" )"
        R"(LatestFlag="?latest?" numProdClassID="?numProdClassID?">)"
        R"(<ProductKey><![CDATA[?Node?]]></ProductKey>)"
        R"(<ProductName><![CDATA[?ProductName?]]></ProductName>)"
        R"(<TemplatePath><![CDATA[?TemplatePath?]]></TemplatePath>)"
        R"(</ProductRegistryNode>)";
    sNode = replaceAllNoCase(sNode, "?yyyy?", values.sYear);
    sNode = replaceAllNoCase(sNode, "?Installed?", values.bInstalled ? "True" : "False");
    sNode = replaceAllNoCase(sNode, "?SWDType?",
                             containsNoCase(values.sProductKey, "Sablewood") ? "True" : "False");
    sNode = replaceAllNoCase(sNode, "?TemplatePath?", values.sTemplatePath);
    sNode = replaceAllNoCase(sNode, "?Node?", values.sProductKey);
    sNode = replaceAllNoCase(sNode, "?ProductName?", values.sName);
    sNode = replaceAllNoCase(sNode, "?latest?", values.bLatest ? "True" : "False");
    return replaceAllNoCase(sNode, "?numProdClassID?", values.sClassID);
}

ProductNodeValues plainValues()
{
    return {.sName = "Name",
            .sProductKey = "Key",
            .sYear = "2004",
            .bInstalled = true,
            .sTemplatePath = "C:\\T",
            .bLatest = false,
            .sClassID = "77"};
}

} // namespace

TEST(StatusTemplates, OpenAndCloseTheDocumentAndAGroup)
{
    EXPECT_EQ(statusDocumentStart(),
              R"(<?xml version="1.0" encoding="utf-8" ?><ZorvoMSOfficeProductsStatus>)");
    EXPECT_EQ(statusDocumentEnd(), "</ZorvoMSOfficeProductsStatus>");
    EXPECT_EQ(productGroupEnd(), "</ProductGroup>");
}

TEST(FillProductGroup, PutsTheFourAttributesInTheirPlaces)
{
    EXPECT_EQ(FillProductGroup("a", "b", "c", "d"),
              "<ProductGroup><Title><![CDATA[a]]></Title><TitleShort><![CDATA[b]]></TitleShort>"
              "<IconLarge><![CDATA[c]]></IconLarge><IconSmall><![CDATA[d]]></IconSmall>");
}

TEST(FillProductGroup, FillsALaterPlaceholderInsideAValueAndLeavesAnEarlierOne)
{
    const std::string sGroup = FillProductGroup("?IconSmall?", "?Title?", "c", "d");
    EXPECT_NE(sGroup.find("<Title><![CDATA[d]]>"), std::string::npos) << sGroup;
    EXPECT_NE(sGroup.find("<TitleShort><![CDATA[?Title?]]>"), std::string::npos) << sGroup;
}

TEST(FillProductGroup, ReplacesPlaceholdersExactly)
{
    const std::string sGroup = FillProductGroup("?ICONSMALL?", "b", "c", "d");
    EXPECT_NE(sGroup.find("<Title><![CDATA[?ICONSMALL?]]>"), std::string::npos) << sGroup;
}

TEST(BuildProductNode, PutsEachValueInItsPlace)
{
    EXPECT_EQ(BuildProductNode(plainValues()), statusNode({.sVersion = "2004",
                                                           .sLatest = "False",
                                                           .sClassID = "77",
                                                           .sKey = "Key",
                                                           .sName = "Name",
                                                           .sPath = "C:\\T"}));
}

TEST(BuildProductNode, TellsALibraryByItsKeyWithoutRegardToCase)
{
    ProductNodeValues values = plainValues();
    values.sProductKey = "MyOldSABLEwoodThing";
    EXPECT_NE(BuildProductNode(values).find("SWDType=\"True\""), std::string::npos);
    values.sProductKey = "Sablewoo";
    EXPECT_NE(BuildProductNode(values).find("SWDType=\"False\""), std::string::npos);
    values.sName = "Sablewood";
    EXPECT_NE(BuildProductNode(values).find("SWDType=\"False\""), std::string::npos);
}

TEST(BuildProductNode, EscapesNothing)
{
    ProductNodeValues values = plainValues();
    values.sName = "a]]><b&\"";
    EXPECT_NE(BuildProductNode(values).find("<![CDATA[a]]><b&\"]]>"), std::string::npos);
}

TEST(BuildProductNode, FillsALaterPlaceholderInsideAValueAndLeavesAnEarlierOne)
{
    ProductNodeValues values = plainValues();
    values.sTemplatePath = "C:\\?productname?\\?Latest?";
    values.sName = "?yyyy? ?TemplatePath?";
    const std::string sNode = BuildProductNode(values);
    EXPECT_NE(sNode.find("<TemplatePath><![CDATA[C:\\?yyyy? ?TemplatePath?\\False]]>"), std::string::npos)
        << sNode;
    EXPECT_NE(sNode.find("<ProductName><![CDATA[?yyyy? ?TemplatePath?]]>"), std::string::npos) << sNode;
}

TEST(BuildProductNode, FillsAPlaceholderThatAnEarlierFillingCompletes)
{
    ProductNodeValues values = plainValues();
    values.sTemplatePath = "?Product?Node?Name?";
    values.sProductKey = "";
    EXPECT_NE(BuildProductNode(values).find("<TemplatePath><![CDATA[Name]]>"), std::string::npos);
}

TEST(BuildProductNode, EqualsTheRuleWordForWordForAnyValues)
{
    const std::vector<std::string> fragments = {
        "?yyyy?",
        "?Installed?",
        "?swdTYPE?",
        "?TemplatePath?",
        "?NODE?",
        "?productname?",
        "?latest?",
        "?numProdClassID?",
        "?",
        "??",
        "?No",
        "de?",
        "2004",
        "Sablewood",
        "",
        "é",
        "?late\xC5\xBFt?",
        " ",
        "]]>",
        "\"",
        "ode",
        "\xFF",
        "?n",
        "C:\\T",
    };
    std::mt19937 random(20040607);
    const auto text = [&] {
        std::string sText;
        for (auto n = random() % 4; n > 0; --n)
            sText += fragments[random() % fragments.size()];
        return sText;
    };
    for (int round = 0; round < 3000; ++round) {
        const std::array<std::string, 5> texts = {text(), text(), text(), text(), text()};
        const ProductNodeValues values = {.sName = texts[0],
                                          .sProductKey = texts[1],
                                          .sYear = texts[2],
                                          .bInstalled = random() % 2 == 0,
                                          .sTemplatePath = texts[3],
                                          .bLatest = random() % 2 == 0,
                                          .sClassID = texts[4]};
        ASSERT_EQ(BuildProductNode(values), filledByTheRule(values));
    }
}
