#include <set>

#include "documents/EditorRighe.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

// Adding, changing and removing rows: the three commands under the entry fields.

namespace {

constexpr const char* rigaModulo = "Modulo: frmEmissioneDocumento";
constexpr int codiciIvaMassimi = 5;

}  // namespace

void EditorRighe::comando(int indice)
{
    if (indice == 0) {
        aggiungi();
    } else if (indice == 1) {
        if (inModifica())
            AggiornaDettaglio();
        else
            ModificaDettaglio();
    } else {
        if (inModifica())
            AnnullaDettaglio();
        else
            EliminaDettaglio();
    }
}

void EditorRighe::avverti(const std::string& testo, Control& campo)
{
    sessione_.desktop().inform(testo, regole_.titolo);
    campo.setFocus();
}

bool EditorRighe::ControllaRiga()
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
    if (trim(txtPrezzo.text()).empty())
        txtPrezzo.setText("0");
    if (!isNumeric(trim(txtPrezzo.text()))) {
        avverti("Attenzione! Prezzo articolo errato!", txtPrezzo);
        return false;
    }
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

bool EditorRighe::RigaSpeciale() const
{
    const std::string codiceRiga = upper(txtCodiceArticolo.text());
    const bool speciale = codiceRiga == righe::codiceTesto || codiceRiga == righe::codiceSoloFattura ||
                          codiceRiga == righe::codiceSoloDDT;
    return speciale && !trim(txtDescrizione.text()).empty();
}

bool EditorRighe::TroppiCodiciIVA(std::int32_t idCodiceIva) const
{
    std::set<std::int32_t> presenti;
    for (std::size_t i = 0; i < lvwDettagli.rowCount(); ++i) {
        const std::string& tag = righe::sub(lvwDettagli.row(i), righe::iva).tag;
        if (!tag.empty())
            presenti.insert(static_cast<std::int32_t>(leadingNumber(tag)));
    }
    if (presenti.empty() || presenti.contains(idCodiceIva))
        return false;
    int diversi = 0;
    for (const ListItem& voce : cmbIva.items())
        diversi += presenti.contains(voce.data) ? 1 : 0;
    if (diversi < codiciIvaMassimi)
        return false;
    sessione_.desktop().inform("Attenzione! Impossibile aggiungere questo articolo a causa di un numero troppo elevato "
                               "di codici IVA differenti!",
                               "CODICE IVA");
    return true;
}

ListRow EditorRighe::rigaDaiCampi(std::string chiave) const
{
    ListRow riga;
    riga.key = std::move(chiave);
    riga.text = txtCodiceArticolo.text();
    riga.tag = txtCodiceArticolo.tag;
    riga.sub.resize(righe::colonne - 1);
    const auto cella = [&riga](std::size_t colonna) -> SubItem& { return riga.sub[colonna - 1]; };
    cella(righe::descrizione) = {txtDescrizione.text(), cmbUnitaMisura.text()};
    cella(righe::quantita).text = txtQuantita.text();
    cella(righe::listino).text = cmbListino.text();
    cella(righe::prezzo).text = txtPrezzo.text().empty() ? "0" : txtPrezzo.text();
    cella(righe::sconto1).text = numberText(Sconto[0]);
    cella(righe::sconto2).text = numberText(Sconto[1]);
    cella(righe::sconto3).text = numberText(Sconto[2]);
    cella(righe::totale).text = txtTotaleRiga.text();
    cella(righe::iva) = {left(cmbIva.text(), 1), std::to_string(cmbIva.itemData())};
    return riga;
}

void EditorRighe::aggiungiRiga(const char* lettera, const std::function<ListRow(std::string)>& riga)
{
    std::size_t posizione = 0;
    for (;;) {
        try {
            posizione = lvwDettagli.add(riga(NuovaChiaveRiga() + lettera));
            break;
        } catch (const Errore& errore) {
            if (errore.numero() != errori::chiaveGiaInElenco || !regole_.ritentaChiave)
                throw;
        }
    }
    lvwDettagli.ensureVisible(posizione);
    lvwDettagli.select(posizione);
}

void EditorRighe::aggiungi()
{
    if (regole_.puoAggiungere && !regole_.puoAggiungere())
        return;
    if (RigaSpeciale())
        AggiungiCommento();
    else
        AggiungiDettaglio();
}

void EditorRighe::AggiungiDettaglio()
{
    if (regole_.puoAggiungereArticolo && !regole_.puoAggiungereArticolo()) {
        txtCodiceArticolo.setText({});
        return;
    }
    if (!ControllaRiga())
        return;
    if (TroppiCodiciIVA(cmbIva.itemData())) {
        if (regole_.ripetiAvvisoIva) {
            sessione_.desktop().inform(
                "Attenzione! Impossibile aggiungere questo articolo a causa di un numero troppo elevato di "
                "codici IVA differenti!",
                regole_.titolo);
        }
        return;
    }
    aggiungiRiga("r", [this](std::string chiave) { return rigaDaiCampi(std::move(chiave)); });
    txtCodiceArticolo.setText({});
    PulisciCampiRiga();
    riprendiSconti();
    setIDListino(IDListinoOriginale);
    txtCodiceArticolo.setFocus();
    AggiornaTotali();
}

void EditorRighe::AggiungiCommento()
{
    aggiungiRiga("c", [this](std::string chiave) {
        return righe::rigaCommento(std::move(chiave), upper(txtCodiceArticolo.text()), txtDescrizione.text());
    });
    txtCodiceArticolo.setText({});
    txtCodiceArticolo.tag = righe::tagRigaLibera;
    txtCodiceArticolo.setFocus();
    PulisciCampiRiga();
}

void EditorRighe::ModificaDettaglio()
{
    try {
        const std::size_t posizione = lvwDettagli.selectedOrFail();
        const ListRow& riga = lvwDettagli.row(posizione);
        if (regole_.puoModificare && !regole_.puoModificare(riga))
            return;
        rigaInModifica_ = posizione;
        lvwDettagli.setEnabled(false);
        cmdDettagli[0].setEnabled(false);
        cmdDettagli[1].setCaption("Aggiorna");
        cmdDettagli[2].setCaption("Annulla");
        copiaNeiCampi(riga);
        calcolaRiga();
        if (statoCambiato)
            statoCambiato();
        if (righe::commento(riga))
            txtDescrizione.setFocus();
        else
            txtQuantita.setFocus();
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante) {
            if (!regole_.nulloDaModificare.empty())
                sessione_.desktop().inform(regole_.nulloDaModificare, regole_.titolo);
        } else {
            MostraErroreStandard(sessione_.desktop(), errore, "Routine: ModificaDettaglio", rigaModulo);
        }
    }
}

void EditorRighe::copiaNeiCampi(const ListRow& riga)
{
    struct Fine {
        bool& flag;
        ~Fine() { flag = false; }
    } fine{inCopia_};
    inCopia_ = true;
    txtCodiceArticolo.setText(riga.text);
    txtCodiceArticolo.tag = riga.tag;
    txtDescrizione.setText(righe::testo(riga, righe::descrizione));
    if (righe::commento(riga) && riga.text.starts_with(righe::codiceTesto)) {
        txtCodiceArticolo.setEnabled(false);
        return;
    }
    const bool soloImporti = regole_.soloImporti && regole_.soloImporti(riga);
    txtCodiceArticolo.setEnabled(!soloImporti);
    txtDescrizione.setEnabled(!soloImporti);
    cmbUnitaMisura.setText(righe::sub(riga, righe::descrizione).tag);
    txtQuantita.setText(righe::testo(riga, righe::quantita));
    setIDListino(static_cast<std::int32_t>(leadingNumber(righe::testo(riga, righe::listino))));
    txtPrezzo.setText(righe::testo(riga, righe::prezzo));
    for (std::size_t i = 0; i < txtSconto.size(); ++i) {
        txtSconto[i].setText(righe::testo(riga, righe::sconto1 + i));
        Sconto[i] = leadingNumber(txtSconto[i].text());
    }
    const std::string& iva = righe::sub(riga, righe::iva).tag;
    if (!cmbIva.selectByData(static_cast<std::int32_t>(leadingNumber(iva))))
        cmbIva.setListIndex(-1);
}

void EditorRighe::AggiornaDettaglio()
{
    if (txtCodiceArticolo.tag == righe::tagCommento) {
        if (trim(txtCodiceArticolo.text()).empty() || trim(txtDescrizione.text()).empty()) {
            sessione_.desktop().inform(regole_.commentoIncompleto, regole_.titolo);
            return;
        }
    } else if (!ControllaRiga()) {
        return;
    }
    const std::size_t posizione = rigaInModifica_.value();
    const std::string chiave = lvwDettagli.row(posizione).key;
    const bool eraCommento = righe::commento(lvwDettagli.row(posizione));
    const bool commento = RigaSpeciale();
    lvwDettagli.setRow(posizione,
                       commento ? righe::rigaCommento(chiave, upper(txtCodiceArticolo.text()), txtDescrizione.text())
                                : rigaDaiCampi(chiave));
    lvwDettagli.ensureVisible(posizione);
    lvwDettagli.select(posizione);
    comandiNormali();
    if (!eraCommento || !commento)
        AggiornaTotali();
}

void EditorRighe::AnnullaDettaglio()
{
    comandiNormali();
}

void EditorRighe::comandiNormali()
{
    rigaInModifica_.reset();
    txtCodiceArticolo.setEnabled(true);
    txtDescrizione.setEnabled(true);
    txtCodiceArticolo.setText({});
    PulisciCampiRiga();
    cmdDettagli[0].setEnabled(true);
    cmdDettagli[1].setCaption("Modifica");
    cmdDettagli[2].setCaption("Elimina");
    lvwDettagli.setEnabled(true);
    riprendiSconti();
    setIDListino(IDListinoOriginale);
    if (statoCambiato)
        statoCambiato();
    txtCodiceArticolo.setFocus();
}

void EditorRighe::EliminaDettaglio()
{
    try {
        const std::size_t posizione = lvwDettagli.selectedOrFail();
        if (!sessione_.desktop().ask("Vuoi eliminare la riga selezionata?", regole_.titolo))
            return;
        const bool eraCommento = righe::commento(lvwDettagli.row(posizione));
        lvwDettagli.remove(posizione);
        if (lvwDettagli.rowCount() > 0) {
            lvwDettagli.select(lvwDettagli.rowCount() - 1);
            lvwDettagli.ensureVisible(lvwDettagli.rowCount() - 1);
        }
        if (!eraCommento)
            AggiornaTotali();
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante)
            sessione_.desktop().inform(regole_.nulloDaEliminare, regole_.titolo);
        else
            MostraErroreStandard(sessione_.desktop(), errore, "Routine: EliminaDettaglio", rigaModulo);
    }
}

}  // namespace bravona
