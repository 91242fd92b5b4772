#pragma once

namespace zorvo {

/// The running program's version; the build sets it.
struct ProgramVersion {
    int nMajor;
    int nMinor;
    int nRevision;
};

inline constexpr ProgramVersion kProgramVersion{ZORVO_VERSION_MAJOR, ZORVO_VERSION_MINOR,
                                                ZORVO_VERSION_PATCH};

} // namespace zorvo
