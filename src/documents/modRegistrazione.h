#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "documents/clsCalcoli.h"
#include "duedates/GrigliaScadenze.h"
#include "platform/store/Connection.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// The writers that registration and modification share. They take part in the caller's transaction; failures are
// Errore.

// Header and rows tables of a kind of document, and the column by which a row knows its header.
struct TabelleDocumento {
    std::string testata;
    std::string dettagli;
    std::string chiave;
    std::string titolo;  // of the kind, as screens show it
};
[[nodiscard]] TabelleDocumento tabelleDocumento(std::int16_t tipoDocumento);

// The five VAT groups into the header's columns, free ones empty and zero.
void ScriviGruppiIva(Recordset& testata, const clsCalcoli& calcoli);
// The rows of the grid behind the rows that are there.
void ScriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento, const ListView& righe);
// The lines of the grid as instalments of an invoice.
void ScriviScadenze(Connection& cn, std::int32_t idDocumento, std::int32_t registro, const GrigliaScadenze& griglia);

// One row as the unloading of stock reads it: texts as the grid shows them.
struct RigaScarico {
    std::string codice;
    std::string quantita;
    std::string prezzo;
    std::string totale;
};
[[nodiscard]] std::vector<RigaScarico> righeDaScaricare(const ListView& righe);
// Lowers the stock of each row's article, in a transaction of its own, all or nothing. Errore 3021 for a code without
// an article.
void ScaricaArticoli(Connection& cn, const std::vector<RigaScarico>& righe, Date data);

}  // namespace bravona
