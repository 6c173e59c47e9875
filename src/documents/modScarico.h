#pragma once

#include <span>

#include "documents/Documento.h"
#include "platform/store/Connection.h"

namespace bravona {

// Takes the rows of a document from the stock, in a transaction of its own. Comment rows move nothing. Errore 3021 for
// a code that no article has; no article is changed then.
void ScaricaArticoli(Connection& cn, std::span<const RigaDocumento> righe, Date data);

}  // namespace bravona
