#pragma once

#include <functional>
#include <string>
#include <vector>

#include "documents/Documento.h"
#include "platform/windowing/Lists.h"

// How rows stand in lvwDettagli: a table of columns, each with what it shows of a row.
namespace bravona {

struct ColonnaGriglia {
    ListColumn colonna;
    std::function<SubItem(const RigaDocumento&)> contenuto;
    bool ancheNeiCommenti = false;  // else "-" there
};
using ColonneGriglia = std::vector<ColonnaGriglia>;

// What a row's key is made of: "12r", "13c" for a comment; on goods received "r12" for every row.
enum class ChiaviRighe { vendita, carico };
[[nodiscard]] std::string chiaveRiga(ChiaviRighe chiavi, const std::string& numero, const RigaDocumento& riga);

// Of the documents of a sale (ImpostaColonneRighe). Tags: of the row its IDArticolo, of the description the unit of
// measure, of the VAT code its id.
[[nodiscard]] ColonneGriglia colonneVendita();

// Of goods received: no price list, the total in column 7, the stock's mark in column 8, "-" for no discount.
[[nodiscard]] ColonneGriglia colonneCarico();

[[nodiscard]] std::vector<ListColumn> intestazioni(const ColonneGriglia& colonne);
// Comment rows are drawn in blue.
[[nodiscard]] ListRow disegna(const ColonneGriglia& colonne, const RigaDocumento& riga, std::string chiave);

}  // namespace bravona
