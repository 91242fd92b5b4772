#pragma once

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace zorvo {

template <typename Control>
Control* child(QWidget& form, const char* name)
{
    return form.findChild<Control*>(QString::fromLatin1(name));
}

/// Acts on the modal form of that name as soon as it is up.
inline void whenModal(const char* name, const std::function<void(QWidget&)>& act)
{
    QTimer::singleShot(20, qApp, [name, act] {
        QWidget* form = QApplication::activeModalWidget();
        if (form && form->objectName() == QLatin1String(name))
            act(*form);
        else
            whenModal(name, act);
    });
}

inline void click(QWidget& form, const char* name)
{
    QTest::mouseClick(child<QPushButton>(form, name), Qt::LeftButton);
}

} // namespace zorvo
