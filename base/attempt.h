#pragma once

#include "base/RunTimeError.h"

#include <utility>

namespace zorvo {

/// A statement that is passed over when it fails: what it should have done stays undone, and nobody is told.
template <typename Statement>
void attempt(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RunTimeError&) { // the caller goes on with what is there
    }
}

} // namespace zorvo
