#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zorvo {

/// The file in which a session hands its selection over to a partner suite: one line in double quotes, below
/// the documents folder. Reads through the ports of files and folders.
class HandOverFile {
public:
    /// Remembers what lies there now: the answer of an earlier session.
    HandOverFile();

    /// The text of a file written since, without the quotes and the line's end; nothing when there is none.
    /// Throws RunTimeError when it can't be read.
    std::optional<std::string> newText() const;

private:
    struct State {
        std::int64_t nModified = 0;
        std::uint64_t nSize = 0;
        friend bool operator==(const State&, const State&) = default;
    };
    std::optional<State> state() const;

    std::string sPath_;
    std::optional<State> before_;
};

} // namespace zorvo
