#include "window/clsMousePointer.h"

#include "window/MainFormGate.h"

#include <QApplication>
#include <QCursor>

namespace zorvo {

namespace {

constexpr std::int16_t kHourglass = 11;
constexpr std::int16_t kArrowHourglass = 13;

std::int16_t& shownPointer()
{
    static std::int16_t pointer = 0;
    return pointer;
}

} // namespace

clsMousePointer::~clsMousePointer()
{
    nCount_ = 0;
    setScreenPointer(0);
}

void clsMousePointer::ClearMousePointer()
{
    while (nCount_ > 0)
        setMousePointer(0);
}

void clsMousePointer::SetModalDialogState(bool b)
{
    bModalState_ = b;
}

void clsMousePointer::setMousePointer(std::int16_t nValue)
{
    if (nValue == kHourglass || nValue == kArrowHourglass) {
        if (nCount_ == 0) {
            EnableMainForm(false);
            setScreenPointer(nValue);
            nPointer_ = nValue;
        }
        ++nCount_;
        return;
    }
    if (nCount_ == 0)
        return;
    --nCount_;
    if (nCount_ == 0) {
        setScreenPointer(0);
        nPointer_ = 0;
        EnableMainForm(true);
    }
}

void clsMousePointer::EnableMainForm(bool bEnabled)
{
    if (bModalState_ || !mainFormGate())
        return;
    // Asking for the state loads a main form that isn't there.
    if (mainFormGate()->isEnabled() != bEnabled)
        mainFormGate()->setEnabled(bEnabled);
}

clsMousePointer& goMousePointer()
{
    static clsMousePointer pointer;
    return pointer;
}

std::int16_t screenPointer()
{
    return shownPointer();
}

void setScreenPointer(std::int16_t nValue)
{
    const bool bWasSet = shownPointer() != 0;
    shownPointer() = nValue;
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    if (bWasSet)
        QApplication::restoreOverrideCursor();
    if (nValue != 0)
        QApplication::setOverrideCursor(nValue == kArrowHourglass ? Qt::BusyCursor : Qt::WaitCursor);
}

} // namespace zorvo
