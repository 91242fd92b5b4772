#pragma once

#include "platform/linux/office/OfficeConnection.h"

#include <memory>
#include <string>

namespace zorvo {

/// The way to one office process: an own one, or the user's.
class OfficeGate {
public:
    virtual ~OfficeGate() = default;

    /// Starts or joins the office and gives a connection on which nothing was said yet. Blocks until the
    /// office listens; after `close` it throws soon. RunTimeError 429 when the office can't be had.
    virtual std::unique_ptr<OfficeConnection> connect() = 0;

    /// Nothing more is wanted of the office. From any thread.
    virtual void close() = 0;

    /// What a user reads when the office has ended or hangs.
    virtual std::string crashText() const = 0;
    virtual std::string hangText() const = 0;
};

} // namespace zorvo
