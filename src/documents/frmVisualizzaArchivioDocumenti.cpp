#include "documents/frmVisualizzaArchivioDocumenti.h"

#include <array>

#include "documents/AperturaDocumento.h"
#include "documents/RigheArchivio.h"
#include "documents/StampaDocumento.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {

struct Archivio {
    std::int16_t tipoDocumento;
    const char* nome;
    const char* titolo;  // its beginning
};

constexpr std::array<Archivio, 5> archivi{{{tipo::fattura, "Fatture", "Archivio Fatture "},
                                           {tipo::ddt, "Documenti di Trasporto", "Archivio D.D.T. "},
                                           {tipo::proforma, "Preventivi di Spesa", "Archivio Preventivi di Spesa "},
                                           {tipo::notaCredito, "Note di Credito", "Archivio Note di Credito "},
                                           {tipo::notaDebito, "Note di Debito", "Archivio Note di Debito "}}};

}  // namespace

frmVisualizzaArchivioDocumenti::frmVisualizzaArchivioDocumenti(Sessione& sessione)
    : Form(sessione.desktop(), "frmVisualizzaArchivioDocumenti", "Archivio documenti"),
      elenchi(sessione.cn, {.albero = {.radice = "Clienti",
                                       .etichetta = "Cliente: ",
                                       .soggetti = "SELECT IDCliente, Cliente FROM Clienti ORDER BY Cliente"},
                            .tutti = "&Tutte",
                            .perSoggetto = "&Per cliente",
                            .documenti = "Documenti"}),
      sessione_(sessione)
{
    add("cboTipoArchivio", cboTipoArchivio);
    add(registro);
    add(elenchi);
    add("cmdShow", cmdShow);
    add("cmdStampa", cmdStampa);
    add("cmdClose", cmdClose);

    cboTipoArchivio.width = 24;
    elenchi.albero.nodoScelto = [this](const NodoPerMese& nodo) { caricaNodo(nodo, tipoDocumento_ == tipo::ddt); };
    elenchi.visualizza = [this] { visualizza(); };
    registro.registroCambiato = [this] { registroCambiato(); };
    cmdShow.onClick = [this] { visualizza(); };
    cmdStampa.onClick = [this] { stampa(); };
    cmdClose.onClick = [this] { unload(); };
    setLayout(disponi());
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

Layout frmVisualizzaArchivioDocumenti::disponi()
{
    using namespace layout;
    return column({form({line("&Archivio:", row({of(cboTipoArchivio), stretch()})), registro.linea()}),
                   grow(elenchi.layout()), rowEnd({of(cmdShow), of(cmdStampa), of(cmdClose)})});
}

void frmVisualizzaArchivioDocumenti::onLoad()
{
    CentraFinestra(*this, false);
    for (const Archivio& archivio : archivi)
        cboTipoArchivio.addItem(archivio.nome, archivio.tipoDocumento);
    cboTipoArchivio.setListIndex(0);
    registro.carica(sessione_);
    cboTipoArchivio.onClick = [this] { ImpostaArchivio(); };
    ImpostaArchivio();
    elenchi.mostraTutti();
    elenchi.lvwDocumentiEx.setFocus();
}

void frmVisualizzaArchivioDocumenti::onActivate()
{
    if (sessione_.cn.changes() == modificheViste_)
        return;
    rileggi(elenchi.lvwDocumentiEx, [this] { CaricaDocumenti(); });
    elenchi.albero.rileggi();
    if (elencato_)
        rileggi(elenchi.lvwDocumenti, [this] { caricaNodo(elencato_->nodo, elencato_->bolle); });
}

void frmVisualizzaArchivioDocumenti::ImpostaArchivio()
{
    const clsCursorWait attesa(desktop());
    const Archivio& archivio = archivi.at(static_cast<std::size_t>(cboTipoArchivio.listIndex()));
    tipoDocumento_ = archivio.tipoDocumento;
    elencato_.reset();
    setCaption(archivio.titolo + ("Anno " + sessione_.AnnoRiferimento));
    for (ListView* elenco : {&elenchi.lvwDocumentiEx, &elenchi.lvwDocumenti}) {
        elenco->clear();
        elenco->setColumns(colonneArchivio(tipoDocumento_, elenco == &elenchi.lvwDocumenti));
    }
    CaricaDocumenti();
    elenchi.albero.carica();
}

void frmVisualizzaArchivioDocumenti::CaricaDocumenti()
{
    const clsCursorWait attesa(desktop());
    riempi(elenchi.lvwDocumentiEx,
           sessione_.cn.open(istruzioneArchivio(tipoDocumento_, sessione_.AnnoRiferimento, registro.testo())),
           tipoDocumento_ == tipo::ddt ? rigaBolla : rigaDocumento);
    modificheViste_ = sessione_.cn.changes();
}

void frmVisualizzaArchivioDocumenti::CaricaDocumentiCliente(const NodoPerMese& nodo)
{
    riempi(elenchi.lvwDocumenti,
           sessione_.cn.open(documentiDelNodo(nodo, tabelleDocumento(tipoDocumento_).testata, sessione_.AnnoRiferimento,
                                              registro.testo())),
           rigaDocumentoDelCliente);
}

void frmVisualizzaArchivioDocumenti::CaricaBolleCliente(const NodoPerMese& nodo)
{
    riempi(elenchi.lvwDocumenti,
           sessione_.cn.open(documentiDelNodo(nodo, tabelleDocumento(tipo::ddt).testata, sessione_.AnnoRiferimento,
                                              registro.testo())),
           [&](Recordset& bolla) { return rigaBollaDelCliente(bolla, nodo.genere == NodoPerMese::Genere::mese); });
}

void frmVisualizzaArchivioDocumenti::caricaNodo(NodoPerMese nodo, bool bolle)
{
    if (nodo.genere == NodoPerMese::Genere::radice)
        return;
    const clsCursorWait attesa(desktop());
    elencato_ = {nodo, bolle};
    if (bolle)
        CaricaBolleCliente(nodo);
    else
        CaricaDocumentiCliente(nodo);
    if (nodo.genere == NodoPerMese::Genere::soggetto)
        elenchi.mostraMesi(nodo.idSoggetto);
}

// Whatever the kind, the list beside the tree shows transport documents then, until the tree is used again.
void frmVisualizzaArchivioDocumenti::registroCambiato()
{
    if (const auto nodo = elenchi.albero.scelto())
        caricaNodo(*nodo, true);
    CaricaDocumenti();
}

void frmVisualizzaArchivioDocumenti::visualizza()
{
    if (!elenchi.inVista().selected())
        return;
    const RigaArchivio riga = rigaScelta(elenchi.inVista());
    apri(sessione_, {.TipoDocumento = tipoDocumento_,
                     .NumeroDocumento = riga.numero,
                     .NumeroRegistro = registro.registro(),
                     .AnnoDocumento = toInt32(sessione_.AnnoRiferimento),
                     .modificabile = !riga.fatturata});
}

void frmVisualizzaArchivioDocumenti::stampa()
{
    try {
        const RigaArchivio riga = rigaScelta(elenchi.inVista());
        // Keys of invoices do not tell what they were made from: all of them are printed as immediate ones.
        stampaDocumento(sessione_,
                        {.tipoDocumento = tipoDocumento_,
                         .numero = riga.numero,
                         .registro = registro.registro(),
                         .daDDT = riga.fatturata},
                        ChiamanteStampa::archivio);
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante)
            desktop().inform("Nessun documento selezionato!", "Archivio documenti");
        else
            MostraOperazioneAnnullata(desktop(), errore, true, "Routine: cmdStampa",
                                      "Modulo: frmVisualizzaArchivioDocumenti");
    }
}

}  // namespace bravona
