#include "masterdata/frmInformazioniDitta.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "session/frmDialogBox.h"
#include "session/modMain.h"

namespace bravona {

namespace {

enum Casella : std::size_t { ragioneSociale1, ragioneSociale2, indirizzo, citta, provincia, cap, telefono, fax, iva };
enum Stampa : std::size_t { datiAzienda, immagineLogo };
enum Comando : std::size_t { registra, chiudi };

constexpr const char* stampaDati = "D";
constexpr const char* stampaLogo = "L";
constexpr const char* formatoImporti = "#,##0.00";

}  // namespace

frmInformazioniDitta::frmInformazioniDitta(Sessione& sessione)
    : Form(sessione.desktop(), "frmInformazioniDitta", "Dati Azienda"),
      sessione_(sessione)
{
    for (TextBox& casella : txtAnagrafica) {
        casella.onChange = [this] { Variato = true; };
    }
    for (const Casella larga : {ragioneSociale1, ragioneSociale2, indirizzo, citta}) {
        txtAnagrafica[larga].grows = true;
    }
    txtAnagrafica[ragioneSociale2].setAccessibleName("Ragione sociale, seconda riga");
    txtAnagrafica[provincia].onKeyPress = filtraTasti(inMaiuscolo);
    txtAnagrafica[cap].onKeyPress = filtraTasti(ValidaCifre);
    txtAnagrafica[iva].onKeyPress = filtraTasti(ValidaCifre);
    for (OptionButton& scelta : optStampa) {
        scelta.onClick = [this] { abilitaImmagine(); };
    }
    lblPercorsoImmagine.setLocked(true);
    lblPercorsoImmagine.grows = true;
    lblPercorsoImmagine.setAccessibleName("Immagine del logo");
    cmdImmagine.onClick = [this] {
        // Cancelled: the path stays.
        if (const std::string scelta = frmDialogBox(sessione_).SelezioneImmagineArticolo(); !scelta.empty()) {
            mostraPercorso(scelta);
        }
    };
    cmdLogo.onClick = [this] { sessione_.schermate().get("frmLogo").showModal(); };
    DataGrid1.setAccessibleName("Banche della ditta");
    Command1[registra].onClick = [this] { RegistraDatiDitta(); };
    Command1[chiudi].onClick = [this] { unload(); };

    add("txtAnagrafica", txtAnagrafica);
    add("lblStampa", lblStampa);
    add("optStampa", optStampa);
    add("lblPercorsoImmagine", lblPercorsoImmagine);
    add("cmdImmagine", cmdImmagine);
    add("cmdLogo", cmdLogo);
    add("fraBanche", fraBanche);
    add("DataGrid1", DataGrid1);
    add("Command1", Command1);
    disponi();
    setDefaultButton(&Command1[registra]);
    setCancelButton(&Command1[chiudi]);
}

void frmInformazioniDitta::disponi()
{
    using namespace layout;
    const auto casella = [this](Casella quale) { return of(txtAnagrafica[quale]); };
    setLayout(
        column({form({line("Ragione &sociale", casella(ragioneSociale1)), line("", casella(ragioneSociale2)),
                      line("&Indirizzo", casella(indirizzo)),
                      line("C&ap", row({casella(cap), form({line("Ci&ttà", casella(citta))}),
                                        form({line("&Prov.", casella(provincia))})})),
                      line("T&elefono", row({casella(telefono), form({line("&Fax", casella(fax))}), stretch()})),
                      line("Partita I.&V.A.", row({casella(iva), stretch()}))}),
                row({of(lblStampa), of(optStampa[datiAzienda]), of(optStampa[immagineLogo]), stretch(), of(cmdLogo)}),
                row({grow(of(lblPercorsoImmagine)), of(cmdImmagine)}), grow(frame(fraBanche, grow(of(DataGrid1)))),
                rowEnd({of(Command1[registra]), of(Command1[chiudi])})}));
}

void frmInformazioniDitta::onLoad()
{
    CentraFinestra(*this, false);
    apriBanche();
    CaricaDatiDitta();
    Variato = false;
}

void frmInformazioniDitta::apriBanche()
{
    constexpr std::array larghezze{0, 3200, 3400, 1400, 1400};  // twips
    constexpr std::array titoli{"", "Banca", "Conto corrente", "Fido", "Saldo"};
    constexpr std::size_t primoImporto = 3;
    banche_ = sessione_.cn.openTable("BancheDitta");
    std::vector<DataColumn> colonne(larghezze.size());
    for (std::size_t i = 0; i < colonne.size(); ++i) {
        colonne[i].width = larghezze[i];
        colonne[i].caption = titoli[i];
        if (i >= primoImporto) {
            colonne[i].align = Align::right;
            colonne[i].pattern = formatoImporti;
        }
    }
    DataGrid1.setColumns(std::move(colonne));
    DataGrid1.bind(&banche_);
}

bool frmInformazioniDitta::onQueryUnload(CloseCause)
{
    if (!DataGrid1.userLeave()) {
        return false;
    }
    if (Variato && desktop().ask("Alcuni dati sono stati variati. Salvare le modifiche?", "Dati Azienda")) {
        scriviDati();
    }
    return true;
}

void frmInformazioniDitta::onUnload()
{
    DataGrid1.bind(nullptr);
    banche_.close();
}

void frmInformazioniDitta::CaricaDatiDitta()
{
    Recordset record = sessione_.cn.openTable("DatiAzienda");
    for (std::size_t i = 0; i < txtAnagrafica.size(); ++i) {
        txtAnagrafica[i].setText(record[i].text());
    }
    optStampa[record["TipoStampa"].text() == stampaDati ? datiAzienda : immagineLogo].choose();
    mostraPercorso(record["PercorsoImmagineLogo"].text());
    abilitaImmagine();
}

void frmInformazioniDitta::RegistraDatiDitta()
{
    scriviDati();
    unload();
}

void frmInformazioniDitta::scriviDati()
{
    Recordset record = sessione_.cn.openTable("DatiAzienda");
    for (std::size_t i = 0; i < txtAnagrafica.size(); ++i) {
        record[i] = txtAnagrafica[i].text();
    }
    record["TipoStampa"] = optStampa[immagineLogo].chosen() ? stampaLogo : stampaDati;
    record["PercorsoImmagineLogo"] = lblPercorsoImmagine.text();
    record.update();
    record.close();
    Variato = false;
    CaricaDatiAzienda(sessione_);
    Annuncia(sessione_, "Dati azienda registrati");
}

void frmInformazioniDitta::mostraPercorso(const std::string& percorso)
{
    lblPercorsoImmagine.setText(percorso);
    lblPercorsoImmagine.setToolTip(percorso);
}

void frmInformazioniDitta::abilitaImmagine()
{
    const bool immagine = optStampa[immagineLogo].chosen();
    lblPercorsoImmagine.setEnabled(immagine);
    cmdImmagine.setEnabled(immagine);
}

}  // namespace bravona
