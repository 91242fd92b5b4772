#pragma once

#include <QByteArray>
#include <functional>
#include <string>

class QWidget;

namespace zorvo {

/// What the form for the profile is asked with and answers: the folder of the new documents in the backslash
/// form, and a place on the screen in twips.
struct ProfileQuestion {
    std::string sFolder;
    int nTop = 0;
    int nLeft = 0;
};

struct ProfileAnswer {
    /// Empty when the user has left the form without confirming.
    std::string sProfile;
    /// Ready for a file name to be put behind it.
    std::string sFolder;
    int nTop = 0;
    int nLeft = 0;
};

/// Shows the form and waits for the user, remembers a confirmed profile. Needs a QApplication with the ports
/// of the platform installed.
ProfileAnswer askProfile(const ProfileQuestion& question);

/// Between the server and the process that shows the form. What isn't such a text gives an empty one.
QByteArray toJson(const ProfileQuestion& question);
QByteArray toJson(const ProfileAnswer& answer);
ProfileQuestion profileQuestion(const QByteArray& json);
ProfileAnswer profileAnswer(const QByteArray& json);

} // namespace zorvo
