#pragma once

#include "window/Form.h"

#include <string>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace zorvo {

class MnemonicLabel;

/// Asks for an edition of the example library and the words to look for.
class SearchSwdLib : public Form {
    Q_OBJECT

public:
    SearchSwdLib();

    /// The chosen edition as the list shows it, empty when the list is.
    std::string libraryText() const;
    /// What the user typed, as it is.
    std::string keywordText() const;

protected:
    void onLoad() override;
    void onActivate() override;

private:
    void layOut();
    void connectControls();
    void fillLibraries();
    void showWhetherSearchable();
    void comeInFront();
    void SearchButton_Click();
    void runSearch();

    MnemonicLabel* Label1_;
    QComboBox* LibraryList_;
    MnemonicLabel* Label2_;
    QLineEdit* Keyword_;
    QPushButton* SearchButton_;
    QPushButton* CancelSearchButton_;
    QPushButton* SearchHelpButton_;
};

} // namespace zorvo
