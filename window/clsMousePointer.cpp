#include "window/clsMousePointer.h"

#include "window/MainFormGate.h"

#include <QApplication>
#include <QCursor>

namespace zorvo {

namespace {

constexpr std::int16_t kArrowHourglass = 13;

std::int16_t nScreenPointer = 0;

bool isBusyPointer(std::int16_t nValue)
{
    return nValue == kHourglass || nValue == kArrowHourglass;
}

} // namespace

clsMousePointer::~clsMousePointer()
{
    nCount_ = 0;
    setScreenPointer(kDefaultPointer);
}

void clsMousePointer::ClearMousePointer()
{
    while (nCount_ > 0)
        setMousePointer(kDefaultPointer);
}

void clsMousePointer::SetModalDialogState(bool b)
{
    bModalState_ = b;
}

void clsMousePointer::setMousePointer(std::int16_t nValue)
{
    if (isBusyPointer(nValue)) {
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
        setScreenPointer(kDefaultPointer);
        nPointer_ = kDefaultPointer;
        EnableMainForm(true);
    }
}

void clsMousePointer::EnableMainForm(bool bEnabled)
{
    if (bModalState_)
        return;
    MainFormGate* gate = mainFormGate();
    if (gate && gate->isEnabled() != bEnabled)
        gate->setEnabled(bEnabled);
}

clsMousePointer& goMousePointer()
{
    static clsMousePointer pointer;
    return pointer;
}

std::int16_t screenPointer()
{
    return nScreenPointer;
}

void setScreenPointer(std::int16_t nValue)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    // The application keeps a stack of pointers; this one is never more than one deep.
    if (isBusyPointer(nScreenPointer))
        QGuiApplication::restoreOverrideCursor();
    nScreenPointer = nValue;
    if (isBusyPointer(nValue))
        QGuiApplication::setOverrideCursor(nValue == kHourglass ? Qt::WaitCursor : Qt::BusyCursor);
}

} // namespace zorvo
