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
    if (outcome.bProfile)
        object.insert(QStringLiteral("profile"), *outcome.bProfile);
    return object;
}

qint64 countOf(const std::vector<DocumentOutcome>& outcomes, bool (*isCounted)(const DocumentOutcome&))
{
    return std::count_if(outcomes.begin(), outcomes.end(), isCounted);
}

qint64 createdOf(const std::vector<DocumentOutcome>& outcomes)
{
    return countOf(outcomes, [](const DocumentOutcome& outcome) { return outcome.bCreated; });
}

} // namespace

std::string outcomeLine(const DocumentOutcome& outcome)
{
    return oneLine(outcome.sTitle) + " -> " +
           (outcome.bCreated ? outcome.sFile : "FAILED: " + outcome.sReason);
}

std::string summaryLine(const std::vector<DocumentOutcome>& outcomes)
{
    const auto nDocuments = static_cast<qint64>(outcomes.size());
    const qint64 nCreated = createdOf(outcomes);
    const qint64 nBare =
        countOf(outcomes, [](const DocumentOutcome& outcome) { return outcome.bProfile == false; });
    std::string sLine = std::to_string(nDocuments) + (nDocuments == 1 ? " document: " : " documents: ") +
                        std::to_string(nCreated) + " created, " + std::to_string(nDocuments - nCreated) +
                        " failed";
    if (nBare != 0)
        sLine += ", " + std::to_string(nBare) + " without the profile data";
    return sLine;
}

std::string outcomeJson(const std::vector<DocumentOutcome>& outcomes, const std::string& sNativeFolder)
{
    QJsonArray documents;
    for (const DocumentOutcome& outcome : outcomes)
        documents.append(jsonOf(outcome));
    const qint64 nCreated = createdOf(outcomes);
    const auto nDocuments = static_cast<qint64>(outcomes.size());
    const QJsonObject summary{{QStringLiteral("documents"), nDocuments},
                              {QStringLiteral("created"), nCreated},
                              {QStringLiteral("failed"), nDocuments - nCreated}};
    const QJsonObject object{{QStringLiteral("folder"), qt(sNativeFolder)},
                             {QStringLiteral("documents"), documents},
                             {QStringLiteral("summary"), summary}};
    return QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

} // namespace zorvo
