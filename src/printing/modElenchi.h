#pragma once

#include <cstdint>
#include <string>

#include "platform/reports/Report.h"
#include "platform/store/Recordset.h"
#include "session/Sessione.h"

namespace bravona {

// Shows a list in a preview of its own, not modal. Its pages are laid out as they are looked at or printed, from the
// data, which the preview keeps. `nomeFile` is offered for the PDF, without ending.
void MostraElenco(Sessione& sessione, Report report, Recordset dati, const std::string& nomeFile);

void StampaElencoClienti(Sessione& sessione);  // parties of no kind among them
void StampaElencoFornitori(Sessione& sessione);

// What a printed price list holds.
struct SceltaListino {
    std::int32_t listino = 0;  // IDListino
    std::string campo;         // column of Articoli to filter by, empty: none
    std::string filtro;        // part of its text, empty: none
    int ordine = 0;            // 0 by code, 1 by description, any other none
    std::string titolo;
};

std::string InterrogazioneListino(const SceltaListino& scelta);
// The list's preview; where no article fits, a box says so.
void StampaListino(Sessione& sessione, const SceltaListino& scelta);

// In section "H" of a price list: its description beside the title, and the logo of the program folder, where there is
// one, to the left of both; looked for anew at each print.
void ImpostaLogoListino(const Sessione& sessione, Report& report, const std::string& descrizione);

}  // namespace bravona
