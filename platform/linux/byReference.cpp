#include "platform/linux/byReference.h"

#include "platform/linux/busValues.h"

#include <algorithm>

namespace zorvo {

namespace {

template <typename Matches>
qsizetype findFrom(const QList<BusArgument>& arguments, qsizetype nFrom, Matches matches)
{
    const auto found = std::find_if(arguments.begin() + nFrom, arguments.end(), matches);
    return found == arguments.end() ? -1 : found - arguments.begin();
}

bool isNamed(const QList<BusArgument>& replies)
{
    return std::any_of(replies.begin(), replies.end(),
                       [](const BusArgument& reply) { return !reply.name.isEmpty(); });
}

QList<qsizetype> placesByName(const BusMember& member)
{
    QList<qsizetype> places;
    for (const BusArgument& reply : member.out)
        places.append(findFrom(member.in, 0, [&reply](const BusArgument& argument) {
            return argument.name == reply.name && argument.type == reply.type;
        }));
    return places;
}

QList<qsizetype> placesByOrder(const BusMember& member)
{
    const auto sameType = [](const BusArgument& a, const BusArgument& b) { return a.type == b.type; };
    const bool bAll = member.in.size() >= 2 && std::equal(member.in.begin(), member.in.end(),
                                                          member.out.begin(), member.out.end(), sameType);
    QList<qsizetype> places;
    qsizetype nNext = 0;
    for (const BusArgument& reply : member.out) {
        if (places.isEmpty() && !bAll) {
            places.append(-1);
            continue;
        }
        const qsizetype place = findFrom(
            member.in, nNext, [&reply](const BusArgument& argument) { return argument.type == reply.type; });
        nNext = place < 0 ? nNext : place + 1;
        places.append(place);
    }
    return places;
}

} // namespace

QList<qsizetype> replyPlaces(const BusMember& member)
{
    return isNamed(member.out) ? placesByName(member) : placesByOrder(member);
}

Value distributeReplies(const QVariantList& replies, const QList<qsizetype>& places,
                        std::vector<Value>& arguments)
{
    Value result;
    bool bHasResult = false;
    for (qsizetype index = 0; index < replies.size(); ++index) {
        const qsizetype place = index < places.size() ? places.at(index) : -1;
        if (place >= 0) {
            arguments.at(static_cast<std::size_t>(place)) = fromBus(replies.at(index));
        } else if (!bHasResult) {
            result = fromBus(replies.at(index));
            bHasResult = true;
        } else {
            arguments.push_back(fromBus(replies.at(index)));
        }
    }
    return result;
}

} // namespace zorvo
