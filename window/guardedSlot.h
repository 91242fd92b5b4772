#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <type_traits>
#include <utility>

/// What a user or a timer sets going ends here: no failure may travel on into the event loop.
namespace zorvo {

/// Runs `work`, an event of `source`. A failure goes to the modal show of the form that `source` belongs to,
/// which ends and throws it to its caller; elsewhere it is recorded and reported. True when there was none.
bool runGuarded(QObject* source, const std::function<void()>& work);

/// A slot that does `work` guarded. `work` takes all arguments of the signal, or none.
///
///   connect(cmdOK, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdOK_Click(); }));
template <typename Work>
auto guardedSlot(QObject* source, Work work)
{
    return [guarded = QPointer<QObject>(source), work = std::move(work)](auto&&... arguments) -> void {
        runGuarded(guarded, [&] {
            if constexpr (std::is_invocable_v<const Work&, decltype(arguments)...>)
                work(arguments...);
            else
                work();
        });
    };
}

} // namespace zorvo
