#include "base/RunTimeError.h"
#include "tree/LibraryDocument.h"
#include "tree/StatusDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

/// The indexes against the expressions whose work they do.
namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

XmlDocument parsed(const std::string& sXml)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(sXml)) << sXml;
    return document;
}

/// Documents made of few names and values, so that every look-up has matches, near misses and several of a
/// kind.
class RandomXml {
public:
    explicit RandomXml(unsigned nSeed)
        : random_(nSeed)
    {
    }

    std::string value()
    {
        static const char* const kValues[] = {
            "", "a", "A", " a ", "b", "a&#39;b", "a&quot;b", "&lt;x", "<![CDATA[a]]>", "a<!-- c -->b"};
        return kValues[number(10)];
    }

    std::string attributeValue()
    {
        static const char* const kValues[] = {"", "a", "A", " a ", "b", "a&#39;b", "a&quot;b", "&lt;x"};
        return kValues[number(8)];
    }

    std::string element(const std::vector<std::string>& names, const std::vector<std::string>& attributes,
                        const std::vector<std::string>& textElements, int nDepth)
    {
        const std::string& sName = names[number(names.size())];
        std::string sXml = "<" + sName;
        for (const std::string& sAttribute : attributes) {
            if (number(5) != 0)
                sXml += " " + sAttribute + "=\"" + attributeValue() + "\"";
        }
        sXml += ">";
        for (const std::string& sText : textElements) {
            for (std::size_t n = number(3); n > 0; --n)
                sXml += "<" + sText + ">" + value() + "</" + sText + ">";
        }
        for (std::size_t n = nDepth > 0 ? number(5) : 0; n > 0; --n)
            sXml += element(names, attributes, textElements, nDepth - 1) + "text<!-- comment -->";
        return sXml + "</" + sName + ">";
    }

private:
    std::size_t number(std::size_t nBelow)
    {
        return std::uniform_int_distribution<std::size_t>(0, nBelow - 1)(random_);
    }

    std::mt19937 random_;
};

const std::vector<std::string> kSought = {"", "a", "A", " a ", "b", "ab", "a'b", "<x", "none"};

TEST(LibraryDocument, FindsWhatItsExpressionsFind)
{
    for (unsigned nSeed = 0; nSeed < 60; ++nSeed) {
        RandomXml random(nSeed);
        const std::string sXml = "<Library>" +
                                 random.element({"Product", "Folder", "Document", "product"},
                                                {"Acronym", "Year", "Guid", "guid"}, {"Name"}, 4) +
                                 random.element({"Product"}, {"Acronym", "Year", "Guid"}, {"Name"}, 1) +
                                 "</Library>";
        const XmlDocument document = parsed(sXml);
        const LibraryDocument library(document);
        for (const std::string& a : kSought) {
            for (const std::string& b : kSought) {
                EXPECT_EQ(library.products(a, b), document.selectNodes("Library/Product[@Acronym=\"" + a +
                                                                       "\" and @Year=\"" + b + "\"]"));
            }
            if (a.find('\'') != std::string::npos)
                continue;
            EXPECT_EQ(library.folder(a), document.selectSingleNode(".//Folder[@Guid='" + a + "']"));
            EXPECT_EQ(library.document(a), document.selectSingleNode(".//Document[@Guid='" + a + "']"));
        }
    }
}

TEST(LibraryDocument, LeavesElementsAndAttributesOfANamespaceOut)
{
    const XmlDocument document =
        parsed("<Library xmlns:x='urn:x'><x:Product Acronym='a' Year='b'/><Product x:Acronym='a' Year='b'/>"
               "<x:Document Guid='d'/><Document x:Guid='d'/></Library>");
    const LibraryDocument library(document);
    EXPECT_THAT(library.products("a", "b"), IsEmpty());
    EXPECT_TRUE(library.document("d").isNull());
    EXPECT_THAT(LibraryDocument(parsed("<Library xmlns='urn:x'><Product Acronym='a' Year='b'/></Library>"))
                    .products("a", "b"),
                IsEmpty());
}

TEST(LibraryDocument, TakesProductsOfTheRightRootOnly)
{
    EXPECT_THAT(LibraryDocument(parsed("<Other><Product Acronym='a' Year='b'/></Other>")).products("a", "b"),
                IsEmpty());
    EXPECT_THAT(LibraryDocument(parsed("<Library><Deep><Product Acronym='a' Year='b'/></Deep></Library>"))
                    .products("a", "b"),
                IsEmpty());
}

TEST(LibraryDocument, FindsTheRootElementToo)
{
    EXPECT_TRUE(LibraryDocument(parsed("<Document Guid='d'/>")).document("d"));
}

TEST(LibraryDocument, GivesAQuotedTextTheMeaningThatTheExpressionGivesIt)
{
    const LibraryDocument library(
        parsed("<Library><Product Acronym='a' Year='b'/><Product Acronym='c' Year='d'/>"
               "<Document Guid='x'/></Library>"));
    EXPECT_EQ(library.products("a", "b\" or \"1\"=\"1").size(), 2U);
    EXPECT_THROW(library.products("a\"b", "c"), RunTimeError);
    EXPECT_TRUE(library.document("no' or '1'='1"));
    EXPECT_THROW(library.document("it's"), RunTimeError);
    EXPECT_THROW(library.folder("it's"), RunTimeError);
}

TEST(LibraryDocument, OfAnEmptyDocumentHasNothing)
{
    const LibraryDocument library{XmlDocument()};
    EXPECT_THAT(library.products("a", "b"), IsEmpty());
    EXPECT_TRUE(library.document("a").isNull());
    EXPECT_THROW(library.document("it's"), RunTimeError);
}

std::vector<std::string> versionsOf(const std::vector<XmlNode>& entries)
{
    std::vector<std::string> versions;
    for (const XmlNode& entry : entries)
        versions.push_back(entry.attributeIfAny("Version").value_or(std::string()));
    return versions;
}

TEST(StatusDocument, FindsWhatItsExpressionsFind)
{
    for (unsigned nSeed = 0; nSeed < 60; ++nSeed) {
        RandomXml random(nSeed);
        const std::vector<std::string> names = {"ProductGroup", "ProductRegistryNode", "ProductKey"};
        std::string sXml = "<ZorvoMSOfficeProductsStatus>";
        for (int n = 0; n < 4; ++n)
            sXml += "<ProductGroup>" + random.element(names, {"Version", "SWDType"}, {"ProductKey"}, 3) +
                    random.element({"ProductRegistryNode"}, {"Version"}, {"ProductKey"}, 1) +
                    "</ProductGroup>";
        const XmlDocument document = parsed(sXml + "</ZorvoMSOfficeProductsStatus>");
        const StatusDocument status(document);
        const std::string sEntries = "ZorvoMSOfficeProductsStatus/ProductGroup/ProductRegistryNode";
        for (const std::string& a : kSought) {
            EXPECT_EQ(status.topLevelVersions(a),
                      versionsOf(document.selectNodes(sEntries + "[child::ProductKey=\"" + a + "\"]")));
            for (const std::string& b : kSought) {
                EXPECT_EQ(status.productYear(a, b),
                          document.selectSingleNode("//ProductRegistryNode[@Version=\"" + a +
                                                    "\" and child::ProductKey=\"" + b + "\"]"));
            }
        }
    }
}

TEST(StatusDocument, KnowsWhetherALibraryProductIsThere)
{
    EXPECT_TRUE(StatusDocument(
                    parsed("<ZorvoMSOfficeProductsStatus><ProductGroup><ProductRegistryNode SWDType='True'/>"
                           "</ProductGroup></ZorvoMSOfficeProductsStatus>"))
                    .hasSwdProducts());
    EXPECT_FALSE(
        StatusDocument(
            parsed("<ZorvoMSOfficeProductsStatus><ProductGroup><ProductRegistryNode SWDType='False'/>"
                   "<ProductGroup><ProductRegistryNode SWDType='True'/></ProductGroup></ProductGroup>"
                   "</ZorvoMSOfficeProductsStatus>"))
            .hasSwdProducts());
}

TEST(StatusDocument, GivesAQuotedTextTheMeaningThatTheExpressionGivesIt)
{
    const StatusDocument status(
        parsed("<ZorvoMSOfficeProductsStatus><ProductGroup><ProductRegistryNode "
               "Version='1'><ProductKey>a</ProductKey>"
               "</ProductRegistryNode></ProductGroup></ZorvoMSOfficeProductsStatus>"));
    EXPECT_THAT(status.topLevelVersions("x\" or \"1\"=\"1"), ElementsAre("1"));
    EXPECT_THROW(status.topLevelVersions("a\"b"), RunTimeError);
    EXPECT_THROW(status.productYear("1", "a\"b"), RunTimeError);
    EXPECT_THROW(status.productYear("1\"", "a"), RunTimeError);
}

} // namespace
} // namespace zorvo
