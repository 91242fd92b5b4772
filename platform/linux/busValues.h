#pragma once

#include "platform/ObjectService.h"

#include <QString>
#include <QVariant>

/// Values as they travel on the session bus.
namespace zorvo {

/// The bus type of an argument kind: text s, boolean b, int32 i, uint32 u, variant v, textArray as.
QString busType(ArgumentKind kind);

/// The value as a message argument of exactly the bus type `type` (b y n q i u x t d s o v as av). A missing
/// value becomes the empty text, zero or False. Throws RunTimeError 13 when there is no such conversion, 6
/// when a number doesn't fit.
QVariant toBus(const Value& value, const QString& type);

/// The value with the bus type that is nearest to it, in a variant; a missing one is an empty text.
QVariant toBusVariant(const Value& value);

/// What came in a message. Inside a variant the empty text is a missing value. Object paths come as text.
/// Throws RunTimeError 13 for a type that no value has.
Value fromBus(const QVariant& argument);

/// The contents of an `av` argument, each out of its variant or still in it.
QVariantList busVariants(const QVariant& argument);

/// Text without what a bus message can't carry: it ends at the first zero character.
QString busText(const std::string& text);

} // namespace zorvo
