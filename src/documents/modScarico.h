#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "documents/Documento.h"
#include "platform/store/Connection.h"

namespace bravona {

// A document whose goods are to be taken from the stock. That it is due is noted in the transaction that registers the
// document and cleared in the one that does it, so that a program that ends in between makes it good at its next start.
struct ScaricoDovuto {
    std::int16_t tipoDocumento = 0;
    std::int32_t idDocumento = 0;
};
// A code as the statements that look for an article quote it.
[[nodiscard]] std::string traVirgolette(const std::string& codice);

void annotaScarico(Connection& cn, const ScaricoDovuto& scarico);

// Takes the rows of the document from the stock and clears its note, in a transaction of its own. Comment rows move
// nothing. Errore 3021 for a code that no article has, which its words name; no article is changed then.
void ScaricaArticoli(Connection& cn, const ScaricoDovuto& scarico, std::span<const RigaDocumento> righe, Date data);

// Does what is noted. What still fails stays noted; the documents done and those that failed, by title and number.
struct EsitoScarichi {
    std::vector<std::string> fatti, mancati;
};
EsitoScarichi riprendiScarichi(Connection& cn);

}  // namespace bravona
