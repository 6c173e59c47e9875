#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "documents/Documento.h"
#include "platform/store/Connection.h"

// Goods received, as a value and in the archive.
namespace bravona {

struct Movimento {
    std::int32_t IDMovimenti = 0;      // 0: not in the archive
    std::int32_t NumeroDocumento = 0;  // the supplier's
    std::int32_t AnnoDocumento = 0;    // the session's, whatever the dates
    Date DataDocumento, DataOperazione;
    std::int32_t IDFornitore = 0;
    std::vector<RigaDocumento> righe;  // comment rows count, but are not kept
};

namespace aggiornato {
inline constexpr const char* no = "N";  // the stock has not got the row yet
inline constexpr const char* si = "S";
}  // namespace aggiornato

// Adds the receipt with its rows, loads them into the stock; its key. In the caller's transaction. Errore 3021 for a
// code that no article has, 11 for an article of which nothing was received altogether.
std::int32_t scriviMovimento(Connection& cn, const Movimento& movimento);
// Over the stored one of its key: rows that the stock has already are corrected by their difference from the old row at
// the same place, the others are loaded. Errore as above; 9 for such a row without an old one at its place.
void riscriviMovimento(Connection& cn, const Movimento& movimento, std::span<const RigaDocumento> vecchie);
// Errore 3021 when it is not there.
[[nodiscard]] Movimento leggiMovimento(Connection& cn, std::int32_t idMovimenti);

}  // namespace bravona
