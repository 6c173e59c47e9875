#include "documents/EditorRighe.h"

#include <algorithm>

#include "documents/frmDettagliIVA.h"
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
constexpr int ricercaPerCodice = 0;  // search keys of the article search
constexpr int ricercaPerDescrizione = 3;
const std::string testoEsente = "E - 0%";  // the VAT code of exempt customers, as the combo shows it

// The text that stays when what is selected is typed over.
std::u32string senzaSelezione(const TextBox& campo)
{
    std::u32string testo = toCodePoints(campo.text());
    testo.erase(std::min(campo.selStart(), testo.size()), campo.selLength());
    return testo;
}

}  // namespace

EditorRighe::EditorRighe(Sessione& sessione, RegoleRighe regole)
    : sessione_(sessione),
      regole_(std::move(regole)),
      calcoli_(*sessione.TabellaIva)
{
    calcoli_.setFormRiferimento(this);
    for (TextBox* campo : {&txtPrezzoScontato, &txtTotaleRiga, &txtNumeroRighe, &txtTotaleImportoRigheDocumento,
                           &txtTotaleImportoImponibile, &txtTotaleImportoIVA, &txtTotaleImportoDocumento}) {
        campo->setLocked(true);
        campo->align = Align::right;
    }
    for (TextBox* campo : {&txtQuantita, &txtPrezzo, &txtScontoGenerale})
        campo->align = Align::right;
    for (TextBox& campo : txtSconto)
        campo.align = Align::right;
    txtDescrizione.grows = true;
    txtTotaleImportoDocumento.style = TextStyle::grand;
    cmbUnitaMisura.width = 5;
    cmbListino.width = 4;
    cmbIva.width = 12;
    cmdDettagliIVA.setToolTip("Dettagli IVA");
    cmdDettagliIVA.setAccessibleName("Dettagli IVA");
    txtDescrizione.setToolTip("F2 o doppio clic: testo intero");
    collegaCampi();
}

void EditorRighe::inizializza()
{
    CaricaComboIva(sessione_, cmbIva);
    if (!cmbIva.items().empty())
        cmbIva.setListIndex(0);
    for (std::size_t listino = 1; listino <= numeroListini; ++listino)
        cmbListino.addItem(std::to_string(listino));
    CaricaUnitaMisura(cmbUnitaMisura);
    lvwDettagli.setColumns(righe::ImpostaColonneRighe());
    txtCodiceArticolo.tag = righe::tagRigaLibera;
    for (TextBox& campo : txtSconto)
        campo.setText("0");
    Sconto = {};
    setIDListino(0);
    const std::string zero = FormattaImporto(Currency{});
    for (TextBox* campo : {&txtTotaleImportoRigheDocumento, &txtTotaleImportoImponibile, &txtTotaleImportoIVA,
                           &txtTotaleImportoDocumento}) {
        campo->setText(zero);
    }
    txtNumeroRighe.setText("0");
    txtScontoGenerale.setText("0");
}

void EditorRighe::registra(const std::function<void(const std::string&, Control&, int)>& aggiungi)
{
    constexpr int semplice = -1;
    const auto uno = [&](const char* nome, Control& controllo) { aggiungi(nome, controllo, semplice); };
    uno("fraDettagli", fraDettagli);
    uno("txtCodiceArticolo", txtCodiceArticolo);
    uno("txtDescrizione", txtDescrizione);
    uno("txtQuantita", txtQuantita);
    uno("cmbListino", cmbListino);
    uno("txtPrezzo", txtPrezzo);
    for (int i = 0; i < 3; ++i)
        aggiungi("txtSconto", txtSconto[static_cast<std::size_t>(i)], i);
    uno("txtPrezzoScontato", txtPrezzoScontato);
    uno("txtTotaleRiga", txtTotaleRiga);
    uno("cmbUnitaMisura", cmbUnitaMisura);
    uno("cmbIva", cmbIva);
    for (int i = 0; i < 3; ++i)
        aggiungi("cmdDettagli", cmdDettagli[static_cast<std::size_t>(i)], i);
    uno("lvwDettagli", lvwDettagli);
    uno("fraTotali", fraTotali);
    uno("txtNumeroRighe", txtNumeroRighe);
    uno("txtTotaleImportoRigheDocumento", txtTotaleImportoRigheDocumento);
    uno("txtScontoGenerale", txtScontoGenerale);
    uno("txtTotaleImportoImponibile", txtTotaleImportoImponibile);
    uno("txtTotaleImportoIVA", txtTotaleImportoIVA);
    uno("txtTotaleImportoDocumento", txtTotaleImportoDocumento);
    uno("cmdDettagliIVA", cmdDettagliIVA);
}

Layout EditorRighe::layout()
{
    using namespace layout;
    const auto campo = [](const char* nome, Control& controllo) { return form({line(nome, of(controllo))}); };
    return column(
        {frame(fraDettagli,
               column({row({campo("Articolo", txtCodiceArticolo), grow(campo("Descrizione", txtDescrizione)),
                            campo("UM", cmbUnitaMisura)}),
                       row({campo("Quantità", txtQuantita), campo("Listino", cmbListino), campo("Prezzo", txtPrezzo),
                            form({line("Sconti %", row({of(txtSconto[0]), of(txtSconto[1]), of(txtSconto[2])}))}),
                            campo("IVA", cmbIva)}),
                       row({campo("Prezzo scontato", txtPrezzoScontato), campo("Totale riga", txtTotaleRiga), stretch(),
                            of(cmdDettagli[0]), of(cmdDettagli[1]), of(cmdDettagli[2])})})),
         grow(of(lvwDettagli)),
         frame(fraTotali,
               row({form({line("N.righe", of(txtNumeroRighe)), line("Sconto", of(txtScontoGenerale))}), stretch(),
                    form({line("Totale importo ", of(txtTotaleImportoRigheDocumento)),
                          line("Imponibile IVA ", of(txtTotaleImportoImponibile))}),
                    form({line("Importo IVA ", row({of(txtTotaleImportoIVA), of(cmdDettagliIVA)})),
                          line("Totale ", of(txtTotaleImportoDocumento))})}))});
}

const std::string& EditorRighe::totaleRiga(std::size_t riga) const
{
    return lvwDettagli.row(riga).cell(righe::totale);
}

const std::string& EditorRighe::codiceIvaRiga(std::size_t riga) const
{
    return lvwDettagli.row(riga).cell(righe::iva);
}

void EditorRighe::collegaCampi()
{
    txtCodiceArticolo.onChange = [this] {
        if (!inRicerca_ && !inCopia_)
            PulisciCampiRiga();
    };
    txtCodiceArticolo.onKeyPress = filtraTasti(inMaiuscolo);
    txtCodiceArticolo.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::f3 || (evento.key == Key::enter && codiceDaCercare())) {
            evento.drop();
            cercaArticolo(perCodice);
        } else if (evento.key == Key::down && lvwDettagli.rowCount() > 0 && lvwDettagli.enabled()) {
            evento.drop();
            lvwDettagli.setFocus();
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
        const auto articolo = static_cast<std::int32_t>(leadingNumber(txtCodiceArticolo.tag));
        if (!inCopia_ && articolo > 0)
            RichiamaPrezzoArticolo(sessione_, articolo, idListino_, txtPrezzo);
    };
    txtPrezzo.onLostFocus = [this] {
        if (txtPrezzo.text().empty())
            txtPrezzo.setText("0,00");
        else if (isNumeric(txtPrezzo.text()))  // what is none is told when the row is added
            txtPrezzo.setText(FormattaImporto(txtPrezzo.text()));
    };
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
    txtScontoGenerale.onKeyPress = filtraTasti(ValidaSconto);
    txtScontoGenerale.onLostFocus = [this] {
        if (!isNumeric(txtScontoGenerale.text()))
            txtScontoGenerale.setText("0");
        // What is wrong with the totals is mended elsewhere: it is told, and holds nobody here.
        riferisci([this] { AggiornaTotali(); });
    };
    for (int i = 0; i < 3; ++i)
        cmdDettagli[static_cast<std::size_t>(i)].onClick = [this, i] { comando(i); };
    lvwDettagli.onDblClick = [this] {
        if (!inModifica() && cmdDettagli[1].effectivelyEnabled())
            comando(1);
    };
    lvwDettagli.onKeyDown = [this](KeyEvent& evento) {
        const int indice = evento.key == Key::enter ? 1 : evento.key == Key::del ? 2 : 0;
        if (indice != 0 && lvwDettagli.selected() && !inModifica() &&
            cmdDettagli[static_cast<std::size_t>(indice)].effectivelyEnabled()) {
            evento.drop();
            comando(indice);
        }
    };
    cmdDettagliIVA.onClick = [this] {
        auto& finestra = sessione_.schermate().as<frmDettagliIVA>("frmDettagliIVA");
        finestra.txtDettagli.setText(calcoli_.riepilogoIva());
        finestra.showModal();
    };
}

void EditorRighe::filtroQuantita(char32_t& tasto) const
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

void EditorRighe::lasciaSconto(std::size_t indice)
{
    TextBox& campo = txtSconto[indice];
    if (!isNumeric(campo.text()))
        campo.setText("0");
    Sconto[indice] = toDouble(campo.text());
    riferisci([this] { calcolaRiga(); });  // a quantity that cannot be read is mended in its own field
}

void EditorRighe::riferisci(const std::function<void()>& calcolo)
{
    try {
        calcolo();
    } catch (const Errore& errore) {
        sessione_.desktop().report(errore);
    }
}

void EditorRighe::calcolaRiga()
{
    if (inCalcolo_)
        return;
    inCalcolo_ = true;
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{inCalcolo_};
    const TotaleRiga totale = CalcolaTotaleRiga(txtQuantita.text(), txtPrezzo.text(), Sconto);
    txtPrezzoScontato.setText(totale.prezzoScontato);
    txtTotaleRiga.setText(totale.totale);
}

void EditorRighe::setIDListino(std::int32_t listino)
{
    idListino_ = listino;
    cmbListino.setListIndex(listino >= 1 && listino <= static_cast<std::int32_t>(numeroListini) ? listino - 1 : -1);
    idListino_ = listino;
}

void EditorRighe::riprendiSconti()
{
    const std::array<std::string, 3> associati =
        regole_.scontiAssociati ? regole_.scontiAssociati() : std::array<std::string, 3>{};
    for (std::size_t i = 0; i < txtSconto.size(); ++i) {
        txtSconto[i].setText(associati[i].empty() ? "0" : associati[i]);
        Sconto[i] = leadingNumber(associati[i]);
    }
    // A row that stands in the fields follows its new discounts.
    if (isNumeric(txtQuantita.text()))
        calcolaRiga();
}

void EditorRighe::PulisciCampiRiga()
{
    for (TextBox* campo : {&txtDescrizione, &txtQuantita, &txtPrezzo, &txtPrezzoScontato})
        campo->setText({});
    cmbUnitaMisura.setText({});
    txtTotaleRiga.setText({});
    cmbIva.setListIndex(-1);
    txtCodiceArticolo.tag = righe::tagRigaLibera;
}

void EditorRighe::AggiornaTotali()
{
    calcoli_.Calcola();
    txtTotaleImportoRigheDocumento.setText(FormattaImporto(calcoli_.TotaleImportoVoci()));
    txtTotaleImportoImponibile.setText(FormattaImporto(calcoli_.TotaleImportoImponibile()));
    txtTotaleImportoIVA.setText(FormattaImporto(calcoli_.TotaleImportoImposta()));
    txtTotaleImportoDocumento.setText(FormattaImporto(calcoli_.TotaleImportoDocumento()));
    txtNumeroRighe.setText(std::to_string(calcoli_.NumeroRigheValide()));
    righeValide_ = calcoli_.NumeroRigheValide();
}

bool EditorRighe::CodiciIvaPresenti()
{
    for (int gruppo = 1; gruppo <= clsCalcoli::numeroGruppi; ++gruppo) {
        const std::string codice = calcoli_.GetCodiceAliquotaIVA(gruppo);
        if (!codice.empty() && sessione_.TabellaIva->GetIDAliquotaIvaFromCodice(codice) == 0) {
            sessione_.desktop().inform("Il codice IVA " + codice + " non è più nella tabella dei codici IVA.\n" +
                                           "Cambiare il codice delle righe che lo usano.",
                                       regole_.titolo);
            return false;
        }
    }
    return true;
}

// A code just typed, with nothing else yet: Enter looks it up instead of running the command.
bool EditorRighe::codiceDaCercare() const
{
    return txtCodiceArticolo.tag == righe::tagRigaLibera && !trim(txtCodiceArticolo.text()).empty() &&
           !txtCodiceArticolo.text().starts_with(righe::codiceTesto) && trim(txtDescrizione.text()).empty();
}

void EditorRighe::cercaArticolo(int modo)
{
    if (modo == perCodice && txtCodiceArticolo.text() == righe::codiceTesto) {
        sessione_.desktop().inform("Impossibile effettuare la ricerca. Verificare il codice inserito!", regole_.titolo);
        return;
    }
    ImpostaArticolo(modo);
}

void EditorRighe::ImpostaArticolo(int modo)
{
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{inRicerca_};
    inRicerca_ = true;
    const std::int32_t id = modo == perCodice
                                ? RicercaArticolo(sessione_, ricercaPerCodice, txtCodiceArticolo.text())
                                : RicercaArticolo(sessione_, ricercaPerDescrizione, txtDescrizione.text());
    if (id == ricerca::annullata)
        return;
    clsArticolo articolo(sessione_);
    if (id == ricerca::nessunRecord || !articolo.RichiamaArticolo(id)) {
        sessione_.desktop().inform("Nessun record trovato!", "Ricerca articolo");
        return;
    }
    txtCodiceArticolo.setText(articolo.CodiceMagazzino);
    txtCodiceArticolo.tag = std::to_string(articolo.IDArticolo);
    txtDescrizione.setText(articolo.DescrizionePrincipale);
    cmbUnitaMisura.setText(articolo.UnitaMisura());
    RichiamaPrezzoArticolo(sessione_, articolo.IDArticolo, idListino_, txtPrezzo);
    cmbIva.setListIndex(-1);  // a code that the list lacks is asked for; the one used before is not taken in its place
    if (regole_.clienteEsente && regole_.clienteEsente())
        cmbIva.selectByText(testoEsente);
    else
        cmbIva.selectByData(articolo.IDCodiceIva);
    txtQuantita.setText("1");
    txtQuantita.setFocus();
}

void EditorRighe::zoomDescrizione()
{
    auto& zoom = sessione_.schermate().as<frmZoomDescrizione>("frmZoomDescrizione");
    zoom.setControlloChiamante(txtDescrizione);
    zoom.showModal();
}

}  // namespace bravona
