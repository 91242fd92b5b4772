#include "client/doctor/Diagnosis.h"
#include "client/failureLine.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zorvo {

namespace {

struct FactText {
    const std::string& sName;

    std::string operator()(const std::string& sValue) const
    {
        return sValue.empty() ? std::string() : sName + " " + oneLine(sValue);
    }
    std::string operator()(bool bValue) const { return bValue ? sName : "not " + sName; }
    std::string operator()(std::int64_t nValue) const { return std::to_string(nValue) + " " + sName; }
};

struct FactJson {
    QJsonValue operator()(const std::string& sValue) const { return QString::fromStdString(sValue); }
    QJsonValue operator()(bool bValue) const { return bValue; }
    QJsonValue operator()(std::int64_t nValue) const { return static_cast<qint64>(nValue); }
};

std::string itemLine(const DiagnosisItem& item)
{
    std::string sFacts;
    for (const Fact& fact : item.facts) {
        const std::string sText = std::visit(FactText{fact.sName}, fact.value);
        if (!sText.empty())
            sFacts += (sFacts.empty() ? ": " : ", ") + sText;
    }
    return "  " + oneLine(item.sName) + sFacts + "\n";
}

std::string faultLine(const Fault& fault)
{
    std::string sPlace = fault.sFile;
    if (fault.nLine > 0)
        sPlace += ":" + std::to_string(fault.nLine);
    return "    ! " + oneLine(fault.sText) + (sPlace.empty() ? "" : " (" + sPlace + ")") + "\n";
}

std::string heading(std::string sName)
{
    if (sName == "addIns")
        return "Add-ins\n";
    sName[0] = static_cast<char>(sName[0] - 'a' + 'A');
    return sName + "\n";
}

QJsonObject jsonOf(const Fault& fault)
{
    QJsonObject object{{QStringLiteral("code"), QString::fromStdString(fault.sCode)},
                       {QStringLiteral("text"), QString::fromStdString(fault.sText)}};
    if (!fault.sFile.empty())
        object.insert(QStringLiteral("file"), QString::fromStdString(fault.sFile));
    if (fault.nLine > 0)
        object.insert(QStringLiteral("line"), static_cast<qint64>(fault.nLine));
    return object;
}

QJsonObject jsonOf(const DiagnosisItem& item)
{
    QJsonObject object{{QStringLiteral("name"), QString::fromStdString(item.sName)}};
    for (const Fact& fact : item.facts)
        object.insert(QString::fromStdString(fact.sName), std::visit(FactJson{}, fact.value));
    QJsonArray faults;
    for (const Fault& fault : item.faults)
        faults.append(jsonOf(fault));
    object.insert(QStringLiteral("faults"), faults);
    return object;
}

} // namespace

std::string diagnosisText(const Diagnosis& diagnosis)
{
    std::string sText;
    for (const DiagnosisSection& section : diagnosis.sections) {
        sText += heading(section.sName);
        for (const DiagnosisItem& item : section.items) {
            sText += itemLine(item);
            for (const Fault& fault : item.faults)
                sText += faultLine(fault);
        }
        sText += section.items.empty() ? "  none\n\n" : "\n";
    }
    const std::size_t nFaults = diagnosis.faultCount();
    if (nFaults == 0)
        return sText + "Nothing is wrong.\n";
    return sText +
           (nFaults == 1 ? "One thing is wrong.\n" : std::to_string(nFaults) + " things are wrong.\n");
}

std::string diagnosisJson(const Diagnosis& diagnosis)
{
    const std::size_t nFaults = diagnosis.faultCount();
    QJsonObject object{{QStringLiteral("ok"), nFaults == 0},
                       {QStringLiteral("faults"), static_cast<qint64>(nFaults)}};
    for (const DiagnosisSection& section : diagnosis.sections) {
        QJsonArray items;
        for (const DiagnosisItem& item : section.items)
            items.append(jsonOf(item));
        object.insert(QString::fromStdString(section.sName), items);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

} // namespace zorvo
