#pragma once

#include <string>
#include <vector>

#include "platform/windowing/Lists.h"

namespace bravona {

// The vocabulary of document rows as they stand in lvwDettagli.
namespace righe {

inline constexpr const char* tagCommento = "-5";    // a comment row: no amounts
inline constexpr const char* tagRigaLibera = "-1";  // typed without a search
inline constexpr int tagComment = -5;

// Columns: 0 is the main text (article code; its tag is the row's).
inline constexpr std::size_t codice = 0;
inline constexpr std::size_t descrizione = 1;  // tag: unit of measure
inline constexpr std::size_t quantita = 2;
inline constexpr std::size_t listino = 3;
inline constexpr std::size_t prezzo = 4;
inline constexpr std::size_t sconto1 = 5;
inline constexpr std::size_t sconto2 = 6;
inline constexpr std::size_t sconto3 = 7;
inline constexpr std::size_t totale = 8;
inline constexpr std::size_t iva = 9;  // tag: IDCodiceIva
inline constexpr std::size_t colonne = 10;

inline constexpr const char* codiceTesto = "***";
inline constexpr const char* codiceSoloFattura = "***F";
inline constexpr const char* codiceSoloDDT = "***D";

[[nodiscard]] inline bool commento(const ListRow& riga)
{
    return riga.tag == tagCommento;
}
[[nodiscard]] inline const SubItem& sub(const ListRow& riga, std::size_t colonna)
{
    return riga.sub[colonna - 1];
}
[[nodiscard]] inline const std::string& testo(const ListRow& riga, std::size_t colonna)
{
    return riga.cell(colonna);
}

// The columns of the grid, in order (ImpostaColonneRighe).
[[nodiscard]] std::vector<ListColumn> ImpostaColonneRighe();
// A comment row, in blue, "-" in the columns behind its text.
[[nodiscard]] ListRow rigaCommento(std::string chiave, std::string codice, std::string testo);

}  // namespace righe

}  // namespace bravona
