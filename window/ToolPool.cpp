#include "window/ToolPool.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <algorithm>
#include <utility>

namespace zorvo {

void ToolPool::addTool(Tool tool)
{
    if (tool.sMenuCaption.empty())
        tool.sMenuCaption = tool.sToolbarCaption;
    if (tool.sToolbarCaption.empty())
        tool.sToolbarCaption = tool.sMenuCaption;
    const std::string sUpperId = upperCase(tool.sId);
    if (!toolsByUpperId_.emplace(sUpperId, std::move(tool)).second)
        throw RunTimeError(kKeyAlreadyUsed);
}

void ToolPool::addBand(const ToolBand& band)
{
    const auto sameName = [&band](const ToolBand& other) { return other.sName == band.sName; };
    if (std::any_of(bands_.begin(), bands_.end(), sameName))
        throw RunTimeError(kKeyAlreadyUsed);
    for (const std::string& sId : band.toolIds)
        if (sId != ToolBand::kSeparator)
            tool(sId);
    bands_.push_back(band);
}

std::vector<std::string> ToolPool::toolIds() const
{
    std::vector<std::string> ids;
    for (const auto& [sUpperId, tool] : toolsByUpperId_)
        ids.push_back(sUpperId);
    return ids;
}

const ToolBand& ToolPool::band(const std::string& sName) const
{
    const auto found = std::find_if(bands_.begin(), bands_.end(),
                                    [&sName](const ToolBand& other) { return other.sName == sName; });
    if (found == bands_.end())
        throw RunTimeError(kInvalidCall);
    return *found;
}

const Tool& ToolPool::tool(const std::string& sId) const
{
    return const_cast<ToolPool*>(this)->toolToChange(sId);
}

Tool& ToolPool::toolToChange(const std::string& sId)
{
    const auto found = toolsByUpperId_.find(upperCase(sId));
    if (found == toolsByUpperId_.end())
        throw RunTimeError(kInvalidCall);
    return found->second;
}

void ToolPool::setState(const std::string& sId, int nState)
{
    Tool& tool = toolToChange(sId);
    if (std::exchange(tool.state, nState) != nState)
        changed(&tool);
}

void ToolPool::setEnabled(const std::string& sId, bool bEnabled)
{
    Tool& tool = toolToChange(sId);
    if (std::exchange(tool.bEnabled, bEnabled) != bEnabled)
        changed(&tool);
}

void ToolPool::setVisible(const std::string& sId, bool bVisible)
{
    Tool& tool = toolToChange(sId);
    if (std::exchange(tool.bVisible, bVisible) != bVisible)
        changed(&tool);
}

void ToolPool::rewriteCaptions(const CaptionRule& rule)
{
    for (const ToolBand& band : bands_)
        if (band.kind != BandKind::subBand)
            rewriteBand(band, rule);
}

void ToolPool::rewriteBand(const ToolBand& band, const CaptionRule& rule)
{
    for (const std::string& sId : band.toolIds) {
        if (sId == ToolBand::kSeparator)
            continue;
        Tool& tool = toolToChange(sId);
        std::string& sCaption = band.kind == BandKind::toolbar ? tool.sToolbarCaption : tool.sMenuCaption;
        sCaption = rule(sCaption);
        changed(&tool);
        if (tool.type == ToolType::ownsSubBand)
            rewriteBand(this->band(tool.sSubBand), rule);
    }
}

void ToolPool::rewriteHints(const CaptionRule& rule)
{
    for (auto& [sUpperId, tool] : toolsByUpperId_) {
        tool.sStatusText = rule(tool.sStatusText);
        tool.sToolTip = rule(tool.sToolTip);
        changed(&tool);
    }
}

void ToolPool::setSideStrip(PicturePtr picture)
{
    sideStrip_ = std::move(picture);
    changed(nullptr);
}

void ToolPool::changed(const Tool* tool) const
{
    if (listener_)
        listener_(tool);
}

} // namespace zorvo
