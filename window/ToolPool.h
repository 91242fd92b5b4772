#pragma once

#include "window/Picture.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// The commands of a window and where they stand, free of any widget.
namespace zorvo {

enum class ToolType { button = 0, ownsSubBand = 7 };

struct Tool {
    /// Compared in upper case.
    std::string sId;
    /// "&" marks the access key. An empty one takes the text of the other.
    std::string sMenuCaption;
    std::string sToolbarCaption;
    std::string sCategory;
    std::string sStatusText;
    std::string sToolTip;
    /// A drawing of the resources, as drawnIcon takes it; none when empty.
    std::string sIcon;
    ToolType type = ToolType::button;
    /// The band that a tool of type 7 opens.
    std::string sSubBand;
    /// 1 shows the tool checked. Absent for a tool that is never checked.
    std::optional<int> state;
    bool bEnabled = true;
    bool bVisible = true;
};

enum class BandKind { menuBar, toolbar, subBand };

struct ToolBand {
    /// In a tool's place.
    static constexpr const char* kSeparator = "-";

    std::string sName;
    BandKind kind;
    std::vector<std::string> toolIds;
};

class ToolPool {
public:
    /// Throws RunTimeError 457 when the id exists.
    void addTool(Tool tool);
    /// Throws RunTimeError 457 when the name exists, 5 when a tool isn't in the pool.
    void addBand(const ToolBand& band);

    /// Of every tool, in upper case.
    std::vector<std::string> toolIds() const;
    const std::vector<ToolBand>& bands() const { return bands_; }
    /// Throws RunTimeError 5 when there is no such band.
    const ToolBand& band(const std::string& sName) const;
    /// Throws RunTimeError 5 when there is no such tool.
    const Tool& tool(const std::string& sId) const;

    // All throw RunTimeError 5 when there is no such tool.
    void setState(const std::string& sId, int nState);
    void setEnabled(const std::string& sId, bool bEnabled);
    void setVisible(const std::string& sId, bool bVisible);

    using CaptionRule = std::function<std::string(const std::string& sCaption)>;
    /// Puts every caption through the rule, once: of each menu bar and toolbar each tool, and of each tool of
    /// type 7 the tools of its sub-band.
    void rewriteCaptions(const CaptionRule& rule);
    /// Puts the status text and the tool tip of every tool through the rule.
    void rewriteHints(const CaptionRule& rule);

    /// The picture at the side of the menus; null for none.
    const PicturePtr& sideStrip() const { return sideStrip_; }
    void setSideStrip(PicturePtr picture);

    /// Told of each tool that changes, and with null when the side strip does.
    using Listener = std::function<void(const Tool* tool)>;
    void setListener(Listener listener) { listener_ = std::move(listener); }

private:
    Tool& toolToChange(const std::string& sId);
    void rewriteBand(const ToolBand& band, const CaptionRule& rule);
    void changed(const Tool* tool) const;

    std::map<std::string, Tool> toolsByUpperId_;
    std::vector<ToolBand> bands_;
    PicturePtr sideStrip_;
    Listener listener_;
};

} // namespace zorvo
