#include "platform/text/Text.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <array>
#include <cstdint>

namespace bravona {

namespace {

constexpr char32_t sostituto = 0xFFFD;

// Reads one character and steps over it.
char32_t avanza(std::string_view text, std::size_t& i)
{
    const auto* s = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 c = 0;
    U8_NEXT(s, i, text.size(), c);
    return c < 0 ? sostituto : static_cast<char32_t>(c);
}

void aggiungi(std::string& s, char32_t c)
{
    const bool valido = c <= 0x10FFFF && !(c >= 0xD800 && c <= 0xDFFF);
    std::uint8_t byte[U8_MAX_LENGTH];
    std::size_t n = 0;
    U8_APPEND_UNSAFE(byte, n, static_cast<std::uint32_t>(valido ? c : sostituto));
    s.append(reinterpret_cast<const char*>(byte), n);
}

bool ascii(std::string_view text)
{
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            return false;
        }
    }
    return true;
}

// Where the character of that position begins, or the end of the text.
std::size_t inizioDi(std::string_view text, std::size_t posizione)
{
    if (posizione >= text.size()) {
        return text.size();
    }
    std::size_t i = 0;
    for (; posizione > 0 && i < text.size(); --posizione) {
        avanza(text, i);
    }
    return i;
}

bool spazio(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::size_t length(std::string_view text)
{
    if (ascii(text)) {
        return text.size();
    }
    std::size_t n = 0;
    for (std::size_t i = 0; i < text.size(); ++n) {
        avanza(text, i);
    }
    return n;
}

std::string left(std::string_view text, std::size_t count)
{
    return std::string(text.substr(0, inizioDi(text, count)));
}

std::string right(std::string_view text, std::size_t count)
{
    const std::size_t n = length(text);
    return count >= n ? std::string(text) : mid(text, n - count);
}

std::string mid(std::string_view text, std::size_t start, std::size_t count)
{
    text.remove_prefix(inizioDi(text, start));
    return left(text, count);
}

std::string trim(std::string_view text)
{
    while (!text.empty() && spazio(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && spazio(text.back())) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

std::string nomeMese(int mese)
{
    static constexpr std::array<const char*, 12> nomi{"Gennaio",   "Febbraio", "Marzo",    "Aprile",
                                                      "Maggio",    "Giugno",   "Luglio",   "Agosto",
                                                      "Settembre", "Ottobre",  "Novembre", "Dicembre"};
    return nomi.at(static_cast<std::size_t>(mese - 1));
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with)
{
    std::string s;
    if (what.empty()) {
        return s.assign(text);
    }
    for (std::size_t da = 0;;) {
        const std::size_t trovato = text.find(what, da);
        s.append(text.substr(da, trovato - da));
        if (trovato == std::string_view::npos) {
            return s;
        }
        s.append(with);
        da = trovato + what.size();
    }
}

std::string quotedText(std::string_view text)
{
    return "'" + replaceAll(text, "'", "''") + "'";
}

std::vector<std::string> split(std::string_view text, char separator)
{
    std::vector<std::string> parti;
    for (;;) {
        const std::size_t fine = text.find(separator);
        parti.emplace_back(text.substr(0, fine));
        if (fine == std::string_view::npos) {
            return parti;
        }
        text.remove_prefix(fine + 1);
    }
}

std::string AllineaSinistra(std::string_view testo, std::size_t lunghezza, char carattere)
{
    const std::size_t n = length(testo);
    if (n >= lunghezza) {
        return left(testo, lunghezza);
    }
    return std::string(testo).append(lunghezza - n, carattere);
}

std::string AllineaDestra(std::string_view testo, std::size_t lunghezza, char carattere)
{
    const std::size_t n = length(testo);
    if (n >= lunghezza) {
        return left(testo, lunghezza);
    }
    return std::string(lunghezza - n, carattere).append(testo);
}

std::string withoutMnemonic(std::string_view caption)
{
    std::string s;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size()) {
            break;
        }
        s.push_back(caption[i]);
    }
    return s;
}

char32_t mnemonic(std::string_view caption)
{
    for (std::size_t i = caption.find('&'); i != std::string_view::npos; i = caption.find('&', i)) {
        if (++i == caption.size()) {
            break;
        }
        const char32_t c = avanza(caption, i);
        if (c != U'&') {
            return static_cast<char32_t>(u_toupper(static_cast<UChar32>(c)));
        }
    }
    return 0;
}

std::u32string toCodePoints(std::string_view text)
{
    std::u32string s;
    s.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        s.push_back(avanza(text, i));
    }
    return s;
}

std::string fromCodePoints(std::u32string_view text)
{
    std::string s;
    s.reserve(text.size());
    for (const char32_t c : text) {
        aggiungi(s, c);
    }
    return s;
}

}  // namespace bravona
