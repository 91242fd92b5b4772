#pragma once

#include "shell/mainResize.h"

#include <QLayout>

#include <array>
#include <functional>
#include <memory>

namespace zorvo {

/// Lays out the main form: the bands on top, below them list bar, tree and the two frames side by side, the
/// status bar at the foot with the progress bar over its beginning. Texts take the height that the desktop's
/// font gives them; the rest follows the form's size by resizeMainForm.
class MainFormLayout : public QLayout {
    Q_OBJECT

public:
    enum class Part { bands, listBar, tree, instructions, description, gauge, status };

    explicit MainFormLayout(QWidget* form);
    ~MainFormLayout() override;

    /// Each part once.
    void setPart(Part part, QWidget* widget);

    const MainFormParts& parts() const { return parts_; }
    /// Called after each resize.
    void setListener(std::function<void(const MainFormParts&)> listener) { listener_ = std::move(listener); }

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    void setGeometry(const QRect& area) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;

private:
    static constexpr std::size_t kParts = 7;

    QLayoutItem& item(Part part) const;
    void placeMiddle(const QRect& middle, const QRect& form);
    QSize wholeSize(const std::function<QSize(const QLayoutItem&)>& sizeOf) const;

    std::array<std::unique_ptr<QLayoutItem>, kParts> items_;
    MainFormParts parts_;
    std::function<void(const MainFormParts&)> listener_;
};

} // namespace zorvo
