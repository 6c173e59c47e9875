#include "warehouse/SchermataMovimento.h"

#include "masterdata/clsCliente.h"
#include "masterdata/modRicercaClientiFornitori.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titoloRighe = "Emissione documento";

RegoleRighe regole(SchermataMovimento& schermata)
{
    RegoleRighe regole;
    regole.titolo = titoloRighe;
    regole.commentoIncompleto = "Attenzione! Mancano alcuni dati.";
    regole.nulloDaModificare = "Nessuna riga da modificare!";
    regole.nulloDaEliminare = "Nulla da eliminare";
    regole.moduloEliminazione = "frmEmissioneDocumento";
    regole.limiteCodiciIva = false;
    regole.puoComandare = [&schermata] {
        if (schermata.IDFornitore > 0)
            return true;
        schermata.desktop().inform("E' necessario indicare prima il fornitore!", titoloRighe);
        schermata.txtFornitore.setFocus();
        return false;
    };
    return regole;
}

}  // namespace

SchermataMovimento::SchermataMovimento(Sessione& sessione, const char* nome, const char* comando, const char* chiusura)
    : Form(sessione.desktop(), nome, "Carico articoli magazzino"),
      righe(sessione, regole(*this),
            {.campi = {.titolo = titoloRighe,
                       .titoloRicerca = "Movimenti di carico",
                       .controllo = RegoleCampi::Controllo::carico},
             .colonne = colonneCarico(),
             .chiavi = ChiaviRighe::carico,
             .gruppi = clsCalcoli::Gruppi::unico}),
      cmdDocumento{Button{comando}, Button{chiusura}},
      sessione_(sessione)
{
    add("fraFornitore", fraFornitore);
    add("txtFornitore", txtFornitore);
    add("txtNumeroDocumento", txtNumeroDocumento);
    add("txtDataDocumento", txtDataDocumento);
    add("txtDataOperazione", txtDataOperazione);
    add("txtProgressivoDocumento", txtProgressivoDocumento);
    add("txtAggiornato", txtAggiornato);
    add(righe);
    add("cmdDocumento", cmdDocumento);

    txtFornitore.onKeyDown = [this](KeyEvent& evento) {
        const bool conferma = evento.key == Key::enter && !(IDFornitore > 0 && txtFornitore.text() == nomeFornitore_);
        if (evento.key == Key::f3 || conferma) {
            evento.drop();
            cercaFornitore();
        }
    };
    txtNumeroDocumento.align = Align::right;
    txtNumeroDocumento.onKeyPress = filtraTasti(ValidaCifre);
    for (TextBox* data : {&txtDataDocumento, &txtDataOperazione}) {
        data->onKeyPress = filtraTasti(ValidaData);
        data->onLostFocus = [data] {
            if (isDate(data->text()))
                data->setText(toDate(data->text()).text());
        };
    }
    txtProgressivoDocumento.setLocked(true);
    txtProgressivoDocumento.align = Align::right;
    txtAggiornato.setLocked(true);
    txtAggiornato.tabStop = false;
    righe.rigaPresa = [](RigaDocumento& nuova, const RigaDocumento* vecchia) {
        nuova.Aggiornato = vecchia == nullptr || vecchia->Aggiornato.empty() ? aggiornato::no : vecchia->Aggiornato;
    };
    righe.rigaMostrata = [this](const RigaDocumento* riga) {
        txtAggiornato.setText(riga == nullptr || riga->Aggiornato.empty() ? aggiornato::no : riga->Aggiornato);
    };
    righe.statoCambiato = [this] { pulsantiPredefiniti(); };
    disponi();
}

void SchermataMovimento::disponi()
{
    using namespace layout;
    setLayout(
        column({frame(fraFornitore,
                      form({line("Fornitore (F3 per la ricerca)", of(txtFornitore)),
                            line("Documento n.", row({of(txtNumeroDocumento), form({line("del", of(txtDataDocumento))}),
                                                      form({line("Operazione del", of(txtDataOperazione))}),
                                                      form({line("Progressivo", of(txtProgressivoDocumento))}),
                                                      form({line("Aggiornato", of(txtAggiornato))}), stretch()}))})),
                grow(righe.layout()), rowEnd({of(cmdDocumento[comandoPrincipale]), of(cmdDocumento[comandoChiudi])})}));
}

void SchermataMovimento::inizializzaCampi()
{
    righe.inizializza();
    for (TextBox* campo : {&righe.totali.txtTotaleImportoRigheDocumento, &righe.totali.txtTotaleImportoImponibile,
                           &righe.totali.txtTotaleImportoIVA, &righe.totali.txtTotaleImportoDocumento}) {
        campo->setText("0,00");
    }
    txtAggiornato.setText(aggiornato::no);
    sessione_.TipoAnagraficaCorrente = "F";
    pulsantiPredefiniti();
}

void SchermataMovimento::cercaFornitore()
{
    sessione_.TipoAnagraficaCorrente = "F";
    const std::int32_t id =
        RicercaClientiFornitori(sessione_, TabellaAnagrafica::clienti, txtFornitore.text(), CampoAnagrafica::nome);
    if (id == ricerca::annullata)
        return;
    clsCliente fornitore(sessione_);
    if (id == ricerca::nessunRecord) {
        desktop().inform("Nessun record trovato!", "Ricerca...");
    } else if (fornitore.RichiamaCliente(id).riferisci(desktop())) {
        IDFornitore = fornitore.IDCliente;
        nomeFornitore_ = fornitore.Cliente;
        txtFornitore.setText(nomeFornitore_);
        txtNumeroDocumento.setFocus();
        return;
    }
    IDFornitore = 0;
    nomeFornitore_.clear();
    txtFornitore.setText({});
    txtFornitore.setFocus();
}

void SchermataMovimento::mostra(const Movimento& movimento)
{
    clsCliente fornitore(sessione_);
    IDFornitore = fornitore.RichiamaCliente(movimento.IDFornitore).riferisci(desktop()) ? movimento.IDFornitore : 0;
    nomeFornitore_ = IDFornitore > 0 ? fornitore.Cliente : std::string();
    txtFornitore.setText(nomeFornitore_);
    txtNumeroDocumento.setText(std::to_string(movimento.NumeroDocumento));
    txtDataDocumento.setText(movimento.DataDocumento.text());
    txtDataOperazione.setText(movimento.DataOperazione.text());
    righe.mostra(movimento.righe);
}

void SchermataMovimento::rifiuta(TextBox& campo)
{
    campo.setFocus();
    desktop().inform("Valore non valido!", titoloMovimenti);
    campo.setFocus();
}

bool SchermataMovimento::nomeConfermato()
{
    if (txtFornitore.text() == nomeFornitore_)
        return true;
    txtFornitore.setFocus();
    desktop().inform("Il nome indicato non è quello del fornitore scelto: premere F3 per cercarlo.", titoloMovimenti);
    txtFornitore.setFocus();
    return false;
}

bool SchermataMovimento::valoriPossibili()
{
    constexpr std::size_t cifreMassime = 9;
    const std::string& numero = txtNumeroDocumento.text();
    if (!isNumeric(numero) || numero.size() > cifreMassime) {
        rifiuta(txtNumeroDocumento);
        return false;
    }
    if (!isDate(txtDataDocumento.text())) {
        rifiuta(txtDataDocumento);
        return false;
    }
    if (!txtDataOperazione.text().empty() && !isDate(txtDataOperazione.text())) {
        rifiuta(txtDataOperazione);
        return false;
    }
    return true;
}

bool SchermataMovimento::controllaDati()
{
    struct Mancanza {
        bool manca;
        const char* testo;
        Control& campo;
    };
    const std::array<Mancanza, 4> mancanze{{
        {IDFornitore <= 0, "Attenzione, non sono stati indicati i dati del fornitore!", txtFornitore},
        {trim(txtNumeroDocumento.text()).empty(), "Attenzione, non è stato indicato il Numero del documento!",
         txtNumeroDocumento},
        {trim(txtDataDocumento.text()).empty(), "Attenzione, non è stato indicato la data del documento!",
         txtDataDocumento},
        {righe.righe().empty(), "Attenzione, non sono e' stato indicato nessun articolo!",
         righe.campi.txtCodiceArticolo},
    }};
    for (const Mancanza& mancanza : mancanze) {
        if (mancanza.manca) {
            desktop().inform(mancanza.testo, titoloMovimenti);
            mancanza.campo.setFocus();
            return false;
        }
    }
    return nomeConfermato() && valoriPossibili() && righe.righeConcluse();
}

Movimento SchermataMovimento::movimentoDaiCampi() const
{
    Movimento movimento;
    movimento.NumeroDocumento = toInt32(txtNumeroDocumento.text());
    movimento.AnnoDocumento = toInt32(sessione_.AnnoRiferimento);
    movimento.DataDocumento = toDate(txtDataDocumento.text());
    movimento.DataOperazione =
        txtDataOperazione.text().empty() ? movimento.DataDocumento : toDate(txtDataOperazione.text());
    movimento.IDFornitore = IDFornitore;
    movimento.righe = righe.righe();
    return movimento;
}

bool SchermataMovimento::toccata() const
{
    return !righe.righe().empty() || righe.campi.rigaScritta() || !txtFornitore.text().empty() ||
           !txtNumeroDocumento.text().empty() || !txtDataDocumento.text().empty() || !txtDataOperazione.text().empty();
}

void SchermataMovimento::abilita(bool abilitato)
{
    fraFornitore.setEnabled(abilitato);
    righe.abilita(abilitato);
}

void SchermataMovimento::pulsantiPredefiniti()
{
    const bool rigaInModifica = righe.inModifica();
    setDefaultButton(righe.campi.fraDettagli.enabled() ? &righe.cmdDettagli[rigaInModifica ? 1 : 0] : nullptr);
    setCancelButton(rigaInModifica ? &righe.cmdDettagli[2] : &cmdDocumento[comandoChiudi]);
}

}  // namespace bravona
