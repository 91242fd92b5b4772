#include "help/book/pageCost.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvo::help {
namespace {

std::string repeated(const std::string& text, int nTimes)
{
    std::string all;
    for (int i = 0; i < nTimes; ++i)
        all += text;
    return all;
}

std::string table(int nRows, int nColumns, const std::string& attributes = {})
{
    const std::string row = "<tr>" + repeated("<td" + attributes + ">x</td>", nColumns) + "</tr>";
    return "<table>" + repeated(row, nRows) + "</table>";
}

TEST(PageCost, OrdinaryPagesAreBorne)
{
    EXPECT_TRUE(canBeLaidOut(""));
    EXPECT_TRUE(canBeLaidOut(table(2000, 8)));
    EXPECT_TRUE(canBeLaidOut(repeated("<table width=600 cellpadding=4><tr><td>", 6) + "text"));
    EXPECT_TRUE(canBeLaidOut("<ul>" + repeated("<li>x", 3000) + "</ul>"));
    EXPECT_TRUE(canBeLaidOut(repeated("<ol>" + repeated("<li>x</li>", 100) + "</ol>", 100)));
    EXPECT_TRUE(canBeLaidOut(repeated("<p style='margin: 10px 20px; color: #123456'>text</p>", 20000)));
    EXPECT_TRUE(canBeLaidOut("<div style='position: absolute; left: -99999px; z-index: 99999'>text</div>"));
    EXPECT_TRUE(canBeLaidOut("<a href=\"99999999.htm\" name=88888888>1000000000</a>"));
    EXPECT_TRUE(canBeLaidOut("<style>p { animation: infinite; color: #999999 }</style>"));
}

TEST(PageCost, ATableInATableCostsTwice)
{
    EXPECT_FALSE(canBeLaidOut(repeated("<table><tr><td>", 20)));
    EXPECT_FALSE(canBeLaidOut(repeated("<table>", 2000000)));
    EXPECT_TRUE(canBeLaidOut(repeated("<table><tr><td></table>", 200))) << "side by side";
    EXPECT_FALSE(canBeLaidOut(repeated("<table><tr><td>", 10) + std::string(2000000, 'x')));
}

TEST(PageCost, ATableHasACellForEachRowAndColumn)
{
    EXPECT_FALSE(canBeLaidOut("<table><tr>" + repeated("<td>", 1000) + repeated("<tr>", 1000)));
    EXPECT_FALSE(canBeLaidOut(table(10, 100, " colspan=\"&#57;9\"")));
    EXPECT_TRUE(canBeLaidOut(table(10, 100)));
}

TEST(PageCost, WhatHangsDownFromARowWidensThoseBelow)
{
    EXPECT_FALSE(canBeLaidOut(table(200, 10, " rowspan=50")));
    EXPECT_TRUE(canBeLaidOut(table(200, 10, " rowspan=2")));
}

TEST(PageCost, AListCostsTheSquareOfItsItems)
{
    EXPECT_FALSE(canBeLaidOut("<ul>" + repeated("<li>", 20000)));
    EXPECT_FALSE(canBeLaidOut(repeated("<li>", 20000)));
    EXPECT_TRUE(canBeLaidOut(repeated("<ul><li></ul>", 20000)));
}

TEST(PageCost, LengthsBeyondAllSenseArentBorne)
{
    for (const char* page :
         {"<table cellpadding=1000000000><tr><td>x", "<img width='1e9'>", "<img height=\"&#57;9999999\">",
          "<p style='margin-top: 1000000px'>x", "<style>a<b { font-size: 99999pt }</style>"})
        EXPECT_FALSE(canBeLaidOut(page)) << page;
    EXPECT_FALSE(canBeLaidOut(repeated("<p style='line-height: 19999px'>x", 2000))) << "together";
    EXPECT_FALSE(canBeLaidOut("<table cellpadding=19999>" + repeated("<tr><td>x", 2000)));
}

TEST(PageCost, ASheetWithSuchLengthsIsNone)
{
    EXPECT_TRUE(canBeStyledBy("p { margin: 10px; color: #999999 } .x12345678 { width: 600px }"));
    EXPECT_TRUE(canBeStyledBy(".top { z-index: 999999; border-radius: 99999px } /* margin: 1000000px */"));
    for (const char* sheet :
         {"p { margin-top: 1000000px }", "p{MARGIN:0 0 1000000px", "p { f\\6fnt-size: 99999px }",
          "p { color: red; line-height/*;*/: 99999% }", "a{} p { text-indent:99999px }"})
        EXPECT_FALSE(canBeStyledBy(sheet)) << sheet;
}

} // namespace
} // namespace zorvo::help
