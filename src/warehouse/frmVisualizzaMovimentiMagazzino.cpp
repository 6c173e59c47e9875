#include "warehouse/frmVisualizzaMovimentiMagazzino.h"

#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"
#include "warehouse/frmModificaMovimentiMagazzino.h"

namespace bravona {

namespace {

constexpr std::size_t tutti = 0;

std::vector<ListColumn> colonne(bool conFornitore)
{
    std::vector<ListColumn> colonne{{"Numero", "fNumero", 1000, Align::left}, {"Data", "fData", 1200, Align::left}};
    if (conFornitore)
        colonne.push_back({"Fornitore", "fFornitore", 3000, Align::left});
    return colonne;
}

}  // namespace

frmVisualizzaMovimentiMagazzino::frmVisualizzaMovimentiMagazzino(Sessione& sessione)
    : Form(sessione.desktop(), "frmVisualizzaMovimentiMagazzino", "Movimenti di Carico"),
      albero(sessione.cn,
             {.radice = "Fornitori",
              .etichetta = "Fornitore: ",
              .soggetti = "SELECT IDCliente, Cliente,Tipo FROM Clienti WHERE Tipo = \"F\"  ORDER BY Cliente",
              .tuttiIMesi = false}),
      sessione_(sessione)
{
    add("fraTipoVisualizzazione", fraTipoVisualizzazione);
    add("optTipoVisualizzazione", optTipoVisualizzazione);
    add("Frame1", Frame1);
    add("lvwDocumentiEx", lvwDocumentiEx);
    add("fraDocumenti", fraDocumenti);
    add(albero);
    add("lvwDocumenti", lvwDocumenti);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);

    lvwDocumentiEx.setColumns(colonne(true));
    lvwDocumenti.setColumns(colonne(false));
    for (ListView* elenco : {&lvwDocumentiEx, &lvwDocumenti}) {
        elenco->sortable = true;
        elenco->setAccessibleName("Movimenti");
        elenco->onDblClick = [this] { visualizza(); };
    }
    for (OptionButton& opzione : optTipoVisualizzazione)
        opzione.onClick = [this] { mostraVista(); };
    albero.nodoScelto = [this](const NodoPerMese& nodo) { caricaNodo(nodo); };
    cmdShow.onClick = [this] { visualizza(); };
    cmdClose.onClick = [this] { unload(); };
    setLayout(disponi());
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

Layout frmVisualizzaMovimentiMagazzino::disponi()
{
    using namespace layout;
    return column(
        {frame(fraTipoVisualizzazione, row({of(optTipoVisualizzazione[0]), of(optTipoVisualizzazione[1]), stretch()})),
         grow(frame(Frame1, column({grow(of(lvwDocumentiEx))}))),
         grow(frame(fraDocumenti, albero.layout(of(lvwDocumenti)))), rowEnd({of(cmdShow), of(cmdClose)})});
}

void frmVisualizzaMovimentiMagazzino::onLoad()
{
    const clsCursorWait attesa(desktop());
    CentraFinestra(*this, false);
    setCaption("Movimenti Magazzino Anno " + sessione_.AnnoRiferimento);
    CaricaDocumenti();
    albero.carica();
    optTipoVisualizzazione[tutti].choose();
    mostraVista();
}

void frmVisualizzaMovimentiMagazzino::mostraVista()
{
    const bool tutte = optTipoVisualizzazione[tutti].chosen();
    Frame1.setVisible(tutte);
    fraDocumenti.setVisible(!tutte);
}

void frmVisualizzaMovimentiMagazzino::CaricaDocumenti()
{
    riempi(lvwDocumentiEx,
           "SELECT MovimentiMagazzino.IDMovimenti, MovimentiMagazzino.NumeroDocumento, "
           "MovimentiMagazzino.DataDocumento, MovimentiMagazzino.AnnoDocumento, MovimentiMagazzino.DataOperazione, "
           "Clienti.Cliente, Clienti.ClienteSecondaRiga FROM MovimentiMagazzino INNER JOIN Clienti ON "
           "MovimentiMagazzino.IDFornitore = Clienti.IDCliente WHERE AnnoDocumento = " +
               sessione_.AnnoRiferimento + " ORDER BY NumeroDocumento",
           true);
}

void frmVisualizzaMovimentiMagazzino::caricaNodo(const NodoPerMese& nodo)
{
    const std::string id = std::to_string(nodo.idSoggetto);
    if (nodo.genere == NodoPerMese::Genere::mese) {
        riempi(lvwDocumenti,
               "SELECT * FROM MovimentiMagazzino WHERE IDFornitore = " + id + " AND month(DataDocumento) = " +
                   std::to_string(nodo.mese) + " AND AnnoDocumento =" + sessione_.AnnoRiferimento,
               false);
    } else if (nodo.genere == NodoPerMese::Genere::soggetto) {
        riempi(lvwDocumenti,
               "SELECT * FROM MovimentiMagazzino WHERE AnnoDocumento= " + sessione_.AnnoRiferimento +
                   " AND IDFornitore = " + id,
               false);
        MesiConDocumenti mesi;
        for (std::size_t riga = 0; riga < lvwDocumenti.rowCount(); ++riga) {
            const auto data = Date::parse(lvwDocumenti.row(riga).cell(1));
            mesi.set(data ? static_cast<std::size_t>(data->month()) : 0);
        }
        albero.mostraMesi(nodo.idSoggetto, mesi);
    }
}

void frmVisualizzaMovimentiMagazzino::riempi(ListView& elenco, const std::string& istruzione, bool conFornitore)
{
    Recordset record = sessione_.cn.open(istruzione);
    std::vector<ListRow> righe;
    righe.reserve(record.recordCount());
    for (; !record.eof(); record.moveNext()) {
        ListRow& riga = righe.emplace_back();
        riga.text = record["NumeroDocumento"].text();
        riga.key = "x" + record["IDMovimenti"].text();
        riga.sub.push_back({format(record["DataDocumento"].value(), "dd/mm/yyyy"), {}});
        if (conFornitore)
            riga.sub.push_back({record["Cliente"].text(), {}});
    }
    elenco.clear();
    elenco.append(std::move(righe));
}

void frmVisualizzaMovimentiMagazzino::visualizza()
{
    try {
        apri(optTipoVisualizzazione[tutti].chosen() ? lvwDocumentiEx : lvwDocumenti);
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante)
            desktop().inform("Nessun documento selezionato!", "Archivio documenti");
        else
            MostraOperazioneAnnullata(desktop(), errore, true, "Routine: cmdShow",
                                      "Modulo: frmVisualizzaArchivioDocumenti");
    }
}

void frmVisualizzaMovimentiMagazzino::apri(const ListView& elenco)
{
    const std::string& chiave = elenco.row(elenco.selectedOrFail()).key;
    auto& modifica = sessione_.schermate().as<frmModificaMovimentiMagazzino>("frmModificaMovimentiMagazzino");
    modifica.CaricaMovimento(toInt32(chiave.substr(1)));
    modifica.cambiato = [&sessione = sessione_] {
        auto* elenchi = dynamic_cast<frmVisualizzaMovimentiMagazzino*>(
            sessione.schermate().find("frmVisualizzaMovimentiMagazzino"));
        if (elenchi == nullptr)
            return;
        elenchi->CaricaDocumenti();
        if (const auto nodo = elenchi->albero.scelto())
            elenchi->caricaNodo(*nodo);
    };
    modifica.show();
}

}  // namespace bravona
