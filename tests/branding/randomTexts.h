#pragma once

#include <random>
#include <string>

namespace zorvo {

/// Makes texts, companies and caption documents out of the substitution rule's own fragments: words, tokens,
/// halves of both, what stands around them, pairs. The same seed gives the same sequence everywhere.
class RandomTexts {
public:
    explicit RandomTexts(std::uint64_t seed)
        : engine_(seed)
    {
    }

    std::string text();
    /// The text of a caption document with up to six pairs.
    std::string captionDocument();
    std::string company();
    bool coin() { return below(2) == 1; }

private:
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    std::string fragment();
    std::string fragments(std::size_t count);

    std::mt19937_64 engine_;
};

} // namespace zorvo
