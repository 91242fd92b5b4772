#include "client/outcomeText.h"

#include "client/failureLine.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace zorvo {

namespace {

QString qt(const std::string& sText)
{
    return QString::fromStdString(sText);
}

QJsonObject jsonOf(const DocumentOutcome& outcome)
{
    QJsonObject object{
        {QStringLiteral("title"), qt(outcome.sTitle)},
        {QStringLiteral("template"), qt(outcome.sTemplate)},
        {QStringLiteral("status"), outcome.bCreated ? QStringLiteral("created") : QStringLiteral("failed")}};
    if (outcome.bCreated)
        object.insert(QStringLiteral("file"), qt(outcome.sFile));
    else
        object.insert(QStringLiteral("reason"), qt(outcome.sReason));
    return object;
}

} // namespace

std::string outcomeLine(const DocumentOutcome& outcome)
{
    return oneLine(outcome.sTitle) + " -> " +
           (outcome.bCreated ? outcome.sFile : "FAILED: " + outcome.sReason);
}

std::string outcomeJson(const std::vector<DocumentOutcome>& outcomes, const std::string& sNativeFolder)
{
    QJsonArray documents;
    for (const DocumentOutcome& outcome : outcomes)
        documents.append(jsonOf(outcome));
    const auto nCreated =
        std::count_if(outcomes.begin(), outcomes.end(), [](const auto& outcome) { return outcome.bCreated; });
    const auto nDocuments = static_cast<qint64>(outcomes.size());
    const QJsonObject summary{{QStringLiteral("documents"), nDocuments},
                              {QStringLiteral("created"), static_cast<qint64>(nCreated)},
                              {QStringLiteral("failed"), nDocuments - static_cast<qint64>(nCreated)}};
    const QJsonObject object{{QStringLiteral("folder"), qt(sNativeFolder)},
                             {QStringLiteral("documents"), documents},
                             {QStringLiteral("summary"), summary}};
    return QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

} // namespace zorvo
