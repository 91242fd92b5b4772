#include "window/MnemonicLabel.h"

#include "window/accessKey.h"

#include <utility>

namespace zorvo {

MnemonicLabel::MnemonicLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

MnemonicLabel::MnemonicLabel(const char* name, const QString& caption, QWidget* parent)
    : MnemonicLabel(parent)
{
    setObjectName(QString::fromUtf8(name));
    setCaption(caption);
}

void MnemonicLabel::setCaption(const QString& caption)
{
    caption_ = caption;
    showCaption();
}

void MnemonicLabel::setBuddy(QWidget* buddy)
{
    named_ = buddy;
    QLabel::setBuddy(buddy);
    showCaption();
}

int MnemonicLabel::heightForWidth(int width) const
{
    Measured now{text(), font(), contentsMargins(), margin(), indent(), wordWrap()};
    if (now != measured_) {
        measured_ = std::move(now);
        heights_.forget();
    }
    return heights_.at(width, [this](int nWidth) { return measuredHeight(nWidth); });
}

int MnemonicLabel::measuredHeight(int width) const
{
    return QLabel::heightForWidth(width);
}

void MnemonicLabel::showCaption()
{
    // Without a buddy the base class marks no key and would show each "&".
    const QString read = withoutAccessKey(caption_);
    setText(named_ ? caption_ : read);
    setAccessibleName(read);
    if (named_)
        named_->setAccessibleName(read);
}

} // namespace zorvo
