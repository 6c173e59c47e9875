#include "program/Programma.h"

#include "documents/frmAnnullamento.h"
#include "documents/frmDettagliIVA.h"
#include "documents/frmDocumentoDaProforma.h"
#include "documents/frmEmissioneDocumento.h"
#include "documents/frmFatturaDaDDT.h"
#include "documents/frmModificaDDT.h"
#include "documents/frmModificaFattura.h"
#include "documents/frmResoconto.h"
#include "documents/frmRistampa.h"
#include "documents/frmSelezioneDocumento.h"
#include "documents/frmVisualizzaArchivioDocumenti.h"
#include "documents/frmZoomDescrizione.h"
#include "documents/modScarico.h"
#include "duedates/frmControlloScadenze.h"
#include "duedates/frmScadenze.h"
#include "maintenance/FRMRipristino.h"
#include "maintenance/FRM_Backup.h"
#include "maintenance/frmBackup.h"
#include "maintenance/modArchivio.h"
#include "masterdata/clsTabellaCodiciIVA.h"
#include "masterdata/frmAggiornamentoListino.h"
#include "masterdata/frmCodiciIva.h"
#include "masterdata/frmDescrizioneListini.h"
#include "masterdata/frmInformazioniDitta.h"
#include "masterdata/frmInserimentoCodiceIva.h"
#include "masterdata/frmLogo.h"
#include "masterdata/frmModalitaPagamento.h"
#include "masterdata/frmRegistraArticolo.h"
#include "masterdata/frmRegistraCliente.h"
#include "masterdata/frmRegistraComune.h"
#include "masterdata/frmSelezioneArticolo.h"
#include "masterdata/frmSelezioneDestinazione.h"
#include "masterdata/frmSelezioneRecord.h"
#include "masterdata/frmStampaListino.h"
#include "masterdata/frmVariazioneArticolo.h"
#include "masterdata/frmVariazioneCliente.h"
#include "masterdata/frmVariazioneComune.h"
#include "platform/values/Numeri.h"
#include "printing/modElenchi.h"
#include "session/frmAbout.h"
#include "session/frmDescrizioneRegistri.h"
#include "session/frmMain.h"
#include "session/frmNuovoArchivioDocumenti.h"
#include "session/frmSplash.h"
#include "session/frmStartup.h"
#include "session/modMain.h"
#include "warehouse/frmModificaMovimentiMagazzino.h"
#include "warehouse/frmRegistraMovimentiMagazzino.h"
#include "warehouse/frmVisualizzaMovimentiMagazzino.h"

namespace bravona {

namespace {

template <class Schermata>
void registra(Sessione& sessione, const char* nome)
{
    sessione.schermate().add(nome, [&sessione] { return std::make_unique<Schermata>(sessione); });
}

// A setting of a wrong form leads to no message.
std::string annoImpostato(const Settings& settings)
{
    try {
        return leadingWholeNumberText(settings.get("Impostazioni", "Anno Riferimento", "0"));
    } catch (const Errore&) {
        return "0";
    }
}

}  // namespace

Programma::Programma(Ambiente ambiente) : sessione_(std::move(ambiente))
{
    sessione_.desktop().setTransactionProbe([this] { return sessione_.cn.inTransaction(); },
                                            [this] { sessione_.cn.rollback(); });
    registraSchermate();
}

// What is not here has its command disabled in the main window.
void Programma::registraSchermate()
{
    registra<frmMain>(sessione_, "frmMain");
    registra<frmSplash>(sessione_, "frmSplash");
    registra<frmAbout>(sessione_, "frmAbout");
    registra<frmNuovoArchivioDocumenti>(sessione_, "frmNuovoArchivioDocumenti");
    registra<frmStartup>(sessione_, "frmStartup");
    registra<frmDescrizioneRegistri>(sessione_, "frmDescrizioneRegistri");

    registra<frmCodiciIva>(sessione_, "frmCodiciIva");
    registra<frmInserimentoCodiceIva>(sessione_, "frmInserimentoCodiceIva");
    registra<frmModalitaPagamento>(sessione_, "frmModalitaPagamento");
    registra<frmInformazioniDitta>(sessione_, "frmInformazioniDitta");
    registra<frmLogo>(sessione_, "frmLogo");
    registra<frmSelezioneRecord>(sessione_, "frmSelezioneRecord");
    registra<frmSelezioneArticolo>(sessione_, "frmSelezioneArticolo");
    registra<frmSelezioneDestinazione>(sessione_, "frmSelezioneDestinazione");
    registra<frmRegistraCliente>(sessione_, "frmRegistraCliente");
    registra<frmVariazioneCliente>(sessione_, "frmVariazioneCliente");
    registra<frmRegistraComune>(sessione_, "frmRegistraComune");
    registra<frmVariazioneComune>(sessione_, "frmVariazioneComune");
    registra<frmRegistraArticolo>(sessione_, "frmRegistraArticolo");
    registra<frmVariazioneArticolo>(sessione_, "frmVariazioneArticolo");
    registra<frmDescrizioneListini>(sessione_, "frmDescrizioneListini");
    registra<frmAggiornamentoListino>(sessione_, "frmAggiornamentoListino");
    registra<frmStampaListino>(sessione_, "frmStampaListino");

    registra<frmSelezioneDocumento>(sessione_, "frmSelezioneDocumento");
    registra<frmEmissioneDocumento>(sessione_, "frmEmissioneDocumento");
    registra<frmModificaFattura>(sessione_, "frmModificaFattura");
    registra<frmModificaDDT>(sessione_, "frmModificaDDT");
    registra<frmVisualizzaArchivioDocumenti>(sessione_, "frmVisualizzaArchivioDocumenti");
    registra<frmRistampa>(sessione_, "frmRistampa");
    registra<frmDettagliIVA>(sessione_, "frmDettagliIVA");
    registra<frmFatturaDaDDT>(sessione_, "frmFatturaDaDDT");
    registra<frmDocumentoDaProforma>(sessione_, "frmDocumentoDaProforma");
    registra<frmAnnullamento>(sessione_, "frmAnnullamento");
    registra<frmZoomDescrizione>(sessione_, "frmZoomDescrizione");
    registra<frmResoconto>(sessione_, "frmResoconto");

    registra<frmScadenze>(sessione_, "frmScadenze");
    registra<frmControlloScadenze>(sessione_, "frmControlloScadenze");

    registra<frmRegistraMovimentiMagazzino>(sessione_, "frmRegistraMovimentiMagazzino");
    registra<frmModificaMovimentiMagazzino>(sessione_, "frmModificaMovimentiMagazzino");
    registra<frmVisualizzaMovimentiMagazzino>(sessione_, "frmVisualizzaMovimentiMagazzino");

    registra<frmBackup>(sessione_, "frmBackup");
    registra<FRM_Backup>(sessione_, "FRM_Backup");
    registra<FRMRipristino>(sessione_, "FRMRipristino");
    sessione_.Comandi.StampaElencoClienti = [this] { StampaElencoClienti(sessione_); };
    sessione_.Comandi.StampaElencoFornitori = [this] { StampaElencoFornitori(sessione_); };
    sessione_.Comandi.CompattaArchivio = [this] { CompattaArchivio(sessione_); };
    sessione_.Comandi.ProvaAvvio = [this](const std::string& percorso) { ProvaAvvio(sessione_, percorso); };
    sessione_.Comandi.RipristinaAllAvvio = [this](const std::string& backup) {
        // What is stored counts as in use, so that the restore spares it.
        sessione_.PercorsoArchivio = sessione_.settings().get("Impostazioni", "PercorsoDB");
        RipristinaAllAvvio(sessione_, backup);
        Annuncia(sessione_, "Ripristinato il backup " + backup);
        return percorsoDatabase(sessione_);
    };
}

void Programma::avvia()
{
    sessione_.desktop().guardStart([this] { sequenzaDiAvvio(); });
}

void Programma::sequenzaDiAvvio()
{
    RegistraDatiProgramma(sessione_);
    sessione_.desktop().processEvents();
    sessione_.schermate().get("frmSplash").showModal();
    CaricaImpostazioniDocumenti(sessione_);
    VerificaCartelle(sessione_);
    sessione_.PercorsoArchivio = RilevaPercorsoDB(sessione_);
    try {
        sessioneSullArchivio();
    } catch (const FineProcesso&) {
        throw;
    } catch (const Errore& errore) {
        AnnotaArchivioRifiutato(sessione_, sessione_.PercorsoArchivio, errore.numero());
        throw;
    }
    AnnotaAvvioRiuscito(sessione_);
}

void Programma::sessioneSullArchivio()
{
    ApriConnessione(sessione_, sessione_.PercorsoArchivio);
    if (!EsisteArchivio(sessione_)) {
        sessione_.desktop().inform(
            "Attenzione! Non esiste nessun archivio. Procedere alla creazione di un nuovo archivio.",
            "Controllo archivi");
        auto& nuovo = sessione_.schermate().as<frmNuovoArchivioDocumenti>("frmNuovoArchivioDocumenti");
        nuovo.ArchivioVuoto = true;
        nuovo.showModal();
    }
    CaricaDatiAzienda(sessione_);
    CaricaRegistri(sessione_);
    // After the first run no year is chosen yet, and the session's is 0.
    sessione_.AnnoRiferimento = annoImpostato(sessione_.settings());
    MostraAnnoRiferimento(sessione_);
    sessione_.TabellaIva = std::make_unique<clsTabellaCodiciIVA>(sessione_);
    if (sessione_.AnnoRiferimento == "0") {
        Annuncia(sessione_, "Nessun anno aperto: sceglierlo con File, Apri archivio (Ctrl+O)");
    }
    scarichiDovuti();
    sessione_.schermate().get("frmMain").show();
}

// A program that ended between a document and its stock left the latter to do.
void Programma::scarichiDovuti()
{
    const EsitoScarichi esito = riprendiScarichi(sessione_.cn);
    if (!esito.mancati.empty()) {
        const std::size_t altri = esito.mancati.size() - 1;
        Annuncia(sessione_, "Merce non scaricata dal magazzino: " + esito.mancati.back() +
                                (altri == 0 ? std::string() : ", e altri " + std::to_string(altri)));
    } else if (!esito.fatti.empty()) {
        Annuncia(sessione_, "Magazzino aggiornato: " + esito.fatti.back());
    }
}

}  // namespace bravona
