#pragma once

#include "companions/profileData.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zorvo {

/// Asks for the client's data that goes into new documents, `frmProfileData`. It begins with the profile that
/// was used last; another remembered one is taken from the list.
class ProfileForm : public QDialog {
    Q_OBJECT
public:
    /// `profiles` are the remembered ones, the last one first; `sNativeFolder` is where the documents will
    /// go.
    ProfileForm(std::vector<ProfileData> profiles, const std::string& sNativeFolder);

    /// What stands in the fields; a profile without a client's name can't be confirmed.
    ProfileData profile() const;

    /// Moves to this place, in twips and frame included, as far as the screen has room there.
    void moveToTwips(int nTop, int nLeft);
    int topInTwips() const;
    int leftInTwips() const;

private:
    void nameControls();
    void layOut(const std::string& sNativeFolder);
    void fillLists();
    void showProfile(const ProfileData& profile);
    void onProfileChosen(int nIndex);

    std::vector<ProfileData> profiles_;
    QComboBox* cboProfile_;
    QLineEdit* txtClientName_;
    QLineEdit* txtPeriodEnd_;
    QComboBox* cboEngagementType_;
    QLineEdit* txtPreparedBy_;
    QLineEdit* txtReviewedBy_;
    QLabel* lblFolderPath_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
};

} // namespace zorvo
