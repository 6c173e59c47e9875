#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bravona {

// All lengths and positions are counted in characters (code points), the first one at 0; texts are UTF-8. Malformed
// bytes count as one character for each that toCodePoints makes of them. What lies beyond the end is empty.
std::size_t length(std::string_view text);
std::string left(std::string_view text, std::size_t count);
std::string right(std::string_view text, std::size_t count);
std::string mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);
std::string trim(std::string_view text);   // without the blanks, tabs and line breaks around it
std::string upper(std::string_view text);  // Italian capitals, accented letters included
std::string lower(std::string_view text);
// First letter of each word a capital, the others small; a word begins behind a blank, an apostrophe or a hyphen too
// ("L'Aquila", "Forlì-Cesena").
std::string properName(std::string_view text);
std::string nomeMese(int mese);  // Italian name of a month, 1 to 12, with a capital: "Gennaio"
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);
// A text as it stands in a statement: between single quotes, every one in it twice. For everything that was typed.
std::string quotedText(std::string_view text);
std::vector<std::string> split(std::string_view text, char separator);  // one part more than separators

// Italian order and equality without regard to case; accented letters differ from plain ones (è equals È, not e), which
// counts behind all letters ("pera", "però", "perù"). Equal are exactly the texts of the same `fold`.
int compareFolded(std::string_view a, std::string_view b);
bool equalFolded(std::string_view a, std::string_view b);
bool startsWithFolded(std::string_view text, std::string_view prefix);
// The form in which two texts that compare equal without regard to case are the same bytes.
std::string fold(std::string_view text);
// Names the order and the folding: whatever is stored in their order is to be sorted anew when this text has changed.
std::string collationVersion();

// Exactly `lunghezza` characters: a longer text cut to its first ones, a shorter one padded with `carattere`, on the
// right of the text (AllineaSinistra) or on its left (AllineaDestra).
std::string AllineaSinistra(std::string_view testo, std::size_t lunghezza, char carattere = ' ');
std::string AllineaDestra(std::string_view testo, std::size_t lunghezza, char carattere = ' ');

// A key as it stands in control captions: "&File" without the mark; "&&" stands for "&".
std::string withoutMnemonic(std::string_view caption);
// The letter after the mark as a capital, or 0.
char32_t mnemonic(std::string_view caption);

// UTF-8 to code points and back; malformed bytes become U+FFFD.
std::u32string toCodePoints(std::string_view text);
std::string fromCodePoints(std::u32string_view text);

}  // namespace bravona
