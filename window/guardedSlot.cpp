#include "window/guardedSlot.h"

#include "base/failure.h"
#include "window/Form.h"

namespace zorvo {

namespace {

/// What no one foresaw (memory, a library's own exception) is told like any other failure.
constexpr int kInternalError = 51;

Form* formOf(QObject* source)
{
    for (QObject* object = source; object; object = object->parent())
        if (auto* form = qobject_cast<Form*>(object))
            return form;
    return nullptr;
}

void report(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const RunTimeError& error) {
        recordFailure(error);
    } catch (const std::exception& error) {
        recordFailure(RunTimeError(kInternalError, error.what()));
    } catch (...) {
        recordFailure(RunTimeError(kInternalError));
    }
    ReportError();
}

} // namespace

bool runGuarded(QObject* source, const std::function<void()>& work)
{
    // The work may destroy its source, and with it the way up to the form.
    const QPointer<Form> form = formOf(source);
    try {
        work();
        return true;
    } catch (...) {
        if (!form || !form->endModalShow(std::current_exception()))
            report(std::current_exception());
        return false;
    }
}

} // namespace zorvo
