#include "companions/profileDialog.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "companions/ProfileForm.h"
#include "companions/profileStore.h"
#include "platform/Files.h"
#include "platform/Platform.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>

namespace zorvo {

namespace {

const QString kProfile = QStringLiteral("profile");
const QString kFolder = QStringLiteral("folder");
const QString kTop = QStringLiteral("top");
const QString kLeft = QStringLiteral("left");

QJsonObject placeAndFolder(const std::string& sFolder, int nTop, int nLeft)
{
    return {{kFolder, QString::fromStdString(sFolder)}, {kTop, nTop}, {kLeft, nLeft}};
}

void rememberProfile(const ProfileData& profile)
{
    try {
        storeProfile(*platform().settings, profile);
    } catch (const RunTimeError& error) { // the documents get their data all the same
        std::cerr << "zorvo-companions: the profile isn't remembered: " << error.description() << '\n';
    }
}

} // namespace

ProfileAnswer askProfile(const ProfileQuestion& question)
{
    ProfileForm form(storedProfiles(*platform().settings), platform().files->toNative(question.sFolder));
    form.moveToTwips(question.nTop, question.nLeft);
    form.setModal(true);
    form.show();
    form.raise();
    form.activateWindow();
    if (form.exec() != QDialog::Accepted)
        return {{}, question.sFolder, question.nTop, question.nLeft};
    const ProfileData profile = form.profile();
    rememberProfile(profile);
    return {profileText(profile), withBackslash(question.sFolder), form.topInTwips(), form.leftInTwips()};
}

QByteArray toJson(const ProfileQuestion& question)
{
    return QJsonDocument(placeAndFolder(question.sFolder, question.nTop, question.nLeft)).toJson();
}

QByteArray toJson(const ProfileAnswer& answer)
{
    QJsonObject object = placeAndFolder(answer.sFolder, answer.nTop, answer.nLeft);
    object.insert(kProfile, QString::fromStdString(answer.sProfile));
    return QJsonDocument(object).toJson();
}

ProfileQuestion profileQuestion(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    return {object.value(kFolder).toString().toStdString(), object.value(kTop).toInt(),
            object.value(kLeft).toInt()};
}

ProfileAnswer profileAnswer(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    return {object.value(kProfile).toString().toStdString(), object.value(kFolder).toString().toStdString(),
            object.value(kTop).toInt(), object.value(kLeft).toInt()};
}

} // namespace zorvo
