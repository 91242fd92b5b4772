#pragma once

#include "base/RunTimeError.h"
#include "creation/creationState.h"

#include <utility>

/// Statements to Word, Excel and their add-ins: one that fails is skipped, and the next one runs.
namespace zorvo {

/// A statement that the document needs: its failure is kept in `creationState().skippedFailures`.
template <typename Statement>
void officeCall(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RunTimeError& error) {
        creationState().skippedFailures.push_back(error);
    }
}

/// A statement behind the save of a document that nobody sees: its failure takes nothing from the file, and
/// is only written down.
template <typename Statement>
void callAfterSave(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RunTimeError& error) {
        creationState().failuresAfterSave.push_back(error);
    }
}

/// A statement that a good document can do without: an add-in that need not be there, a window to bring up.
template <typename Statement>
void optionalOfficeCall(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
    } catch (const RunTimeError&) { // the machine has no such thing, and the document is as good
    }
}

} // namespace zorvo
