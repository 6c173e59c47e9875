#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/store/Recordset.h"
#include "session/Sessione.h"

namespace bravona {

// For the figure in lire below a printed total.
inline constexpr double lirePerEuro = 1936.27;

// Pages of `a` rows at `b` a page; never less than one. Errore 11 when b is 0.
std::int16_t NumeroPagine(std::int16_t a, std::int16_t b);

// The text, or the empty text where it counts as zero: a number whose part before the comma is 0 ("0,50" is blank as
// well).
std::string VuotoSeZero(const std::string& testo);

// The three lines that a print makes of the addresses.
struct RigheIndirizzo {
    std::string lblCittaProvincia, lblDestinazioneMerceIndirizzo, lblDestinazioneMerceCitta;
};

// The document poured into pages: one parent record a page, under each the same number of child rows in the chapter
// "Child". `origine` is the open document query, left at its end; Errore 6 for more rows than pages can be counted for.
Recordset CostruisciRecordsetStampa(Recordset& origine, const DatiDitta& ditta, const std::string& NumeroDoc,
                                    const std::string& NumeroReg, const RigheIndirizzo& indirizzo,
                                    std::int16_t righePerPagina);

}  // namespace bravona
