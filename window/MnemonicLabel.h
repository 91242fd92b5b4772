#pragma once

#include "window/KnownHeights.h"

#include <QFont>
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

    int heightForWidth(int width) const final;

protected:
    /// The height at a width, worked out; it is asked again only when something changes that it follows from.
    virtual int measuredHeight(int width) const;

private:
    /// What a height follows from, apart from the width.
    struct Measured {
        QString text;
        QFont font;
        QMargins margins;
        int nMargin = 0;
        int nIndent = 0;
        bool bWraps = false;

        bool operator==(const Measured&) const = default;
    };

    // The caption is the one way to the text.
    using QLabel::setText;

    void showCaption();

    QString caption_;
    QPointer<QWidget> named_;
    mutable Measured measured_;
    mutable KnownHeights heights_;
};

} // namespace zorvo
