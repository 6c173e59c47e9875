#include "documents/CampiRiga.h"

#include <algorithm>

#include "documents/clsCalcoli.h"
#include "documents/frmZoomDescrizione.h"
#include "masterdata/clsArticolo.h"
#include "masterdata/modFunzioniComuni.h"
#include "masterdata/modRicerca.h"
#include "masterdata/modRicercaArticolo.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr int perCodice = 0;
constexpr int perDescrizione = 1;
const std::string testoEsente = "E - 0%";  // the VAT code of exempt customers, as the combo shows it

// The text that stays when what is selected is typed over.
std::u32string senzaSelezione(const TextBox& campo)
{
    std::u32string testo = toCodePoints(campo.text());
    testo.erase(std::min(campo.selStart(), testo.size()), campo.selLength());
    return testo;
}

// Set as long as it lives.
class Finche {
public:
    explicit Finche(bool& segno) : segno_(segno) { segno_ = true; }
    ~Finche() { segno_ = false; }
    Finche(const Finche&) = delete;
    Finche& operator=(const Finche&) = delete;

private:
    bool& segno_;
};

}  // namespace

CampiRiga::CampiRiga(Sessione& sessione, RegoleCampi regole) : sessione_(sessione), regole_(std::move(regole))
{
    add("fraDettagli", fraDettagli);
    add("txtCodiceArticolo", txtCodiceArticolo);
    add("txtDescrizione", txtDescrizione);
    add("txtQuantita", txtQuantita);
    add("cmbListino", cmbListino);
    add("txtPrezzo", txtPrezzo);
    add("txtSconto", txtSconto);
    add("txtPrezzoScontato", txtPrezzoScontato);
    add("txtTotaleRiga", txtTotaleRiga);
    add("cmbUnitaMisura", cmbUnitaMisura);
    add("cmbIva", cmbIva);

    for (TextBox* campo : {&txtPrezzoScontato, &txtTotaleRiga})
        campo->setLocked(true);
    for (TextBox* campo : {&txtPrezzoScontato, &txtTotaleRiga, &txtQuantita, &txtPrezzo})
        campo->align = Align::right;
    for (TextBox& campo : txtSconto)
        campo.align = Align::right;
    txtDescrizione.grows = true;
    txtDescrizione.setToolTip("F2 o doppio clic: testo intero");
    cmbUnitaMisura.width = 5;
    cmbListino.width = 4;
    cmbIva.width = 12;
    collega();
}

void CampiRiga::inizializza()
{
    CaricaComboIva(sessione_, cmbIva);
    if (!cmbIva.items().empty())
        cmbIva.setListIndex(0);
    for (std::size_t listino = 1; listino <= numeroListini; ++listino)
        cmbListino.addItem(std::to_string(listino));
    CaricaUnitaMisura(cmbUnitaMisura);
    idArticolo_ = righe::libera;
    for (TextBox& campo : txtSconto)
        campo.setText("0");
    Sconto = {};
    setIDListino(0);
}

Layout CampiRiga::layout(std::vector<Layout> comandi)
{
    using namespace layout;
    const auto campo = [](const char* nome, Control& controllo) { return form({line(nome, of(controllo))}); };
    std::vector<Layout> ultima{campo("Prezzo scontato", txtPrezzoScontato), campo("Totale riga", txtTotaleRiga),
                               stretch()};
    std::ranges::move(comandi, std::back_inserter(ultima));
    return frame(fraDettagli,
                 column({row({campo("Articolo", txtCodiceArticolo), grow(campo("Descrizione", txtDescrizione)),
                              campo("UM", cmbUnitaMisura)}),
                         row({campo("Quantità", txtQuantita), campo("Listino", cmbListino), campo("Prezzo", txtPrezzo),
                              form({line("Sconti %", row({of(txtSconto[0]), of(txtSconto[1]), of(txtSconto[2])}))}),
                              campo("IVA", cmbIva)}),
                         row(std::move(ultima))}));
}

void CampiRiga::collega()
{
    txtCodiceArticolo.onChange = [this] {
        if (!inRicerca_ && !inCopia_)
            PulisciCampiRiga();
    };
    txtCodiceArticolo.onKeyPress = filtraTasti(inMaiuscolo);
    txtCodiceArticolo.placeholder = "F3 cerca";
    txtDescrizione.placeholder = "F3 cerca";
    txtCodiceArticolo.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::f3 || (evento.key == Key::enter && codiceDaCercare())) {
            evento.drop();
            cercaArticolo(perCodice);
        } else if (evento.key == Key::down && versoElenco) {
            evento.drop();
            versoElenco();
        }
    };
    txtDescrizione.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::f3) {
            evento.drop();
            cercaArticolo(perDescrizione);
        } else if (evento.key == Key::f2) {
            evento.drop();
            zoomDescrizione();
        }
    };
    txtDescrizione.onDblClick = [this] { zoomDescrizione(); };
    cmbListino.onClick = [this] {
        if (cmbListino.listIndex() < 0)
            return;
        idListino_ = cmbListino.listIndex() + 1;
        if (!inCopia_ && idArticolo_ > 0)
            RichiamaPrezzoArticolo(sessione_, idArticolo_, idListino_, txtPrezzo);
    };
    txtPrezzo.onLostFocus = [this] {
        if (txtPrezzo.text().empty())
            txtPrezzo.setText("0,00");
        else if (isNumeric(txtPrezzo.text()))  // what is none is told when the row is added
            txtPrezzo.setText(FormattaImporto(txtPrezzo.text()));
    };
    txtPrezzo.numeric = true;
    txtQuantita.numeric = true;
    txtPrezzo.onKeyPress = [this](char32_t& tasto) {
        tasto = ValidaImporto(tasto);
        if (tasto == U',' && senzaSelezione(txtPrezzo).find(U',') != std::u32string::npos)
            tasto = 0;
    };
    txtPrezzo.onChange = [this] { calcolaRiga(); };
    txtQuantita.onKeyPress = [this](char32_t& tasto) { filtroQuantita(tasto); };
    txtQuantita.onChange = [this] {
        txtPrezzo.select(length(txtPrezzo.text()), 0);
        calcolaRiga();
    };
    for (std::size_t i = 0; i < txtSconto.size(); ++i) {
        txtSconto[i].onKeyPress = filtraTasti(ValidaSconto);
        txtSconto[i].onLostFocus = [this, i] { lasciaSconto(i); };
    }
}

void CampiRiga::filtroQuantita(char32_t& tasto) const
{
    tasto = ValidaImporto(tasto);
    if (tasto <= U' ')
        return;
    const std::u32string testo = senzaSelezione(txtQuantita);
    const std::size_t virgola = testo.find(U',');
    if (virgola == std::u32string::npos)
        return;
    const bool dueDecimali = txtQuantita.selStart() > virgola + 2;
    if (tasto == U',' || dueDecimali)
        tasto = 0;
}

void CampiRiga::lasciaSconto(std::size_t indice)
{
    TextBox& campo = txtSconto[indice];
    if (!isNumeric(campo.text()))
        campo.setText("0");
    Sconto[indice] = toDouble(campo.text());
    try {
        calcolaRiga();
    } catch (const Errore& errore) {  // a quantity that cannot be read is mended in its own field
        sessione_.desktop().report(errore);
    }
}

void CampiRiga::calcolaRiga()
{
    if (inCalcolo_)
        return;
    const Finche inCorso(inCalcolo_);
    const TestiTotaleRiga totale = CalcolaTotaleRiga(txtQuantita.text(), txtPrezzo.text(), Sconto);
    txtPrezzoScontato.setText(totale.prezzoScontato);
    txtTotaleRiga.setText(totale.totale);
}

void CampiRiga::setIDListino(std::int32_t listino)
{
    idListino_ = listino;
    cmbListino.setListIndex(listino >= 1 && listino <= static_cast<std::int32_t>(numeroListini) ? listino - 1 : -1);
    idListino_ = listino;
}

void CampiRiga::setCondizioni(const CondizioniCliente& condizioni)
{
    condizioni_ = condizioni;
    riprendiSconti();
    riprendiListino();
}

void CampiRiga::riprendiSconti()
{
    for (std::size_t i = 0; i < txtSconto.size(); ++i) {
        txtSconto[i].setText(std::to_string(condizioni_.sconti[i]));
        Sconto[i] = condizioni_.sconti[i];
    }
    // A row that stands in the fields follows its new discounts.
    if (isNumeric(txtQuantita.text()))
        calcolaRiga();
}

void CampiRiga::riprendiListino()
{
    setIDListino(condizioni_.listino);
}

void CampiRiga::PulisciCampiRiga()
{
    for (TextBox* campo : {&txtDescrizione, &txtQuantita, &txtPrezzo, &txtPrezzoScontato})
        campo->setText({});
    cmbUnitaMisura.setText({});
    txtTotaleRiga.setText({});
    cmbIva.setListIndex(-1);
    idArticolo_ = righe::libera;
}

void CampiRiga::nuovaRiga()
{
    txtCodiceArticolo.setText({});
    PulisciCampiRiga();
}

void CampiRiga::avverti(const std::string& testo, Control& campo)
{
    sessione_.desktop().inform(testo, regole_.titolo);
    campo.setFocus();
}

bool CampiRiga::ControllaRiga()
{
    if (trim(txtCodiceArticolo.text()).empty()) {
        avverti("Attenzione! Codice articolo non indicato!", txtCodiceArticolo);
        return false;
    }
    if (trim(txtDescrizione.text()).empty()) {
        avverti("Attenzione! Descrizione articolo non indicata!", txtDescrizione);
        return false;
    }
    if (trim(cmbUnitaMisura.text()).empty()) {
        avverti("Attenzione! Unita di misura non indicata!", cmbUnitaMisura);
        return false;
    }
    if (!isNumeric(txtQuantita.text()) || toDouble(txtQuantita.text()) == 0) {
        avverti("Attenzione! Quantita' articolo errata!", txtQuantita);
        return false;
    }
    if (!controllaPrezzo())
        return false;
    if (cmbIva.listIndex() < 0) {
        avverti("Attenzione! Codice iva non indicato!", cmbIva);
        return false;
    }
    // Documents know a code by one letter; a longer one would be taken for another, or for no VAT at all.
    const std::size_t lettere = cmbIva.text().find(" - ");
    if (lettere != std::string::npos && lettere > 1) {
        avverti(
            "Attenzione! Il codice iva scelto non puo' essere usato nei documenti: indicarne uno di una sola lettera!",
            cmbIva);
        return false;
    }
    return true;
}

bool CampiRiga::controllaPrezzo()
{
    if (trim(txtPrezzo.text()).empty())
        txtPrezzo.setText("0");
    if (!isNumeric(trim(txtPrezzo.text()))) {
        avverti("Attenzione! Prezzo articolo errato!", txtPrezzo);
        return false;
    }
    return true;
}

bool CampiRiga::controllaCarico()
{
    if (trim(txtCodiceArticolo.text()).empty() || trim(txtQuantita.text()).empty()) {
        avverti("Attenzione! Mancano alcuni dati.",
                trim(txtCodiceArticolo.text()).empty() ? txtCodiceArticolo : txtQuantita);
        return false;
    }
    if (!isNumeric(txtQuantita.text())) {
        avverti("Attenzione! Quantita' articolo errata!", txtQuantita);
        return false;
    }
    return controllaPrezzo();
}

bool CampiRiga::RigaSpeciale() const
{
    const std::string codiceRiga = upper(txtCodiceArticolo.text());
    const bool speciale = codiceRiga == righe::codiceTesto || codiceRiga == righe::codiceSoloFattura ||
                          codiceRiga == righe::codiceSoloDDT;
    return speciale && !trim(txtDescrizione.text()).empty();
}

std::optional<RigaDocumento> CampiRiga::rigaControllata()
{
    const bool completa = regole_.controllo == RegoleCampi::Controllo::vendita ? ControllaRiga() : controllaCarico();
    if (!completa)
        return std::nullopt;
    try {
        return leggi();
    } catch (const Errore&) {  // an amount that no money can be
        avverti("Valore non valido!", txtQuantita);
        return std::nullopt;
    }
}

RigaDocumento CampiRiga::leggi() const
{
    RigaDocumento riga;
    riga.IDArticolo = idArticolo_;
    riga.CodiceArticolo = txtCodiceArticolo.text();
    riga.Descrizione = txtDescrizione.text();
    riga.UnitaMisura = cmbUnitaMisura.text();
    riga.quantitaScritta = txtQuantita.text();
    riga.Quantita = toDouble(txtQuantita.text());
    riga.Listino = cmbListino.listIndex() < 0 ? std::nullopt : std::optional(cmbListino.listIndex() + 1);
    riga.prezzoScritto = txtPrezzo.text().empty() ? "0" : txtPrezzo.text();
    riga.PrezzoUnitario = aCentesimi(riga.prezzoScritto);
    riga.Sconti = Sconto;
    riga.totaleScritto = txtTotaleRiga.text();
    riga.TotaleRiga = aCentesimi(CalcolaTotaleRiga(riga.Quantita, riga.PrezzoUnitario, Sconto).totale);
    riga.CodiceIva = left(cmbIva.text(), 1);
    riga.IDCodiceIva = cmbIva.listIndex() < 0 ? 0 : cmbIva.itemData();
    return riga;
}

bool CampiRiga::rigaScritta() const
{
    return !(trim(txtCodiceArticolo.text()).empty() && trim(txtDescrizione.text()).empty()) &&
           !trim(txtQuantita.text()).empty();
}

RigaDocumento CampiRiga::leggiCommento() const
{
    return rigaCommento(upper(txtCodiceArticolo.text()), txtDescrizione.text());
}

void CampiRiga::mostra(const RigaDocumento& riga, bool soloImporti)
{
    const Finche inCorso(inCopia_);
    txtCodiceArticolo.setText(riga.CodiceArticolo);
    idArticolo_ = riga.IDArticolo;
    txtDescrizione.setText(riga.Descrizione);
    if (riga.commento()) {
        txtCodiceArticolo.setEnabled(false);
        txtDescrizione.setEnabled(!soloImporti);
        calcolaRiga();
        return;
    }
    txtCodiceArticolo.setEnabled(!soloImporti);
    txtDescrizione.setEnabled(!soloImporti);
    cmbUnitaMisura.setText(riga.UnitaMisura);
    txtQuantita.setText(riga.quantitaScritta.empty() ? numberText(riga.Quantita) : riga.quantitaScritta);
    setIDListino(riga.Listino.value_or(0));
    txtPrezzo.setText(riga.prezzoScritto.empty() ? FormattaImporto(riga.PrezzoUnitario) : riga.prezzoScritto);
    for (std::size_t i = 0; i < txtSconto.size(); ++i) {
        txtSconto[i].setText(numberText(riga.Sconti[i]));
        Sconto[i] = riga.Sconti[i];
    }
    if (!cmbIva.selectByData(riga.IDCodiceIva))
        cmbIva.setListIndex(-1);
    calcolaRiga();
}

void CampiRiga::sblocca()
{
    txtCodiceArticolo.setEnabled(true);
    txtDescrizione.setEnabled(true);
}

// A code just typed, with nothing else yet: Enter looks it up instead of running the command.
bool CampiRiga::codiceDaCercare() const
{
    return idArticolo_ == righe::libera && !trim(txtCodiceArticolo.text()).empty() &&
           !txtCodiceArticolo.text().starts_with(righe::codiceTesto) && trim(txtDescrizione.text()).empty();
}

void CampiRiga::cercaArticolo(int modo)
{
    if (modo == perCodice && txtCodiceArticolo.text() == righe::codiceTesto) {
        sessione_.desktop().inform("Impossibile effettuare la ricerca. Verificare il codice inserito!",
                                   regole_.titoloRicerca);
        return;
    }
    ImpostaArticolo(modo);
}

void CampiRiga::ImpostaArticolo(int modo)
{
    const Finche inCorso(inRicerca_);
    const std::int32_t id = modo == perCodice
                                ? RicercaArticolo(sessione_, CampoArticolo::codice, txtCodiceArticolo.text())
                                : RicercaArticolo(sessione_, CampoArticolo::descrizione, txtDescrizione.text());
    if (id == ricerca::annullata)
        return;
    clsArticolo articolo(sessione_);
    if (id == ricerca::nessunRecord || !articolo.RichiamaArticolo(id).riferisci(sessione_.desktop())) {
        sessione_.desktop().inform("Nessun record trovato!", "Ricerca articolo");
        return;
    }
    txtCodiceArticolo.setText(articolo.CodiceMagazzino);
    idArticolo_ = articolo.IDArticolo;
    txtDescrizione.setText(articolo.DescrizionePrincipale);
    cmbUnitaMisura.setText(articolo.UnitaMisura());
    RichiamaPrezzoArticolo(sessione_, articolo.IDArticolo, idListino_, txtPrezzo);
    cmbIva.setListIndex(-1);  // a code that the list lacks is asked for; the one used before is not taken in its place
    if (condizioni_.esente)
        cmbIva.selectByText(testoEsente);
    else
        cmbIva.selectByData(articolo.IDCodiceIva);
    txtQuantita.setText("1");
    txtQuantita.setFocus();
}

void CampiRiga::zoomDescrizione()
{
    auto& zoom = sessione_.schermate().as<frmZoomDescrizione>("frmZoomDescrizione");
    zoom.setControlloChiamante(txtDescrizione);
    zoom.showModal();
}

}  // namespace bravona
