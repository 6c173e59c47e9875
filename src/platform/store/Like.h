#pragma once

#include <string>
#include <string_view>

namespace bravona {

// A pattern of LIKE: % and * for any run of characters, _ and ? for one. Compared without regard to case, accents
// count.
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern);
    [[nodiscard]] bool matches(std::string_view text) const;

private:
    std::string folded_;  // runs as '%', single characters as '_'
};

}  // namespace bravona
