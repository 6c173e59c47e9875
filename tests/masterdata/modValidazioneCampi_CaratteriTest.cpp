#include "masterdata/modValidazioneCampi_Caratteri.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text/Text.h"

namespace bravona {
namespace {

constexpr std::u32string_view battuti = U"\b\r\x1b 09AJKXZajkz-()*/.,+€àÀ";

// What is left of the characters above when each of them is typed.
template <class Filtro>
std::string passati(Filtro filtro)
{
    std::u32string rimasti;
    for (const char32_t tasto : battuti) {
        if (const char32_t passato = filtro(tasto); passato != 0) {
            rimasti += passato;
        }
    }
    return fromCodePoints(rimasti);
}

TEST(Filters, LetThroughTheirOwnSetControlCharactersAndTheBlank)
{
    EXPECT_EQ(passati(ValidaCodiceArticolo), "\b\r\x1b 09AKXZ-()*/");
    EXPECT_EQ(passati(ValidaCifre), "\b\r\x1b 09");
    EXPECT_EQ(passati(ValidaData), "\b\r\x1b 09-/");
    EXPECT_EQ(passati(ValidaImporto), "\b\r\x1b 09-.,");
    EXPECT_EQ(passati(ValidaSconto), "\b\r\x1b 09");
    EXPECT_EQ(passati(ValidaLettere), "\b\r\x1b AKXZ");
}

TEST(Filters, LettersAreAllButJ)
{
    std::string lettere;
    for (char32_t lettera = U'A'; lettera <= U'Z'; ++lettera) {
        if (ValidaLettere(lettera) != 0 && ValidaCodiceArticolo(lettera) != 0) {
            lettere += static_cast<char>(lettera);
        }
    }
    EXPECT_EQ(lettere, "ABCDEFGHIKLMNOPQRSTUVWXYZ");
}

TEST(Filters, TheOlderOneKnowsModes)
{
    const auto inModo = [](int modo) { return [modo](char32_t tasto) { return VerificaTasto(tasto, modo); }; };
    EXPECT_EQ(passati(inModo(1)), "\b\r09/");
    EXPECT_EQ(passati(inModo(2)), "\b\r09");
    EXPECT_EQ(passati(inModo(4)), "\b\r09.");
    EXPECT_EQ(passati(inModo(3)), "\b\r09");
}

TEST(Filters, CapitalsComeBeforeTheSetOfTheNext)
{
    const auto codice = filtraTasti(inMaiuscolo, ValidaCodiceArticolo);
    const auto passato = [&](char32_t tasto) {
        codice(tasto);
        return tasto;
    };
    EXPECT_EQ(passati(passato), "\b\r\x1b 09AKXZAKZ-()*/");
}

TEST(Filters, ADroppedKeyStaysDroppedBehindALaterFilter)
{
    const auto filtro = filtraTasti(ValidaCifre, [](char32_t) { return U'!'; });
    char32_t tasto = U'a';
    filtro(tasto);
    EXPECT_EQ(tasto, 0U);
}

}  // namespace
}  // namespace bravona
