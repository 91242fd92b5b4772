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

/// `Work` takes all arguments of a signal, or none.
template <typename Work, typename... Arguments>
concept SlotWork = std::is_invocable_v<const Work&, Arguments...> || std::is_invocable_v<const Work&>;

template <typename Work>
class GuardedSlot {
public:
    GuardedSlot(QObject* source, Work work)
        : source_(source)
        , work_(std::move(work))
    {
    }

    template <typename... Arguments>
    requires SlotWork<Work, Arguments...>
    void operator()(Arguments&&... arguments) const
    {
        runGuarded(source_, [&] {
            if constexpr (std::is_invocable_v<const Work&, Arguments...>)
                work_(arguments...);
            else
                work_();
        });
    }

private:
    QPointer<QObject> source_;
    Work work_;
};

/// A slot that does `work` guarded.
///
///   connect(cmdOK, &QPushButton::clicked, this, guardedSlot(this, [this] { cmdOK_Click(); }));
template <typename Work>
GuardedSlot<Work> guardedSlot(QObject* source, Work work)
{
    return {source, std::move(work)};
}

} // namespace zorvo
