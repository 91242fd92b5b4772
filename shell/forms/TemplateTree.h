#pragma once

#include "shell/MainForm.h"
#include "tree/TreeWindow.h"
#include "window/Form.h"
#include "window/IntervalTimer.h"
#include "window/ToolPool.h"

#include <array>
#include <functional>
#include <map>

class QGroupBox;
class QLabel;
class QProgressBar;

namespace zorvo {

class LinkLabel;
class ListBar;
class MnemonicLabel;
class StatusPanels;
class TextScrollArea;
class ToolBands;
class TreeNode;
class TreeView;

/// The program's one main form: the tree of products and documents, the list bar of products beside it, the
/// commands on top, the description of what is selected. Its load event is where everything starts, its
/// unload event is where the process ends.
class TemplateTree : public Form, public MainForm, public TreeWindow {
    Q_OBJECT

public:
    TemplateTree();
    ~TemplateTree() override;

    // MainForm
    int tmEventInterval() const override;
    void setTmEventInterval(int nMilliseconds) override;
    bool isShown() const override;
    void SetWindowTopMost(bool bTop) override;
    void unloadForm() override;
    std::string caption() const override;

    // TreeWindow
    TreeNodes& tree() override;
    void setNewDocumentEnabled(bool bEnabled) override;
    void setDescription(const std::string& caption) override;
    void unload() override;

    /// Text of the first status panel.
    void setStatusText(const QString& text);

    // Commands, in the order of the tools.
    void OKbtn_Click();
    void ExitProgram();
    void ShowHelpContents();
    void ShowAboutBox();
    void RunLibrarySearch();
    void SearchTree();
    void ExpandCollapse(bool bExpand);
    void ZorvoBrendleOptionsDialog();

    /// Brings menu and tool bar in line with the session's settings, and reloads the tree on request.
    void SetTBState(bool bReadSettings, bool bLoadTree);

protected:
    void onLoad() override;
    void onActivate() override;
    void onQueryUnload(UnloadMode mode) override;
    void onUnload() override;
    bool onKeyDown(int key, Qt::KeyboardModifiers modifiers) override;

private:
    void buildControls();
    void buildDescription();
    void layOutInstructions();
    void layOutDescription();
    void layOut();
    void connectControls();
    void mapCommands();

    void runLoadSteps();
    void buildStatusBar();
    void restoreGeometry();
    void storeGeometry();
    void loadTree();
    void orderFocus();
    void showProgress(int nDone, int nTotal);
    static void handSelectionOver();
    void RebrandToolbars();
    /// As with nothing selected: a tree that was filled anew has no selection.
    void clearDescription();
    void setToolStates();
    void setViewTo(bool bCurrentOnly);
    void newWordDocument();
    void newExcelWorkbook();

    void toolClick(const QString& id);
    void listBarClick(int index);
    void nodeSelected(TreeNode* node);
    void nodeDoubleClick(const TreeNode* node);

    ToolPool tools_;
    ToolBands* tbMain_ = nullptr;
    ListBar* lbMain_ = nullptr;
    TreeView* TreeView1_ = nullptr;
    StatusPanels* sbZorvoBrendle_ = nullptr;
    QProgressBar* gagZorvoBrendle_ = nullptr;
    QGroupBox* fraInstructions_ = nullptr;
    QGroupBox* fraDesc_ = nullptr;
    MnemonicLabel* lblDesc_ = nullptr;
    TextScrollArea* instructionsArea_ = nullptr;
    TextScrollArea* descriptionArea_ = nullptr;
    MnemonicLabel* lblInstructions_ = nullptr;
    MnemonicLabel* lblContactUsMessage_ = nullptr;
    MnemonicLabel* lblContactUsClickLinkInstructions_ = nullptr;
    LinkLabel* linkContactUs_ = nullptr;
    QLabel* picForTaskManager_ = nullptr;
    IntervalTimer tmEvent_;
    std::map<std::string, std::function<void()>> commands_;

    /// Captions of the company's document that the form keeps for its use: three labels, three category
    /// words.
    std::array<std::string, 6> captions_;

    bool bTreeHasFocus_ = false;
    bool bEventsArmed_ = false;
    bool bFirstActivate_ = true;
    /// The help has come into being with this form as its owner.
    bool bMadeHelp_ = false;
    bool bInToolClick_ = false;
    bool bInListBarClick_ = false;
    bool bInDoubleClick_ = false;
};

} // namespace zorvo
