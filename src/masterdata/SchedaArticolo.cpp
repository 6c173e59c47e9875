#include "masterdata/SchedaArticolo.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <utility>

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/frmDialogBox.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* formatoCifra = "###,###,##0.00";
constexpr int schedaDati = 0;
constexpr int schedaPrezzi = 1;
constexpr int schedaMagazzino = 2;
constexpr std::size_t primaDelMagazzino = 6;  // box
constexpr std::size_t dataPrimoCarico = 7;    // box

template <class Membro>
struct Casella {
    std::size_t indice;
    Membro clsArticolo::*membro;
};
constexpr std::array<Casella<std::string>, 6> testi{{{0, &clsArticolo::CodiceMagazzino},
                                                     {1, &clsArticolo::CodiceFornitore},
                                                     {2, &clsArticolo::CodiceBarreFornitore},
                                                     {3, &clsArticolo::DescrizionePrincipale},
                                                     {4, &clsArticolo::DescrizioneSecondariaUno},
                                                     {5, &clsArticolo::DescrizioneSecondariaDue}}};
constexpr std::array<Casella<std::string>, 3> date{
    {{7, &clsArticolo::DataPrimoCarico}, {8, &clsArticolo::DataUltimoCarico}, {11, &clsArticolo::DataUltimoScarico}}};
constexpr std::array<Casella<double>, 4> quantita{{{6, &clsArticolo::QuantitaMinima},
                                                   {9, &clsArticolo::Carico},
                                                   {12, &clsArticolo::Scarico},
                                                   {16, &clsArticolo::Giacenza}}};
constexpr std::array<Casella<Currency>, 4> importi{{{10, &clsArticolo::CaricoValore},
                                                    {13, &clsArticolo::ScaricoValore},
                                                    {14, &clsArticolo::CostoMedio},
                                                    {15, &clsArticolo::CostoUltimo}}};

bool diData(std::size_t casella)
{
    return std::ranges::find(date, casella, &Casella<std::string>::indice) != date.end();
}

// A text that the store has taken for a date, or for none.
std::string dataMostrata(const std::string& testo)
{
    return isDate(testo) ? toDate(testo).text() : clsArticolo::nessunaData;
}

bool importoAmmesso(const std::string& testo)
{
    try {
        return testo.empty() || parseAmount(testo).has_value();
    } catch (const Errore&) {
        return false;
    }
}

char32_t filtroData(char32_t tasto)
{
    constexpr int conBarre = 1;
    return VerificaTasto(tasto, conBarre);
}

}  // namespace

SchedaArticolo::SchedaArticolo(Sessione& sessione, const std::string& nome, const std::string& titolo)
    : Form(sessione.desktop(), nome, titolo),
      sessione_(sessione)
{
    preparaCaselle();
    preparaImmagine();
    add("SSTabSezioni", SSTabSezioni);
    add("txtArticolo", txtArticolo);
    add("cboUnitaDiMisura", cboUnitaDiMisura);
    add("cboCodiciIVA", cboCodiciIVA);
    add("lblDescrizioneListini", lblDescrizioneListini);
    add("txtEuro", txtEuro);
    add("picContainer", picContainer);
    add("picChild", picChild);
    add("hsbWidht", hsbWidht);
    add("vsbHeight", vsbHeight);
    add("cmdImmagine", cmdImmagine);
}

void SchedaArticolo::preparaCaselle()
{
    for (std::size_t i = 0; i < txtArticolo.size(); ++i) {
        const bool cifra = i >= primaDelMagazzino && !diData(i);
        txtArticolo[i].width = i >= primaDelMagazzino ? 14 : 24;
        txtArticolo[i].align = cifra ? Align::right : Align::left;
        txtArticolo[i].numeric = cifra;
        txtArticolo[i].grows = i >= descrizione && i < primaDelMagazzino;
    }
    txtArticolo[codice].onKeyPress = filtraTasti(inMaiuscolo, ValidaCodiceArticolo);
    txtArticolo[dataPrimoCarico].onKeyPress = filtraTasti(filtroData);
    cboUnitaDiMisura.width = 8;
    cboCodiciIVA.width = 16;
    cboCodiciIVA.onGotFocus = [this] { rileggiCodiciIva(); };
    for (TextBox& casella : txtEuro) {
        casella.width = 14;
        casella.align = Align::right;
        casella.numeric = true;
        casella.onKeyPress = [&casella](char32_t& tasto) {
            tasto = ValidaImporto(tasto);
            if (tasto == U',' && casella.selLength() == 0 && casella.text().find(',') != std::string::npos) {
                tasto = 0;
            }
        };
        casella.onLostFocus = [&casella] {
            casella.setText(casella.text().empty() ? std::string("0,00") : format(casella.text(), formatoCifra));
        };
    }
}

void SchedaArticolo::preparaImmagine()
{
    picChild.boxWidth = 460;
    picChild.boxHeight = 206;  // with both bars as high as the other pages
    picChild.setAccessibleName("Immagine dell'articolo");
    picChild.onResize = [this] { dimensionaBarre(); };
    picChild.horizontalBar = &hsbWidht;
    picChild.verticalBar = &vsbHeight;
    for (ScrollBar* barra : {&hsbWidht, &vsbHeight}) {
        barra->setVisible(false);
        barra->onChange = [this] { picChild.setPosition(-hsbWidht.value(), -vsbHeight.value()); };
    }
    hsbWidht.setAccessibleName("Scorrimento orizzontale dell'immagine");
    vsbHeight.setAccessibleName("Scorrimento verticale dell'immagine");
    cmdImmagine.onClick = [this] {
        const std::string scelta = frmDialogBox(sessione_).SelezioneImmagineArticolo();
        if (!scelta.empty()) {
            mostraImmagine(scelta);
        }
    };
}

void SchedaArticolo::disponi(Layout sopra, Layout comandi)
{
    using namespace layout;
    setLayout(column({std::move(sopra),
                      grow(tabs(SSTabSezioni, {paginaDati(), paginaPrezzi(), paginaMagazzino(), paginaImmagine()})),
                      std::move(comandi)}));
}

Layout SchedaArticolo::paginaDati()
{
    using namespace layout;
    return column(
        {form({line("C&odice articolo", of(txtArticolo[0])), line("Codice &fornitore", of(txtArticolo[1])),
               line("Codice a &barre", of(txtArticolo[2])), line("D&escrizione", of(txtArticolo[3])),
               line("Descrizione &secondaria", of(txtArticolo[4])), line("No&te importanti", of(txtArticolo[5])),
               line("&Unità di misura",
                    row({of(cboUnitaDiMisura), form({line("Codice I&VA", of(cboCodiciIVA))}), stretch()}))}),
         stretch()});
}

Layout SchedaArticolo::paginaPrezzi()
{
    using namespace layout;
    constexpr std::size_t meta = numeroListini / 2;
    const auto colonna = [this](std::size_t primo) {
        std::vector<Layout> righe;
        for (std::size_t i = primo; i < primo + meta; ++i) {
            righe.push_back(line(lblDescrizioneListini[i], of(txtEuro[i])));
        }
        return form(std::move(righe));
    };
    return column({row({colonna(0), colonna(meta), stretch()}), stretch()});
}

Layout SchedaArticolo::paginaMagazzino()
{
    using namespace layout;
    return column(
        {row({form({line("&Quantità minima", of(txtArticolo[6])), line("Da&ta primo carico", of(txtArticolo[7])),
                    line("Data u&ltimo carico", of(txtArticolo[8])),
                    line("Data &ultimo scarico", of(txtArticolo[11]))}),
              form({line("Caric&o", of(txtArticolo[9])), line("&Scarico", of(txtArticolo[12])),
                    line("&Giacenza", of(txtArticolo[16]))}),
              form({line("&Valore carico", of(txtArticolo[10])), line("Valor&e scarico", of(txtArticolo[13])),
                    line("Costo medio", of(txtArticolo[14])), line("Costo ultimo", of(txtArticolo[15]))}),
              stretch()}),
         stretch()});
}

Layout SchedaArticolo::paginaImmagine()
{
    using namespace layout;
    std::vector<Layout> comandi{of(cmdImmagine)};
    if (altroComandoImmagine_ != nullptr) {
        comandi.push_back(of(*altroComandoImmagine_));
    }
    comandi.push_back(stretch());
    return column({row({frame(picContainer, column({row({of(picChild), of(vsbHeight)}), of(hsbWidht)})), stretch()}),
                   row(std::move(comandi)), stretch()});
}

void SchedaArticolo::inizializza()
{
    CaricaComboIva(sessione_, cboCodiciIVA);
    CaricaUnitaMisura(cboUnitaDiMisura);
    CaricaDescrizioneListini();
}

void SchedaArticolo::svuota(std::initializer_list<const Control*> tranne)
{
    AzzeraCampi(*this, tranne);
    mostraImmagine({});
    IDArticolo_ = nessuno;
    comeMostrate_ = {};
    prezziMostrati_ = {};
    rileggiCodiciIva();
    CaricaDescrizioneListini();
    ricordaContenuto();
}

void SchedaArticolo::onActivate()
{
    const bool intatto = !hasUnsavedWork();
    rileggiCodiciIva();
    CaricaDescrizioneListini();
    if (intatto) {
        ricordaContenuto();
    }
}

bool SchedaArticolo::hasUnsavedWork() const
{
    return contenuto() != contenutoMostrato_ || prezziBattuti();
}

std::string SchedaArticolo::contenuto() const
{
    std::vector<const Control*> tranne = campiDiRicerca();
    for (const TextBox& casella : txtEuro) {
        tranne.push_back(&casella);
    }
    return fieldContents(tranne) + immagine_;
}

// A box that was only passed reads "0,00" instead of nothing.
bool SchedaArticolo::prezziBattuti() const
{
    for (std::size_t i = 0; i < txtEuro.size(); ++i) {
        const std::string& testo = txtEuro[i].text();
        if (testo != prezziMostrati_[i] && !(prezziMostrati_[i].empty() && testo == "0,00")) {
            return true;
        }
    }
    return false;
}

void SchedaArticolo::ricordaContenuto()
{
    contenutoMostrato_ = contenuto();
}

void SchedaArticolo::mostraPrezzi()
{
    CaricaPrezziArticolo(sessione_, IDArticolo_, txtEuro);
    for (std::size_t i = 0; i < txtEuro.size(); ++i) {
        prezziMostrati_[i] = txtEuro[i].text();
    }
}

bool SchedaArticolo::registraPrezzi(std::int32_t idArticolo)
{
    return RegistraPrezziArticolo(sessione_, idArticolo, txtEuro, prezziMostrati_);
}

void SchedaArticolo::rileggiCodiciIva()
{
    const bool scelto = cboCodiciIVA.listIndex() >= 0;
    const std::int32_t codiceIva = scelto ? cboCodiciIVA.itemData() : 0;
    cboCodiciIVA.clear();
    CaricaComboIva(sessione_, cboCodiciIVA);
    if (scelto) {
        cboCodiciIVA.selectByData(codiceIva);
    }
}

void SchedaArticolo::primaVoceDelleCombo()
{
    for (ComboBox* combo : {&cboUnitaDiMisura, &cboCodiciIVA}) {
        if (!combo->items().empty()) {
            combo->setListIndex(0);
        }
    }
}

void SchedaArticolo::CaricaDescrizioneListini()
{
    Recordset listini = sessione_.cn.openTable("DescrizioneListini", OpenMode::readOnly);
    listini.moveFirst();
    for (Label& etichetta : lblDescrizioneListini) {
        etichetta.setCaption("  " + replaceAll(listini["Descrizione"].text(), "&", "&&"));
        listini.moveNext();
    }
}

void SchedaArticolo::vai(std::size_t casella)
{
    SSTabSezioni.setTab(casella < primaDelMagazzino ? schedaDati : schedaMagazzino);
    txtArticolo[casella].setFocus();
}

void SchedaArticolo::vaiAlPrimoCampo()
{
    switch (SSTabSezioni.tab()) {
    case schedaDati:
        txtArticolo[codice].setFocus();
        break;
    case schedaPrezzi:
        txtEuro[0].setFocus();
        break;
    case schedaMagazzino:
        txtArticolo[primaDelMagazzino].setFocus();
        break;
    default:
        cmdImmagine.setFocus();
        break;
    }
}

bool SchedaArticolo::VerificaRiempimentoCampiEssenziali()
{
    constexpr std::array<std::pair<std::size_t, const char*>, 2> essenziali{
        {{codice, "Manca il codice articolo!"}, {descrizione, "Manca la descrizione dell'articolo!"}}};
    for (const auto& [casella, mancanza] : essenziali) {
        if (txtArticolo[casella].text().empty()) {
            desktop().inform(mancanza, titoloMessaggi);
            vai(casella);
            return false;
        }
    }
    if (cboCodiciIVA.listIndex() < 0) {
        desktop().inform("Manca il codice IVA dell'articolo!", titoloMessaggi);
        SSTabSezioni.setTab(schedaDati);
        cboCodiciIVA.setFocus();
        return false;
    }
    // Without its code the article could never be shown again.
    if (!EsisteCodiceIva(sessione_, cboCodiciIVA.itemData())) {
        desktop().inform("Il codice IVA scelto non è più in archivio!", titoloMessaggi);
        SSTabSezioni.setTab(schedaDati);
        cboCodiciIVA.setFocus();
        return false;
    }
    return true;
}

bool SchedaArticolo::codiceGiaInUso()
{
    if (!EsisteCodiceArticolo(sessione_, txtArticolo[codice].text(), IDArticolo_)) {
        return false;
    }
    desktop().inform("Impossibile eseguire l'inserimento in quanto il CODICE ARTICOLO indicato\n"
                     "è già in uso per un altro articolo!",
                     titoloMessaggi);
    vai(codice);
    return true;
}

template <class Conversione>
auto SchedaArticolo::leggi(std::size_t casella, Conversione conversione)
{
    try {
        const std::string& testo = txtArticolo[casella].text();
        return testo.empty() ? decltype(conversione(testo)){} : conversione(testo);
    } catch (const Errore&) {
        vai(casella);
        throw;
    }
}

void SchedaArticolo::raccogli(clsArticolo& articolo)
{
    for (const auto& [indice, membro] : testi) {
        articolo.*membro = txtArticolo[indice].text();
    }
    const auto battuta = [this](std::size_t indice) { return txtArticolo[indice].text() != comeMostrate_[indice]; };
    for (const auto& [indice, membro] : date) {
        if (battuta(indice)) {
            articolo.*membro = txtArticolo[indice].text();
        }
    }
    for (const auto& [indice, membro] : quantita) {
        if (battuta(indice)) {
            articolo.*membro = leggi(indice, [](const std::string& testo) { return toDouble(testo); });
        }
    }
    for (const auto& [indice, membro] : importi) {
        if (battuta(indice)) {
            articolo.*membro = leggi(indice, [](const std::string& testo) { return toCurrency(testo); });
        }
    }
    articolo.setUnitaMisura(cboUnitaDiMisura.text());
    articolo.IDCodiceIva = cboCodiciIVA.itemData();
    articolo.Immagine = immagine_;
}

void SchedaArticolo::mostra(const clsArticolo& articolo)
{
    for (const auto& [indice, membro] : testi) {
        txtArticolo[indice].setText(articolo.*membro);
    }
    const auto ricorda = [this](std::size_t indice, const std::string& testo) {
        txtArticolo[indice].setText(testo);
        comeMostrate_[indice] = testo;
    };
    for (const auto& [indice, membro] : date) {
        ricorda(indice, dataMostrata(articolo.*membro));
    }
    for (const auto& [indice, membro] : quantita) {
        ricorda(indice, format(articolo.*membro, formatoCifra));
    }
    for (const auto& [indice, membro] : importi) {
        ricorda(indice, format(articolo.*membro, formatoCifra));
    }
    if (!cboUnitaDiMisura.selectByText(articolo.UnitaMisura())) {
        cboUnitaDiMisura.setText(articolo.UnitaMisura());
    }
    cboCodiciIVA.selectByData(articolo.IDCodiceIva);
    mostraImmagine(articolo.Immagine);
}

void SchedaArticolo::vaiAlCampoErrato()
{
    const auto guasta = std::ranges::find_if(date, [this](const Casella<std::string>& data) {
        const std::string& testo = txtArticolo[data.indice].text();
        return !testo.empty() && testo != clsArticolo::nessunaData && !isDate(testo);
    });
    vai(guasta == date.end() ? codice : guasta->indice);
}

bool SchedaArticolo::prezziAmmessi()
{
    for (TextBox& casella : txtEuro) {
        if (!importoAmmesso(casella.text())) {
            SSTabSezioni.setTab(schedaPrezzi);
            MostraValoreNonValido(casella);
            return false;
        }
    }
    return true;
}

void SchedaArticolo::mostraImmagine(const std::string& percorso)
{
    immagine_ = percorso;
    picChild.failureText =
        "L'immagine " + std::filesystem::path(Files::native(percorso)).filename().string() + " non può essere letta";
    hsbWidht.setValue(0);
    vsbHeight.setValue(0);
    picChild.load(percorso);
    picChild.setToolTip(percorso);
}

// A bar for what does not fit, with the rest as its range.
void SchedaArticolo::dimensionaBarre()
{
    const auto regola = [](ScrollBar& barra, int immagine, int riquadro) {
        barra.setRange(0, std::max(0, immagine - riquadro));
        barra.setVisible(barra.maximum() > 0);
    };
    regola(hsbWidht, picChild.pictureWidth(), picChild.boxWidth);
    regola(vsbHeight, picChild.pictureHeight(), picChild.boxHeight);
}

}  // namespace bravona
