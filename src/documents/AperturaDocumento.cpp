#include "documents/AperturaDocumento.h"

namespace bravona {

void apriAlPostoDi(Sessione& sessione, Form& chiamante, const DocumentoDaAprire& documento)
{
    const char* nome = schermataDiModifica(documento.TipoDocumento);
    if (!sessione.schermate().knows(nome))
        return;
    Form& schermata = sessione.schermate().get(nome);
    dynamic_cast<ApreDocumento&>(schermata).ApriDocumento(documento);
    chiamante.unload();
    schermata.show();
}

}  // namespace bravona
