#include "platform/store/Like.h"

#include <algorithm>

#include "platform/text/Text.h"

namespace bravona {
namespace {

bool isAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Bytes of the character that begins there.
std::size_t characterAt(std::string_view text, std::size_t at)
{
    std::size_t end = at + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        ++end;
    }
    return end - at;
}

// After a mismatch the last run takes one character more: no other choice can do better.
template <typename Fold>
bool match(std::string_view pattern, std::string_view text, Fold foldByte)
{
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t run = std::string_view::npos;
    std::size_t resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '%') {
            run = ++p;
            resume = t;
        } else if (p < pattern.size() && pattern[p] == '_') {
            ++p;
            t += characterAt(text, t);
        } else if (p < pattern.size() && pattern[p] == foldByte(text[t])) {
            ++p;
            ++t;
        } else if (run != std::string_view::npos) {
            p = run;
            resume += characterAt(text, resume);
            t = resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '%') {
        ++p;
    }
    return p == pattern.size();
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) : folded_(fold(pattern))
{
    std::ranges::replace(folded_, '*', '%');
    std::ranges::replace(folded_, '?', '_');
}

bool LikePattern::matches(std::string_view text) const
{
    if (isAscii(text)) {
        return match(folded_, text, [](char c) { return lower(c); });
    }
    return match(folded_, fold(text), [](char c) { return c; });
}

}  // namespace bravona
