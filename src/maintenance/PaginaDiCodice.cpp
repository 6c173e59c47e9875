#include "maintenance/PaginaDiCodice.h"

#include "platform/text/Text.h"

#include <algorithm>
#include <array>

namespace bravona {

namespace {

constexpr char32_t primoProprio = 0x80;

// The characters of the bytes 0x80 to 0x9F; all others are their own number. The five free bytes keep theirs as well.
constexpr std::array<char32_t, 32> propri = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr bool haPosto(char32_t carattere)
{
    return carattere >= primoProprio && carattere < primoProprio + propri.size();
}

std::uint8_t inByte(char32_t carattere)
{
    if (carattere <= 0xFF && !haPosto(carattere)) {
        return static_cast<std::uint8_t>(carattere);
    }
    const auto* trovato = std::ranges::find(propri, carattere);
    if (trovato == propri.end()) {
        return '?';
    }
    return static_cast<std::uint8_t>(primoProprio + static_cast<char32_t>(trovato - propri.begin()));
}

}  // namespace

Bytes inPaginaDiCodice(std::string_view testo)
{
    const std::u32string caratteri = toCodePoints(testo);
    Bytes byte(caratteri.size());
    std::ranges::transform(caratteri, byte.begin(), inByte);
    return byte;
}

std::string daPaginaDiCodice(const Bytes& byte)
{
    std::u32string caratteri(byte.size(), U'\0');
    std::ranges::transform(byte, caratteri.begin(),
                           [](char32_t valore) { return haPosto(valore) ? propri[valore - primoProprio] : valore; });
    return fromCodePoints(caratteri);
}

}  // namespace bravona
