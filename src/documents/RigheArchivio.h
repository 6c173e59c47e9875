#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/store/Recordset.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// What the lists of the archive of documents show: all documents of a kind, or those of a customer. Keys of rows are a
// prefix and the document's id.

[[nodiscard]] std::vector<ListColumn> colonneArchivio(std::int16_t tipoDocumento, bool perCliente);
// Statement of all documents of a kind.
[[nodiscard]] std::string istruzioneArchivio(std::int16_t tipoDocumento, const std::string& anno,
                                             const std::string& registro);

[[nodiscard]] ListRow rigaBolla(Recordset& bolla);          // prefix "fx"
[[nodiscard]] ListRow rigaDocumento(Recordset& documento);  // prefix "x"
// Below a customer. The prefix of a transport document is "sx" when it is invoiced, else "nx"; below a month it is
// "fx".
[[nodiscard]] ListRow rigaBollaDelCliente(Recordset& bolla, bool delMese);
// The total in euro and in lire, under whatever captions.
[[nodiscard]] ListRow rigaDocumentoDelCliente(Recordset& documento);

// What a row tells of its document: the number that it shows and its key's first letter.
struct RigaArchivio {
    std::int32_t numero = 0;
    bool fatturata = false;  // the letter is "s"
};
[[nodiscard]] RigaArchivio rigaScelta(const ListView& elenco);  // Errore 91 without a selected row

}  // namespace bravona
