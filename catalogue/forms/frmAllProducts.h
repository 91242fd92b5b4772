#pragma once

#include "catalogue/OfferingPages.h"
#include "window/Form.h"

#include <string>

class QCheckBox;
class QPushButton;

namespace zorvo {

class PageView;
class TreeView;

/// All that the publisher offers, on the machine or not: a tree on the left, and on the right the page of the
/// offering selected in it, the one that lies on the machine or the one on the publisher's site.
class frmAllProducts : public Form {
public:
    frmAllProducts();
    ~frmAllProducts() override;

    /// Shows the page of the node with that key.
    void ShowNodePage(const std::string& sKey);
    /// The address last given to the page view.
    const std::string& currentURL() const { return msCurrentURL_; }

protected:
    void onLoad() override;
    void onActivate() override;
    void onDeactivate() override;
    void onUnload() override;
    bool onKeyDown(int key, Qt::KeyboardModifiers modifiers) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    void layOut();
    void connectControls();
    void selectFirstOffering();
    void ShowPage();
    void OpenInBrowser();
    void chkConnectToWeb_Click();
    void pageFinished();
    void navigationFailed(const std::string& sAddress);
    void cmdSearch_Click();

    OfferingPages pages_;
    std::string msProductCode_;
    std::string msClassID_;
    std::string msCurrentURL_;
    bool mbTreeFocused_ = false;
    bool mbActive_ = false;
    /// The message of a failure is up, or has just gone: the form comes to the front again behind it.
    bool bTelling_ = false;
    bool bMessageInFront_ = false;

    /// Holds all controls, and doesn't follow a form that has become too small for them.
    QWidget* contents_;
    TreeView* ssTreeZorvoBrendle_ = nullptr;
    PageView* webZorvoBrendle_ = nullptr;
    QCheckBox* chkConnectToWeb_ = nullptr;
    QCheckBox* chkUseBrowser_ = nullptr;
    QPushButton* cmdSearch_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdHelp_ = nullptr;
};

/// New form, shown modally, then released.
void ShowAllOfferings();

} // namespace zorvo
