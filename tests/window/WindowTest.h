#pragma once

#include "base/RunTimeError.h"
#include "base/failure.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace zorvo {

/// Serves events until the condition holds; false when it doesn't within twenty seconds, which only a failure
/// takes.
inline bool waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 20000);
}

template <typename Call>
int errorNumberOf(Call call)
{
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

inline std::string accessibleText(QObject& object, QAccessible::Text kind = QAccessible::Name)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&object);
    return interface ? interface->text(kind).toStdString() : "no interface";
}

inline QAccessible::Role accessibleRole(QObject& object)
{
    return QAccessible::queryAccessibleInterface(&object)->role();
}

/// Takes down what is reported while it lives.
class ReportedFailures {
public:
    ReportedFailures()
        : before_(setFailureReporter(
              [this](const auto&, const auto&, const auto&) { descriptions.push_back(gsErrDescription); }))
    {
    }
    ~ReportedFailures() { setFailureReporter(before_); }
    ReportedFailures(const ReportedFailures&) = delete;
    ReportedFailures& operator=(const ReportedFailures&) = delete;

    std::vector<std::string> descriptions;

private:
    FailureReporter before_;
};

} // namespace zorvo
