#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "platform/reports/FaceWidths.h"
#include "platform/reports/Report.h"

namespace bravona {

namespace {

constexpr int unitsPerEm = 2048;
constexpr int widestLetter = 2800;  // taken for whatever is not in the table: room enough for any letter
constexpr double twipsPerPoint = 20.0;
constexpr std::string_view ellipsis = "…";

struct Decoded {
    char32_t character;
    std::size_t bytes;
};

// One character of a UTF-8 text; a byte that begins none stands for itself alone.
Decoded decode(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) {
        return {lead, 1};
    }
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (bytes == 0 || bytes > text.size()) {
        return {U'\uFFFD', 1};
    }
    char32_t character = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0U) != 0x80U) {
            return {U'\uFFFD', 1};
        }
        character = (character << 6U) | (next & 0x3FU);
    }
    return {character, bytes};
}

// Whatever would break or upset the line prints as a blank.
bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 || character == 0x2029;
}

int advance(char32_t character, bool bold)
{
    if (isControl(character)) {
        character = U' ';
    }
    if (const std::size_t index = character - detail::plainFirst; index < detail::plainCount) {
        const auto& table = bold ? detail::plainBold : detail::plainNormal;
        return table[index];
    }
    const auto found = std::lower_bound(detail::signs.begin(), detail::signs.end(), character,
                                        [](const detail::SignWidth& sign, char32_t c) { return sign.sign < c; });
    if (found != detail::signs.end() && found->sign == character) {
        return bold ? found->bold : found->normal;
    }
    return widestLetter;
}

struct Measured {
    std::int64_t units = 0;
    bool plain = true;  // nothing in it that prints as a blank
};

Measured measure(std::string_view text, bool bold)
{
    Measured measured;
    while (!text.empty()) {
        const auto [character, bytes] = decode(text);
        measured.units += advance(character, bold);
        measured.plain = measured.plain && !isControl(character);
        text.remove_prefix(bytes);
    }
    return measured;
}

double toTwips(std::int64_t faceUnits, double points)
{
    return static_cast<double>(faceUnits) * points * twipsPerPoint / unitsPerEm;
}

std::string withoutBreaks(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto [character, bytes] = decode(text);
        if (character == U'\r' && text.substr(1, 1) == "\n") {
            text.remove_prefix(1);  // with its line feed one blank
            continue;
        }
        if (isControl(character)) {
            result += ' ';
        } else {
            result.append(text.substr(0, bytes));
        }
        text.remove_prefix(bytes);
    }
    return result;
}

}  // namespace

int textWidth(std::string_view text, double points, bool bold)
{
    return static_cast<int>(std::ceil(toTwips(measure(text, bold).units, points)));
}

std::string fitText(std::string_view text, int width, double points, bool bold)
{
    const Measured measured = measure(text, bold);
    std::string line = measured.plain ? std::string(text) : withoutBreaks(text);
    if (std::ceil(toTwips(measured.units, points)) <= width ||
        (!measured.plain && textWidth(line, points, bold) <= width)) {
        return line;
    }
    const auto room =
        static_cast<std::int64_t>(width * unitsPerEm / (points * twipsPerPoint)) - measure(ellipsis, bold).units;
    if (room < 0) {
        return {};
    }
    std::int64_t used = 0;
    std::size_t kept = 0;
    std::size_t keptText = 0;  // without the blanks at its end
    const std::string_view view(line);
    while (kept < view.size()) {
        const auto [character, bytes] = decode(view.substr(kept));
        used += advance(character, bold);
        if (used > room) {
            break;
        }
        kept += bytes;
        if (character != U' ') {
            keptText = kept;
        }
    }
    line.resize(keptText);
    return line.append(ellipsis);
}

}  // namespace bravona
