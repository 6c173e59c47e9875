// Case, order and equality of texts: what of Text.h needs the Italian rules.
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uversion.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>
#include <optional>
#include <stdexcept>

#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::size_t quantiAscii = 128;

void controlla(UErrorCode esito, const char* cosa)
{
    if (U_FAILURE(esito)) {
        throw std::runtime_error(std::string(cosa) + ": " + u_errorName(esito));
    }
}

icu::StringPiece pezzo(std::string_view text)
{
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

icu::UnicodeString largo(std::string_view text)
{
    return icu::UnicodeString::fromUTF8(pezzo(text));
}

std::string stretto(const icu::UnicodeString& text)
{
    std::string s;
    return text.toUTF8String(s);
}

const icu::Locale& italiano()
{
    static const icu::Locale locale("it", "IT");
    return locale;
}

const icu::Normalizer2& composizione()
{
    static const icu::Normalizer2* nfc = [] {
        UErrorCode esito = U_ZERO_ERROR;
        const icu::Normalizer2* n = icu::Normalizer2::getNFCInstance(esito);
        controlla(esito, "normalizzazione");
        return n;
    }();
    return *nfc;
}

// The collator, and the rank of each printable ASCII character in its order: two plain texts, by far the most, are
// compared through the table alone.
class Ordine {
public:
    Ordine()
    {
        UErrorCode esito = U_ZERO_ERROR;
        collatore_.reset(icu::Collator::createInstance(italiano(), esito));
        controlla(esito, "ordine italiano");
        collatore_->setStrength(icu::Collator::SECONDARY);  // case ignored, accents count
        collatore_->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, esito);
        controlla(esito, "ordine italiano");

        std::array<char, primoNonStampabile - primoStampabile> caratteri{};
        std::iota(caratteri.begin(), caratteri.end(), static_cast<char>(primoStampabile));
        std::stable_sort(caratteri.begin(), caratteri.end(), [this](char a, char b) { return confronta(a, b) < 0; });
        std::uint8_t rango = 1;  // 0: not in the table
        for (std::size_t i = 0; i < caratteri.size(); ++i) {
            if (i > 0 && confronta(caratteri[i - 1], caratteri[i]) != 0) {
                ++rango;
            }
            rango_[static_cast<unsigned char>(caratteri[i])] = rango;
        }
    }

    // By the table: the first difference between two plain characters decides, whatever follows. Empty when another
    // character comes first.
    [[nodiscard]] std::optional<int> confrontaSemplici(std::string_view a, std::string_view b) const
    {
        const std::size_t comune = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < comune; ++i) {
            const int x = rango(a[i]);
            const int y = rango(b[i]);
            if (x == 0 || y == 0) {
                return std::nullopt;
            }
            if (x != y) {
                return x - y;
            }
        }
        if (a.size() == b.size()) {
            return 0;
        }
        // What an accent or a control character at the end of the shorter text does is not told by the table.
        const bool semplice = rango(a.size() > comune ? a[comune] : b[comune]) != 0;
        return semplice ? std::optional(a.size() < b.size() ? -1 : 1) : std::nullopt;
    }

    // As the collator has it.
    [[nodiscard]] int confronta(std::string_view a, std::string_view b) const
    {
        UErrorCode esito = U_ZERO_ERROR;
        const UCollationResult r = collatore_->compareUTF8(pezzo(a), pezzo(b), esito);
        controlla(esito, "confronto");
        return r;
    }

    [[nodiscard]] std::string versione() const
    {
        UVersionInfo ordinamento{};
        collatore_->getVersion(ordinamento);
        UVersionInfo unicode{};
        u_getUnicodeVersion(unicode);
        std::array<char, U_MAX_VERSION_STRING_LENGTH> primo{};
        std::array<char, U_MAX_VERSION_STRING_LENGTH> secondo{};
        u_versionToString(ordinamento, primo.data());
        u_versionToString(unicode, secondo.data());
        return std::string("it ") + primo.data() + " " + secondo.data();
    }

private:
    static constexpr std::size_t primoStampabile = 0x20;
    static constexpr std::size_t primoNonStampabile = 0x7F;

    [[nodiscard]] int rango(char c) const
    {
        const auto byte = static_cast<unsigned char>(c);
        return byte < quantiAscii ? rango_[byte] : 0;
    }

    [[nodiscard]] int confronta(char a, char b) const
    {
        return confronta(std::string_view(&a, 1), std::string_view(&b, 1));
    }

    std::unique_ptr<icu::Collator> collatore_;
    std::array<std::uint8_t, quantiAscii> rango_{};
};

const Ordine& ordine()
{
    static const Ordine unico;
    return unico;
}

bool ascii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < quantiAscii; });
}

char minuscola(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char maiuscola(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

std::string conOgniByte(std::string_view text, char (*cambia)(char))
{
    std::string s(text);
    std::ranges::transform(s, s.begin(), cambia);
    return s;
}

}  // namespace

std::string upper(std::string_view text)
{
    if (ascii(text)) {
        return conOgniByte(text, maiuscola);
    }
    return stretto(largo(text).toUpper(italiano()));
}

std::string lower(std::string_view text)
{
    if (ascii(text)) {
        return conOgniByte(text, minuscola);
    }
    return stretto(largo(text).toLower(italiano()));
}

std::string properName(std::string_view text)
{
    const std::u32string piccolo = toCodePoints(lower(text));
    std::u32string s;
    bool inizio = true;
    for (const char32_t c : piccolo) {
        s.push_back(inizio ? static_cast<char32_t>(u_totitle(static_cast<UChar32>(c))) : c);
        inizio = u_isUWhiteSpace(static_cast<UChar32>(c)) != 0 || c == U'\'' || c == U'\u2019' || c == U'-';
    }
    return fromCodePoints(s);
}

std::string fold(std::string_view text)
{
    if (ascii(text)) {
        return conOgniByte(text, minuscola);
    }
    UErrorCode esito = U_ZERO_ERROR;
    // Composed before as well: folding a letter apart from its accent may give what does not compose.
    icu::UnicodeString s = composizione().normalize(largo(text), esito);
    controlla(esito, "normalizzazione");
    s = composizione().normalize(s.foldCase(), esito);
    controlla(esito, "normalizzazione");
    return stretto(s);
}

int compareFolded(std::string_view a, std::string_view b)
{
    if (const auto esito = ordine().confrontaSemplici(a, b)) {
        return *esito;
    }
    // Folded first, so that order and equality agree on every text (ß and ss); what the collator then still takes as
    // equal (º and o) is told apart by the bytes.
    const std::string x = fold(a);
    const std::string y = fold(b);
    const int esito = ordine().confronta(x, y);
    return esito != 0 ? esito : x.compare(y);
}

bool equalFolded(std::string_view a, std::string_view b)
{
    if (ascii(a) && ascii(b)) {
        return std::ranges::equal(a, b, [](char x, char y) { return minuscola(x) == minuscola(y); });
    }
    return fold(a) == fold(b);
}

bool startsWithFolded(std::string_view text, std::string_view prefix)
{
    if (ascii(text) && ascii(prefix)) {
        return equalFolded(text.substr(0, prefix.size()), prefix);
    }
    return fold(text).starts_with(fold(prefix));
}

std::string collationVersion()
{
    return ordine().versione();
}

}  // namespace bravona
