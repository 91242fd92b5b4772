#pragma once

#include <QLabel>

namespace zorvo {

enum class PanelStyle { text = 0, caps = 1, num = 2, insert = 3, time = 5, date = 6 };
enum class PanelAutoSize { none = 0, spring = 1, contents = 2 };

/// One panel of a status bar.
class StatusPanel : public QLabel {
    Q_OBJECT

public:
    explicit StatusPanel(QWidget* parent);

    PanelStyle panelStyle() const { return style_; }
    void setPanelStyle(PanelStyle style) { style_ = style; }
    PanelAutoSize autoSize() const { return autoSize_; }
    void setAutoSize(PanelAutoSize autoSize);
    /// In logical pixels: of a panel that fits its contents the least width.
    void setPanelWidth(int width);
    int panelWidth() const { return nWidth_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PanelStyle style_ = PanelStyle::text;
    PanelAutoSize autoSize_ = PanelAutoSize::spring;
    int nWidth_ = 0;
};

} // namespace zorvo
