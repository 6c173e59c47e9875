#include "documents/Documento.h"

#include <utility>

namespace bravona {

RigaDocumento rigaCommento(std::string codice, std::string testo)
{
    RigaDocumento riga;
    riga.IDArticolo = righe::commento;
    riga.CodiceArticolo = std::move(codice);
    riga.Descrizione = std::move(testo);
    riga.UnitaMisura = " ";
    riga.CodiceIva = " ";
    return riga;
}

}  // namespace bravona
