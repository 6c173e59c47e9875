#include "documents/frmFatturaDaDDT.h"

#include <algorithm>

#include "documents/ArchivioDocumenti.h"
#include "documents/Emissione.h"
#include "documents/TipoDocumento.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr Colour daFatturare = colours::red;
constexpr Colour daLeggere = colours::black;

// Returns and samples are not invoiced, nor is anything twice.
ListRow rigaDi(Recordset& bolla)
{
    const bool fatturata = bolla["EmessaFattura"].text() == "S";
    const std::string tipo = bolla["Tipo"].text();
    const std::int32_t fattura = bolla["NumeroFattura"].longOr(0);
    const Field dataFattura = bolla["DataFattura"];
    return {.text = {},
            .key = (fatturata ? "sx" : "nx") + bolla["IDBolla"].text(),
            .tag = {},
            .sub = {{bolla["NumeroDocumento"].text(), {}},
                    {format(bolla["DataDocumento"].value(), "dd/mm/yyyy"), {}},
                    {bolla["CausaleTrasporto"].text(), {}},
                    {fattura == 0 ? "-" : std::to_string(fattura), {}},
                    {dataFattura.isNull() ? "-" : dataFattura.text(), {}}},
            .colour = fatturata || tipo == "R" || tipo == "C" ? daLeggere : daFatturare};
}

}  // namespace

frmFatturaDaDDT::frmFatturaDaDDT(Sessione& sessione)
    : Form(sessione.desktop(), "frmFatturaDaDDT", "Emissione fattura da documento precedente"),
      albero(sessione.cn,
             {.radice = "Clienti",
              .etichetta = "Cliente: ",
              .soggetti = "SELECT IDCliente, Cliente FROM Clienti Where IDCliente <> -1 ORDER BY Cliente"}),
      sessione_(sessione)
{
    lvwBolleCliente.setColumns(
        {{.caption = "", .key = "fcheck", .width = 400},
         {.caption = "Numero", .key = "fNumero", .width = 1000},
         {.caption = "Data", .key = "fData", .width = 1200},
         {.caption = "Causale", .key = "fCausale", .width = 2000},
         {.caption = "Emessa Fattura", .key = "fEmessaFattura", .width = 1500, .align = Align::right},
         {.caption = "DataFattura", .key = "fDataFattura", .width = 1200, .align = Align::right}});
    lvwBolleCliente.checkBoxes = true;
    lvwBolleCliente.lines = 16;
    lvwBolleCliente.setAccessibleName("Documenti di trasporto");
    lvwBolleCliente.onItemCheck = [this](std::size_t riga) {
        if (!spuntabile(riga))
            lvwBolleCliente.setChecked(riga, false);
        abilitaComando();
    };
    popupMenu = std::make_unique<Menu>();
    Menu& menu = popupMenu->add("mnuM", "Documenti");
    menu.add("mnuSeleziona", "&Seleziona Tutti", [this] { spunta(true); });
    menu.add("mnuDeseleziona", "&Deseleziona Tutti", [this] { spunta(false); });
    lvwBolleCliente.contextMenu = &menu;

    albero.nodoScelto = [this](const NodoPerMese&) { ricarica(); };
    registro.registroCambiato = [this] { ricarica(); };
    cmdShow.setEnabled(false);
    cmdShow.onClick = [this] { EmettiFatturaDaDDT(); };
    cmdClose.onClick = [this] { unload(); };

    add(registro);
    add(albero);
    add("lvwBolleCliente", lvwBolleCliente);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);
    setLayout(disponi());
    setCancelButton(&cmdClose);
}

Layout frmFatturaDaDDT::disponi()
{
    using namespace layout;
    return column(
        {form({registro.linea()}), grow(albero.layout(of(lvwBolleCliente))), rowEnd({of(cmdShow), of(cmdClose)})});
}

void frmFatturaDaDDT::onLoad()
{
    registro.carica(sessione_);
    albero.carica();
    albero.tvwClienti.setFocus();
}

void frmFatturaDaDDT::ricarica()
{
    const std::optional<NodoPerMese> nodo = albero.scelto();
    if (nodo && nodo->genere != NodoPerMese::Genere::radice)
        CaricaBolleCliente(*nodo);
}

void frmFatturaDaDDT::CaricaBolleCliente(const NodoPerMese& nodo)
{
    const clsCursorWait attesa(desktop());
    lvwBolleCliente.clear();
    cmdShow.setEnabled(false);
    Recordset bolle = sessione_.cn.open(
        documentiDelNodo(nodo, tabelleDocumento(tipo::ddt).testata, sessione_.AnnoRiferimento, registro.testo()));
    MesiConDocumenti mesi;
    std::vector<ListRow> righe;
    righe.reserve(bolle.recordCount());
    for (; !bolle.eof(); bolle.moveNext()) {
        righe.push_back(rigaDi(bolle));
        mesi.set(meseDi(bolle["DataDocumento"]));
    }
    lvwBolleCliente.append(std::move(righe));
    if (nodo.genere == NodoPerMese::Genere::soggetto)
        albero.mostraMesi(nodo.idSoggetto, mesi);
}

bool frmFatturaDaDDT::spuntabile(std::size_t riga) const
{
    return lvwBolleCliente.row(riga).colour != daLeggere;
}

void frmFatturaDaDDT::spunta(bool tutte)
{
    for (std::size_t riga = 0; riga < lvwBolleCliente.rowCount(); ++riga) {
        if (spuntabile(riga))
            lvwBolleCliente.setChecked(riga, tutte);
    }
    abilitaComando();
}

void frmFatturaDaDDT::abilitaComando()
{
    bool spuntata = false;
    for (std::size_t riga = 0; riga < lvwBolleCliente.rowCount() && !spuntata; ++riga)
        spuntata = lvwBolleCliente.row(riga).checked;
    cmdShow.setEnabled(spuntata);
}

std::vector<Documento> frmFatturaDaDDT::bolleSpuntate() const
{
    std::vector<Documento> bolle;
    for (std::size_t i = 0; i < lvwBolleCliente.rowCount(); ++i) {
        const ListRow& riga = lvwBolleCliente.row(i);
        if (!riga.checked)
            continue;
        std::optional<Documento> bolla = leggiDocumento(sessione_.cn, tipo::ddt, toInt32(riga.cell(1)),
                                                        toInt32(sessione_.AnnoRiferimento), registro.registro());
        if (!bolla)
            throw Errore(errori::nessunRecordCorrente, "Nessun record corrente");
        bolle.push_back(*std::move(bolla));
    }
    return bolle;
}

void frmFatturaDaDDT::EmettiFatturaDaDDT()
{
    std::vector<Documento> bolle;
    emetti(sessione_, *this, registro,
           {.tipoDocumento = tipo::fattura,
            .routine = "Routine: EmettiFatturaDaDDT",
            .modulo = "Modulo: frmFatturaDaDDT",
            .titolo = "Gestione Fattura",
            .emesso = " E' stata emessa la fattura n. ",
            .domanda = "Visualizzare la fattura per l'eventuale modifica dei prezzi?",
            .deriva =
                [&](const NuovoDocumento& nuova) {
                    bolle = bolleSpuntate();
                    return fatturaDaDDT(bolle, nuova);
                },
            .collega = [&](const TestataDocumento& fattura) { collega(sessione_.cn, fattura, bolle); },
            .emessoOra = [this] { ricarica(); }});
}

}  // namespace bravona
