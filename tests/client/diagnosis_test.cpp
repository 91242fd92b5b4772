#include "client/doctor/Diagnosis.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

Diagnosis withFaults(std::vector<Fault> faults)
{
    return {{{"folders",
              {{"documents",
                {{"path", std::string("/home/d")}, {"there", true}, {"writable", false}},
                std::move(faults)}}},
             {"settings", {}},
             {"products", {{"A\\B 2007", {{"title", std::string()}, {"documents", std::int64_t(12)}}}}}}};
}

TEST(DiagnosisText, HasALinePerItemAndSaysThatNothingIsWrong)
{
    EXPECT_EQ(diagnosisText(withFaults({})), "Folders\n"
                                             "  documents: path /home/d, there, not writable\n"
                                             "\n"
                                             "Settings\n"
                                             "  none\n"
                                             "\n"
                                             "Products\n"
                                             "  A\\B 2007: 12 documents\n"
                                             "\n"
                                             "Nothing is wrong.\n");
}

TEST(DiagnosisText, HasALinePerFaultWithItsPlace)
{
    const std::string sText = diagnosisText(
        withFaults({{"a.b", "One\r\nand two"}, {"c", "Three", "/file"}, {"d", "Four", "/file", 7}}));
    EXPECT_NE(sText.find("not writable\n"
                         "    ! One and two\n"
                         "    ! Three (/file)\n"
                         "    ! Four (/file:7)\n"),
              std::string::npos)
        << sText;
    EXPECT_TRUE(sText.ends_with("\n3 things are wrong.\n"));
    EXPECT_TRUE(diagnosisText(withFaults({{"a", "One"}})).ends_with("\nOne thing is wrong.\n"));
}

TEST(DiagnosisText, AsJsonKeepsTypesAndLeavesOutWhatAFaultDoesntHave)
{
    const auto json = QJsonDocument::fromJson(
        QByteArray::fromStdString(diagnosisJson(withFaults({{"a", "One"}, {"d", "Four", "/file", 7}}))));
    ASSERT_TRUE(json.isObject());
    EXPECT_EQ(json[QStringLiteral("ok")], false);
    EXPECT_EQ(json[QStringLiteral("faults")], 2);
    EXPECT_TRUE(json[QStringLiteral("settings")].toArray().isEmpty());
    const QJsonObject folder = json[QStringLiteral("folders")][0].toObject();
    EXPECT_EQ(folder[QStringLiteral("name")], QStringLiteral("documents"));
    EXPECT_EQ(folder[QStringLiteral("writable")], false);
    const QJsonArray faults = folder[QStringLiteral("faults")].toArray();
    const QJsonObject bare{{QStringLiteral("code"), QStringLiteral("a")},
                           {QStringLiteral("text"), QStringLiteral("One")}};
    const QJsonObject full{{QStringLiteral("code"), QStringLiteral("d")},
                           {QStringLiteral("text"), QStringLiteral("Four")},
                           {QStringLiteral("file"), QStringLiteral("/file")},
                           {QStringLiteral("line"), 7}};
    EXPECT_EQ(faults, QJsonArray({bare, full}));
    EXPECT_EQ(json[QStringLiteral("products")][0][QStringLiteral("documents")], 12);
    EXPECT_EQ(QJsonDocument::fromJson(
                  QByteArray::fromStdString(diagnosisJson(withFaults({}))))[QStringLiteral("ok")],
              true);
}

} // namespace
} // namespace zorvo
