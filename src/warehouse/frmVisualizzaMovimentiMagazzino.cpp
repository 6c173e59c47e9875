#include "warehouse/frmVisualizzaMovimentiMagazzino.h"

#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"
#include "warehouse/frmModificaMovimentiMagazzino.h"

namespace bravona {

namespace {

std::vector<ListColumn> colonne(bool conFornitore)
{
    std::vector<ListColumn> colonne{{"Numero", "fNumero", 1000, Align::left}, {"Data", "fData", 1200, Align::left}};
    if (conFornitore)
        colonne.push_back({"Fornitore", "fFornitore", 3000, Align::left});
    return colonne;
}

ListRow riga(Recordset& movimento)
{
    ListRow riga;
    riga.text = movimento["NumeroDocumento"].text();
    riga.key = "x" + movimento["IDMovimenti"].text();
    riga.sub.push_back({format(movimento["DataDocumento"].value(), "dd/mm/yyyy"), {}});
    return riga;
}

ListRow rigaConFornitore(Recordset& movimento)
{
    ListRow completa = riga(movimento);
    completa.sub.push_back({movimento["Cliente"].text(), {}});
    return completa;
}

}  // namespace

frmVisualizzaMovimentiMagazzino::frmVisualizzaMovimentiMagazzino(Sessione& sessione)
    : Form(sessione.desktop(), "frmVisualizzaMovimentiMagazzino", "Movimenti di Carico"),
      elenchi(
          sessione.cn,
          {.albero = {.radice = "Fornitori",
                      .etichetta = "Fornitore: ",
                      .soggetti = "SELECT IDCliente, Cliente,Tipo FROM Clienti WHERE Tipo = \"F\"  ORDER BY Cliente",
                      .tuttiIMesi = false},
           .tutti = "Tutti",
           .perSoggetto = "Per fornitore",
           .documenti = "Movimenti"}),
      sessione_(sessione)
{
    add(elenchi);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);

    elenchi.lvwDocumentiEx.setColumns(colonne(true));
    elenchi.lvwDocumenti.setColumns(colonne(false));
    elenchi.albero.nodoScelto = [this](const NodoPerMese& nodo) { caricaNodo(nodo); };
    elenchi.visualizza = [this] { visualizza(); };
    cmdShow.onClick = [this] { visualizza(); };
    cmdClose.onClick = [this] { unload(); };
    setLayout(disponi());
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

Layout frmVisualizzaMovimentiMagazzino::disponi()
{
    using namespace layout;
    return column({grow(elenchi.layout()), rowEnd({of(cmdShow), of(cmdClose)})});
}

void frmVisualizzaMovimentiMagazzino::onLoad()
{
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    setCaption("Movimenti Magazzino Anno " + sessione_.AnnoRiferimento);
    CaricaDocumenti();
    elenchi.albero.carica();
    elenchi.mostraTutti();
}

void frmVisualizzaMovimentiMagazzino::CaricaDocumenti()
{
    riempi(elenchi.lvwDocumentiEx,
           sessione_.cn.open(
               "SELECT MovimentiMagazzino.IDMovimenti, MovimentiMagazzino.NumeroDocumento, "
               "MovimentiMagazzino.DataDocumento, MovimentiMagazzino.AnnoDocumento, MovimentiMagazzino.DataOperazione, "
               "Clienti.Cliente, Clienti.ClienteSecondaRiga FROM MovimentiMagazzino INNER JOIN Clienti ON "
               "MovimentiMagazzino.IDFornitore = Clienti.IDCliente WHERE AnnoDocumento = " +
               sessione_.AnnoRiferimento + " ORDER BY NumeroDocumento"),
           rigaConFornitore);
}

void frmVisualizzaMovimentiMagazzino::caricaNodo(const NodoPerMese& nodo)
{
    const std::string id = std::to_string(nodo.idSoggetto);
    if (nodo.genere == NodoPerMese::Genere::mese) {
        riempi(elenchi.lvwDocumenti,
               sessione_.cn.open("SELECT * FROM MovimentiMagazzino WHERE IDFornitore = " + id +
                                 " AND month(DataDocumento) = " + std::to_string(nodo.mese) +
                                 " AND AnnoDocumento =" + sessione_.AnnoRiferimento),
               riga);
    } else if (nodo.genere == NodoPerMese::Genere::soggetto) {
        riempi(elenchi.lvwDocumenti,
               sessione_.cn.open("SELECT * FROM MovimentiMagazzino WHERE AnnoDocumento= " + sessione_.AnnoRiferimento +
                                 " AND IDFornitore = " + id),
               riga);
        elenchi.mostraMesi(nodo.idSoggetto);
    }
}

void frmVisualizzaMovimentiMagazzino::rileggi()
{
    bravona::rileggi(elenchi.lvwDocumentiEx, [this] { CaricaDocumenti(); });
    if (const auto nodo = elenchi.albero.scelto())
        bravona::rileggi(elenchi.lvwDocumenti, [&] { caricaNodo(*nodo); });
}

void frmVisualizzaMovimentiMagazzino::visualizza()
{
    try {
        apri();
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante)
            desktop().inform("Nessun documento selezionato!", "Archivio documenti");
        else
            MostraOperazioneAnnullata(desktop(), errore, true, "Routine: cmdShow",
                                      "Modulo: frmVisualizzaArchivioDocumenti");
    }
}

void frmVisualizzaMovimentiMagazzino::apri()
{
    const ListView& elenco = elenchi.inVista();
    const std::string& chiave = elenco.row(elenco.selectedOrFail()).key;
    auto& modifica = sessione_.schermate().as<frmModificaMovimentiMagazzino>("frmModificaMovimentiMagazzino");
    modifica.CaricaMovimento(toInt32(chiave.substr(1)));
    modifica.cambiato = [&sessione = sessione_] {
        if (auto* aperto = dynamic_cast<frmVisualizzaMovimentiMagazzino*>(
                sessione.schermate().find("frmVisualizzaMovimentiMagazzino")))
            aperto->rileggi();
    };
    modifica.show();
}

}  // namespace bravona
