#include "documents/SchermataDocumento.h"

#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

SchermataDocumento::SchermataDocumento(Sessione& sessione, const Nomi& nomi, RegoleRighe regole)
    : Form(sessione.desktop(), nomi.schermata, nomi.titolo),
      schede(nomi.pagine),
      righe(sessione, std::move(regole), {.campi = {.titolo = nomi.titolo, .titoloRicerca = nomi.titolo}}),
      cliente(sessione, nomi.titolo, nomi.chiamante),
      cmdDocumento{Button{nomi.comandi[0]}, Button{nomi.comandi[1]}, Button{nomi.comandi[2]}},
      sessione_(sessione),
      titolo_(nomi.titolo)
{
    add(nomi.schede, schede);
    add(cliente);
    add(intestazione);
    add(righe);
    add(trasporto);
    add("cmdDocumento", cmdDocumento);
    intestazione.dtpDataDocumento.onRefused = [this] {
        desktop().inform("Valore non valido!", titolo_);
        intestazione.dtpDataDocumento.setFocus();
    };
    intestazione.dtpDataDocumento.onChange = [this] { avvisaData(); };
    cliente.clienteScelto = [this](const ClienteDelDocumento& scelto) { clienteCambiato(scelto); };
    righe.statoCambiato = [this] { pulsantiPredefiniti(); };
    schede.onChange = [this](int) { cambiaScheda(); };
}

void SchermataDocumento::clienteCambiato(const ClienteDelDocumento& scelto)
{
    const bool esente = scelto.condizioni.esente;
    righe.campi.setCondizioni(scelto.condizioni);
    intestazione.txtEsenzioneIVA.setText(scelto.esenzione);
    intestazione.lblEsenteIva.setCaption(esente ? "ESENTE I.V.A." : "");
    if (scelto.conNote)
        trasporto.txtNoteGeneriche.setText(scelto.note);
    if (cliente.IDCliente > 0 && esente != esenteDelleRighe_) {
        if (righe.conArticoli()) {
            desktop().inform("Le righe già inserite conservano l'IVA del cliente precedente: verificarle.", titolo_);
        }
        esenteDelleRighe_ = esente;
    }
}

// The year of a document is that of the session, whatever its date.
void SchermataDocumento::avvisaData()
{
    const int anno = intestazione.dtpDataDocumento.date().year();
    intestazione.lblAvvisoData.setCaption(std::to_string(anno) == sessione_.AnnoRiferimento
                                              ? std::string()
                                              : "Data fuori dall'anno aperto (" + sessione_.AnnoRiferimento + ")");
}

void SchermataDocumento::setPagine(std::vector<PaginaDocumento> pagine, int paginaRighe)
{
    pagine_ = std::move(pagine);
    paginaRighe_ = paginaRighe;
}

Layout SchermataDocumento::disposizioneComandi()
{
    return layout::rowEnd({layout::of(cmdDocumento[comandoPrincipale]), layout::of(cmdDocumento[comandoChiudi]),
                           layout::of(cmdDocumento[comandoStampa])});
}

void SchermataDocumento::inizializzaCampi()
{
    righe.inizializza();
    trasporto.inizializza();
    CaricaComboRegistri(sessione_, intestazione.cmbRegistro);
}

void SchermataDocumento::setModo(ModoDocumento modo)
{
    modo_ = modo;
    pulsantiPredefiniti();
}

void SchermataDocumento::AbilitaSchede()
{
    if (!modificabile())
        return;
    const auto aperta = static_cast<std::size_t>(schede.tab());
    if (aperta >= pagine_.size() || !pagine_[aperta].abilita)
        return;
    for (std::size_t i = 0; i < pagine_.size(); ++i) {
        if (pagine_[i].abilita)
            pagine_[i].abilita(i == aperta);
    }
    if (pagine_[aperta].fuoco != nullptr)
        pagine_[aperta].fuoco->setFocus();
}

void SchermataDocumento::disabilitaTutto()
{
    for (const PaginaDocumento& pagina : pagine_) {
        if (pagina.abilita)
            pagina.abilita(false);
    }
}

void SchermataDocumento::cambiaScheda()
{
    AbilitaSchede();
    pulsantiPredefiniti();
}

void SchermataDocumento::pulsantiPredefiniti()
{
    Button* predefinito = nullptr;
    Button* abbandono = &cmdDocumento[comandoChiudi];
    if (modificabile() && schede.tab() == paginaRighe_) {
        predefinito = &righe.cmdDettagli[righe.inModifica() ? 1 : 0];
        if (righe.inModifica())
            abbandono = &righe.cmdDettagli[2];
    }
    setDefaultButton(predefinito);
    setCancelButton(abbandono);
}

TestataDocumento SchermataDocumento::testataDaiCampi() const
{
    TestataDocumento testata;
    testata.AnnoDocumento = toInt32(sessione_.AnnoRiferimento);
    testata.DataDocumento = intestazione.dtpDataDocumento.date();
    testata.IDCliente = cliente.IDCliente;
    testata.IDDestinazione = cliente.IDDestinazione;
    testata.ModalitaPagamento = cliente.ModalitaPagamento1;
    testata.IDmodalitaPagamento = cliente.ModalitaPagamentoCod1;
    testata.Trasporto = trasporto.leggi();
    testata.Sconto = righe.totali.sconto();
    righe.totali.calcoli().riporta(testata);
    testata.NoteGeneriche = trasporto.txtNoteGeneriche.text();
    testata.NoteEsenzioneIVA = intestazione.txtEsenzioneIVA.text();
    return testata;
}

bool SchermataDocumento::nienteInSospeso()
{
    return cliente.nomeConfermato() && righe.righeConcluse();
}

bool SchermataDocumento::inUnaTransazione(const std::function<void()>& scritture, const char* routine,
                                          const char* modulo)
{
    return InUnaTransazione(sessione_, scritture, routine, modulo);
}

void SchermataDocumento::RiceviDestinazione(std::int32_t idDestinazione, const std::string& destinazione)
{
    cliente.impostaDestinazione(idDestinazione, destinazione);
}

}  // namespace bravona
