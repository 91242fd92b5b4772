#pragma once

#include <QLabel>
#include <QPointer>

namespace zorvo {

/// A label whose caption marks its access key with "&" ("&&" shows one "&") and wraps. With a buddy the key
/// gives the buddy the focus, and people who can't see the label hear it as the buddy's name. The text is
/// plain.
class MnemonicLabel : public QLabel {
    Q_OBJECT

public:
    explicit MnemonicLabel(QWidget* parent = nullptr);
    MnemonicLabel(const char* name, const QString& caption, QWidget* parent = nullptr);

    const QString& caption() const { return caption_; }
    void setCaption(const QString& caption);

    void setBuddy(QWidget* buddy);

private:
    // The caption is the one way to the text.
    using QLabel::setText;

    void showCaption();

    QString caption_;
    QPointer<QWidget> named_;
};

} // namespace zorvo
