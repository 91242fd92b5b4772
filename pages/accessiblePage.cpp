#include "pages/accessiblePage.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <QtGui/qaccessibleobject.h>

namespace zorvo {

namespace {

QPointer<QWidget>& shownHost()
{
    static QPointer<QWidget> host;
    return host;
}

/// The application, whose one child is the host of the page.
class PageApplication : public QAccessibleApplication {
public:
    int childCount() const override { return shownHost() ? 1 : 0; }
    QAccessibleInterface* child(int nIndex) const override
    {
        return nIndex == 0 && shownHost() ? QAccessible::queryAccessibleInterface(shownHost()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child->object() == shownHost() ? 0 : -1;
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    return object == qApp ? new PageApplication : nullptr;
}

} // namespace

void makeAccessible(QWidget& host)
{
    shownHost() = &host;
    QAccessible::installFactory(makeInterface);
}

} // namespace zorvo
