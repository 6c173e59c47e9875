#include "masterdata/SchedaCliente.h"

#include <utility>

#include "masterdata/modPagamenti.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr int numeroListini = 10;
constexpr Colour coloreObbligatorio = rgb(178, 34, 34);

// Which box holds which text of a party.
constexpr std::array<std::pair<std::size_t, std::string clsCliente::*>, 15> testi{{{0, &clsCliente::Cliente},
                                                                                   {1, &clsCliente::ClienteSecondaRiga},
                                                                                   {2, &clsCliente::Indirizzo},
                                                                                   {3, &clsCliente::Citta},
                                                                                   {4, &clsCliente::Provincia},
                                                                                   {5, &clsCliente::Cap},
                                                                                   {6, &clsCliente::Telefono},
                                                                                   {7, &clsCliente::TelefonoCellulare},
                                                                                   {8, &clsCliente::Fax},
                                                                                   {9, &clsCliente::PostaElettronica},
                                                                                   {10, &clsCliente::Banca},
                                                                                   {11, &clsCliente::ABI},
                                                                                   {12, &clsCliente::CAB},
                                                                                   {13, &clsCliente::PartitaIva},
                                                                                   {14, &clsCliente::CodiceFiscale}}};

constexpr std::array sconti{&clsCliente::ScontoMaggiorazione1, &clsCliente::ScontoMaggiorazione2,
                            &clsCliente::ScontoMaggiorazione3};

}  // namespace

SchedaCliente::SchedaCliente(Sessione& sessione, const char* nome, const char* titolo, RegoleDestinazioni regole,
                             std::array<const char*, 3> comandi)
    : Form(sessione.desktop(), nome, titolo),
      destinazioni(std::move(regole)),
      cmdCliente{Button{comandi[0]}, Button{comandi[1]}, Button{comandi[2]}},
      sessione_(sessione)
{
    using namespace anagrafica;
    for (const std::size_t lungo : {0U, 1U, 2U, 9U, 10U}) {
        txtAnagrafica[lungo].grows = true;
    }
    txtAnagrafica[provincia].onKeyPress = filtraTasti(inMaiuscolo);
    txtAnagrafica[cap].onKeyPress = filtraTasti(ValidaCifre);
    txtAnagrafica[partitaIva].onKeyPress = filtraTasti(ValidaCifre);
    for (std::size_t i = 0; i < sconti.size(); ++i) {
        TextBox& casella = txtAnagrafica[primoSconto + i];
        casella.onKeyPress = filtraTasti(ValidaSconto);
        casella.align = Align::right;
        casella.setAccessibleName("Sconto " + std::to_string(i + 1));
    }
    for (Label* obbligatorio : {&lblCliente_, &lblIndirizzo_, &lblCitta_, &lblObbligatori_}) {
        obbligatorio->mark = coloreObbligatorio;
    }
    txtAnagrafica[anagrafica::cliente].setAccessibleName("Ragione sociale, obbligatoria");
    txtAnagrafica[anagrafica::indirizzo].setAccessibleName("Indirizzo, obbligatorio");
    txtAnagrafica[anagrafica::citta].setAccessibleName("Città, obbligatoria");
    txtAnagrafica[1].setAccessibleName("Ragione sociale, seconda riga");
    Option1.onClick = [this] { sessione_.TipoAnagraficaCorrente = "C"; };
    Option2.onClick = [this] { sessione_.TipoAnagraficaCorrente = "F"; };
    for (int listino = 1; listino <= numeroListini; ++listino) {
        Combo1.addItem(std::to_string(listino), listino);
    }
    Combo1.width = 5;
    List1.lines = 4;
    for (const char* dicitura :
         {"Esente I.V.A. ART. 8/1A", "Esente I.V.A. ART. 41 D.L. 513/92", "Esente I.V.A. ART. 8/C D.P.R. 633/72"}) {
        cmbDescrizioneEsenzioneIVA.addItem(dicitura);
    }
    cmbDescrizioneEsenzioneIVA.grows = true;
    txtEstremiEsenzioneIVA.grows = true;
    abilitaEsenzione();
    chkEsenteIva.onClick = [this] { abilitaEsenzione(); };
    txtNoteGeneriche.multiLine = true;
    txtNoteGeneriche.lines = 4;
    SSTab1.onChange = [this](int) { cambiaPagina(); };
    setCancelButton(&cmdCliente[1]);
}

void SchedaCliente::aggiungiControlli()
{
    add("SSTab1", SSTab1);
    for (std::size_t i = 0; i < txtAnagrafica.size(); ++i) {
        if (i != anagrafica::primoSconto - 1) {
            add("txtAnagrafica", txtAnagrafica[i], static_cast<int>(i));
        }
    }
    add("txtStato", txtStato);
    add("Option1", Option1);
    add("Option2", Option2);
    add("List1", List1);
    add("Combo1", Combo1);
    add("chkEsenteIva", chkEsenteIva);
    add("cmbDescrizioneEsenzioneIVA", cmbDescrizioneEsenzioneIVA);
    add("txtEstremiEsenzioneIVA", txtEstremiEsenzioneIVA);
    add("txtNoteGeneriche", txtNoteGeneriche);
    add("chkVisualizzaNoteSuDocumenti", chkVisualizzaNoteSuDocumenti);
    destinazioni.registra(
        [this](const std::string& nome, Control& controllo, int indice) { add(nome, controllo, indice); });
    add("cmdCliente", cmdCliente);
    add("lblCliente", lblCliente_);
    add("lblIndirizzo", lblIndirizzo_);
    add("lblCitta", lblCitta_);
    add("lblObbligatori", lblObbligatori_);
}

Layout SchedaCliente::pagine(std::vector<Layout> accantoIndirizzo, std::vector<Layout> accantoPagamenti)
{
    return layout::grow(layout::tabs(SSTab1, {paginaAnagrafica(std::move(accantoIndirizzo)),
                                              paginaCondizioni(std::move(accantoPagamenti)), destinazioni.layout()}));
}

Layout SchedaCliente::comandi()
{
    return layout::rowEnd({layout::of(cmdCliente[0]), layout::of(cmdCliente[1]), layout::of(cmdCliente[2])});
}

Layout SchedaCliente::paginaAnagrafica(std::vector<Layout> accantoIndirizzo)
{
    using namespace layout;
    auto& campo = txtAnagrafica;
    std::vector<Layout> luogo{of(campo[3]), form({line("Pr&ov.", of(campo[4]))}), form({line("Ca&p", of(campo[5]))})};
    for (Layout& accanto : accantoIndirizzo) {
        luogo.push_back(std::move(accanto));
    }
    luogo.push_back(stretch());
    return column(
        {form({line(lblCliente_, of(campo[0])), line("", of(campo[1])), line(lblIndirizzo_, of(campo[2])),
               line(lblCitta_, row(std::move(luogo))), line("&Stato", row({of(txtStato), stretch()})),
               line("Te&lefono", row({of(campo[6]), form({line("Cell&ulare", of(campo[7]))}),
                                      form({line("Fa&x", of(campo[8]))}), stretch()})),
               line("&E-mail", of(campo[9])),
               line("Partita I.&V.A.", row({of(campo[13]), form({line("Cod. &fiscale", of(campo[14]))}), stretch()})),
               line("Tipo", row({of(Option1), of(Option2), stretch()}))}),
         row({of(lblObbligatori_), stretch()})});
}

Layout SchedaCliente::paginaCondizioni(std::vector<Layout> accantoPagamenti)
{
    using namespace layout;
    auto& campo = txtAnagrafica;
    std::vector<Layout> righe{line("Banca", of(campo[10])),
                              line("AB&I", row({of(campo[11]), form({line("CAB", of(campo[12]))}), stretch()}))};
    for (Layout& riga : accantoPagamenti) {
        righe.push_back(std::move(riga));
    }
    righe.push_back(line(
        "Listin&o",
        row({of(Combo1), form({line("&Sconti %", row({of(campo[16]), of(campo[17]), of(campo[18])}))}), stretch()})));
    righe.push_back(line("", of(chkEsenteIva)));
    righe.push_back(line("Descri&zione", of(cmbDescrizioneEsenzioneIVA)));
    righe.push_back(line("Estre&mi", of(txtEstremiEsenzioneIVA)));
    righe.push_back(line("No&te", of(txtNoteGeneriche)));
    righe.push_back(line("", of(chkVisualizzaNoteSuDocumenti)));
    return form(std::move(righe));
}

void SchedaCliente::onLoad()
{
    CentraFinestra(*this, false);
    CaricaListaPagamenti(sessione_, List1);
    sessione_.TipoAnagraficaCorrente = "C";
    Option1.choose();
    cambiaPagina();
    ricordaContenuto();
}

std::string SchedaCliente::subject() const
{
    return anagrafica::titolo;
}

void SchedaCliente::onActivate()
{
    const bool intatto = !hasUnsavedWork();
    rileggiPagamenti();
    if (intatto) {
        ricordaContenuto();
    }
}

void SchedaCliente::rileggiPagamenti()
{
    const bool scelto = List1.listIndex() >= 0;
    const std::int32_t pagamento = scelto ? List1.itemData() : 0;
    List1.clear();
    CaricaListaPagamenti(sessione_, List1);
    if (scelto) {
        List1.selectByData(pagamento);
    }
}

bool SchedaCliente::proseguiSenzaDestinazione()
{
    TextBox* battuta = destinazioni.battuta();
    if (battuta == nullptr ||
        desktop().askBeforeLosing("C'è una destinazione non ancora aggiunta. Proseguire senza?", anagrafica::titolo)) {
        return true;
    }
    fuocoSu(*battuta, anagrafica::paginaDestinazioni);
    return false;
}

void SchedaCliente::cambiaPagina()
{
    setDefaultButton(SSTab1.tab() == anagrafica::paginaDestinazioni ? &destinazioni.cmdDestinazioni[0]
                                                                    : &cmdCliente[0]);
    fuocoSuPagina();
}

void SchedaCliente::fuocoSuPagina()
{
    switch (SSTab1.tab()) {
    case anagrafica::paginaIndirizzo:
        txtAnagrafica[anagrafica::cliente].setFocus();
        break;
    case anagrafica::paginaCondizioni:
        txtAnagrafica[anagrafica::banca].setFocus();
        break;
    default:
        destinazioni.txtDestinazioni.front().setFocus();
    }
}

void SchedaCliente::fuocoSu(TextBox& campo, int pagina)
{
    SSTab1.setTab(pagina);
    campo.setFocus();
}

void SchedaCliente::abilitaEsenzione()
{
    cmbDescrizioneEsenzioneIVA.setEnabled(chkEsenteIva.checked());
    txtEstremiEsenzioneIVA.setEnabled(chkEsenteIva.checked());
    cmbDescrizioneEsenzioneIVA.setText({});
    txtEstremiEsenzioneIVA.setText({});
}

bool SchedaCliente::controllaDatiEssenziali()
{
    for (const std::size_t richiesto : {anagrafica::cliente, anagrafica::indirizzo, anagrafica::citta}) {
        if (trim(txtAnagrafica[richiesto].text()).empty()) {
            desktop().inform("Attenzione. Mancano alcuni dati essenziali!", anagrafica::titolo);
            fuocoSu(txtAnagrafica[richiesto], anagrafica::paginaIndirizzo);
            return false;
        }
    }
    return true;
}

bool SchedaCliente::leggi(clsCliente& cliente)
{
    for (std::size_t i = 0; i < sconti.size(); ++i) {
        TextBox& casella = txtAnagrafica[anagrafica::primoSconto + i];
        try {
            cliente.*sconti[i] = Value(leadingNumber(casella.text())).toLong();
        } catch (const Errore&) {
            SSTab1.setTab(anagrafica::paginaCondizioni);
            MostraValoreNonValido(casella);
            return false;
        }
    }
    for (const auto& [indice, membro] : testi) {
        cliente.*membro = txtAnagrafica[indice].text();
    }
    cliente.Stato = txtStato.text();
    cliente.Tipo = tipoScelto();
    if (Combo1.listIndex() >= 0) {
        cliente.IDListino = Combo1.itemData();
    }
    if (List1.listIndex() >= 0) {
        cliente.IDpagamento = List1.itemData();
    }
    cliente.EsenteIva = chkEsenteIva.checked();
    cliente.DescrizioneEsenzioneIVA = cmbDescrizioneEsenzioneIVA.text();
    cliente.EstremiEsenzioneIVA = txtEstremiEsenzioneIVA.text();
    cliente.NoteGeneriche = txtNoteGeneriche.text();
    cliente.VisualizzaNoteSuDocumenti = chkVisualizzaNoteSuDocumenti.checked();
    return true;
}

void SchedaCliente::mostra(const clsCliente& cliente)
{
    for (const auto& [indice, membro] : testi) {
        txtAnagrafica[indice].setText(cliente.*membro);
    }
    for (std::size_t i = 0; i < sconti.size(); ++i) {
        txtAnagrafica[anagrafica::primoSconto + i].setText(std::to_string(cliente.*sconti[i]));
    }
    txtStato.setText(cliente.Stato);
    (cliente.Tipo == "F" ? Option2 : Option1).choose();
    Combo1.setText(cliente.IDListino == 0 ? std::string() : std::to_string(cliente.IDListino));
    chkEsenteIva.setChecked(cliente.EsenteIva);
    cmbDescrizioneEsenzioneIVA.setText(cliente.DescrizioneEsenzioneIVA);
    txtEstremiEsenzioneIVA.setText(cliente.EstremiEsenzioneIVA);
    txtNoteGeneriche.setText(cliente.NoteGeneriche);
    chkVisualizzaNoteSuDocumenti.setChecked(cliente.VisualizzaNoteSuDocumenti);
}

void SchedaCliente::pulisci()
{
    AzzeraCampi(*this);
    destinazioni.lvwDestinazioni.clear();
}

}  // namespace bravona
