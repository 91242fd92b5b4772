#pragma once

#include "platform/linux/busInterface.h"

#include <QList>
#include <QVariantList>
#include <vector>

namespace zorvo {

/// For each of a member's replies, in order: the place of the argument that comes back in it, or -1 for a
/// result.
///
/// A reply with a name is the argument of that name and type, if there is one. Replies without names are
/// taken by the order alone: as many as the arguments (two or more) and of the same types are all of them,
/// otherwise the first is the result and each further one the next argument of its type.
QList<qsizetype> replyPlaces(const BusMember& member);

/// Puts the replies at their places and gives the result. A further reply that is no argument's follows
/// behind the arguments.
Value distributeReplies(const QVariantList& replies, const QList<qsizetype>& places,
                        std::vector<Value>& arguments);

} // namespace zorvo
