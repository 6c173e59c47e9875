#pragma once

#include <cstdint>
#include <string>

#include "duedates/GrigliaScadenze.h"
#include "platform/store/Connection.h"

namespace bravona {

// The plan of instalments of a payment method. A failure to read the method passes to the caller.

// Count of the days columns that are neither Null nor 0; 1 when there is none.
std::int16_t NumeroRate(Connection& cn, std::int32_t idModalitaPagamento);
// Due date "dd/mm/yyyy" of the instalment (1 to 6), empty when the method has none there. Errore 3021 for an unknown
// method.
std::string DataScadenzaRata(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento, int rata);
// The last day of the date's month.
Date FineMese(Date data);
// Headings and widths of the six columns, no lines.
void ImpostaColonneScadenze(GrigliaScadenze& griglia);
// Fills the grid with equal instalments, each rounded by itself; a plan changed by hand stays. An empty or 0 method:
// headings only. `totale` is amount text.
void GeneraScadenze(Connection& cn, GrigliaScadenze& griglia, const std::string& idModalitaPagamento,
                    Date dataDocumento, std::int16_t numeroRegistro, const std::string& totale);

}  // namespace bravona
