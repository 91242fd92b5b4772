#pragma once

#include <QObject>

namespace zorvo {

/// The keys that are on or off. The X server tells the state of Caps Lock and Num Lock; elsewhere, and for
/// Insert, which no desktop keeps, the keys pressed in the program's windows are counted from "off".
class KeyboardLocks : public QObject {
    Q_OBJECT

public:
    explicit KeyboardLocks(QObject* parent = nullptr);

    bool isCapsOn() const { return bCaps_; }
    bool isNumOn() const { return bNum_; }
    bool isInsertOn() const { return bInsert_; }

    /// Asks the X server anew: a lock may change while another program has the keyboard.
    void refresh();

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take(int key);

    bool bCaps_ = false;
    bool bNum_ = false;
    bool bInsert_ = false;
};

} // namespace zorvo
