#include "documents/AperturaDocumento.h"

namespace bravona {

namespace {

Form* caricata(Sessione& sessione, const DocumentoDaAprire& documento)
{
    const char* nome = schermataDiModifica(documento.TipoDocumento);
    if (!sessione.schermate().knows(nome))
        return nullptr;
    Form& schermata = sessione.schermate().get(nome);
    dynamic_cast<ApreDocumento&>(schermata).ApriDocumento(documento);
    return &schermata;
}

}  // namespace

void apri(Sessione& sessione, const DocumentoDaAprire& documento)
{
    if (Form* schermata = caricata(sessione, documento))
        schermata->show();
}

void apriAlPostoDi(Sessione& sessione, Form& chiamante, const DocumentoDaAprire& documento)
{
    if (Form* schermata = caricata(sessione, documento)) {
        chiamante.unload();
        schermata->show();
    }
}

}  // namespace bravona
