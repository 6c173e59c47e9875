#include "documents/Emissione.h"

#include "documents/AperturaDocumento.h"
#include "documents/ArchivioDocumenti.h"
#include "documents/TipoDocumento.h"
#include "duedates/Rate.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {

// The header of the new document, as the archive has it.
TestataDocumento scrivi(Sessione& sessione, std::int32_t registro, const Emissione& emissione)
{
    const clsCursorWait attesa(sessione.desktop());
    const TabelleDocumento tabelle = tabelleDocumento(emissione.tipoDocumento);
    Connection& cn = sessione.cn;
    Transaction transazione(cn);
    const NuovoDocumento nuovo{.numero = ProssimoNumero(sessione, tabelle.testata, registro),
                               .registro = registro,
                               .anno = toInt32(sessione.AnnoRiferimento),
                               .data = sessione.clock().today()};
    Documento documento = emissione.deriva(nuovo);
    TestataDocumento& testata = documento.testata;
    testata.IDDocumento = scriviTestata(cn, tabelle, testata);
    scriviRighe(cn, tabelle, testata.IDDocumento, documento.righe);
    if (emissione.collega)
        emissione.collega(testata);
    if (conScadenze(emissione.tipoDocumento)) {
        documento.rate = calcolaPiano(cn, testata.IDmodalitaPagamento, nuovo.data, registro, testata.TotaleDocumento);
        sessione.desktop().processEvents();
        scriviRate(cn, testata.IDDocumento, registro, documento.rate);
    }
    transazione.commit();
    return testata;
}

}  // namespace

void emetti(Sessione& sessione, Form& schermata, const SceltaRegistro& registro, const Emissione& emissione)
{
    try {
        const TestataDocumento nuova = scrivi(sessione, registro.registro(), emissione);
        emissione.emessoOra();
        const std::int32_t numero = nuova.NumeroDocumento.value();
        if (sessione.desktop().ask(emissione.emesso + std::to_string(numero) + "\n" + emissione.domanda,
                                   emissione.titolo)) {
            apriAlPostoDi(sessione, schermata,
                          {.TipoDocumento = emissione.tipoDocumento,
                           .NumeroDocumento = numero,
                           .NumeroRegistro = nuova.NumeroRegistro.value(),
                           .AnnoDocumento = nuova.AnnoDocumento});
        }
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione.desktop(), errore, emissione.routine, emissione.modulo);
    }
}

}  // namespace bravona
