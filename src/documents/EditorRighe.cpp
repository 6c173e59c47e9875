#include "documents/EditorRighe.h"

#include <algorithm>
#include <set>

#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr std::size_t comandoAggiungi = 0;
constexpr std::size_t comandoModifica = 1;
constexpr std::size_t comandoElimina = 2;
constexpr const char* moduloEmissione =
    "frmEmissioneDocumento";  // the editor's home, told by the screens that share it
constexpr std::size_t codiciIvaMassimi = 5;
constexpr const char* troppiCodici =
    "Attenzione! Impossibile aggiungere questo articolo a causa di un numero troppo elevato di codici IVA differenti!";

}  // namespace

EditorRighe::EditorRighe(Sessione& sessione, RegoleRighe regole, Forma forma)
    : campi(sessione, std::move(forma.campi)),
      griglia(std::move(forma.colonne), forma.chiavi),
      totali(sessione, forma.gruppi),
      sessione_(sessione),
      regole_(std::move(regole))
{
    add(campi);
    add("cmdDettagli", cmdDettagli);
    add(griglia);
    add(totali);
    for (int i = 0; i < static_cast<int>(cmdDettagli.size()); ++i)
        cmdDettagli[static_cast<std::size_t>(i)].onClick = [this, i] { comando(i); };
    griglia.lvwDettagli.onDblClick = [this] {
        if (!inModifica() && cmdDettagli[comandoModifica].effectivelyEnabled())
            comando(comandoModifica);
    };
    griglia.lvwDettagli.onKeyDown = [this](KeyEvent& evento) { tastoElenco(evento); };
    campi.versoElenco = [this] {
        if (!righe().empty() && griglia.lvwDettagli.enabled())
            griglia.lvwDettagli.setFocus();
    };
    totali.scontoLasciato = [this] {
        // What is wrong with the totals is mended elsewhere: it is told, and holds nobody here.
        try {
            AggiornaTotali();
        } catch (const Errore& errore) {
            sessione_.desktop().report(errore);
        }
    };
}

Layout EditorRighe::layout()
{
    using namespace layout;
    return column({campi.layout({of(cmdDettagli[0]), of(cmdDettagli[1]), of(cmdDettagli[2])}),
                   grow(of(griglia.lvwDettagli)), totali.layout()});
}

void EditorRighe::inizializza()
{
    campi.inizializza();
    totali.azzera();
}

void EditorRighe::mostra(std::span<const RigaDocumento> righe)
{
    if (inModifica())
        AnnullaDettaglio();
    griglia.mostra(righe);
    AggiornaTotali();
}

std::vector<RigaDocumento> EditorRighe::righeDaRegistrare() const
{
    constexpr std::size_t lettereUnita = 2;
    std::vector<RigaDocumento> daRegistrare = righe();
    for (RigaDocumento& riga : daRegistrare) {
        if (riga.commento())
            riga.CodiceArticolo = trim(riga.CodiceArticolo);
        else if (!regole_.unitaIntere)
            riga.UnitaMisura = left(riga.UnitaMisura, lettereUnita);
    }
    return daRegistrare;
}

void EditorRighe::abilita(bool abilitato)
{
    campi.fraDettagli.setEnabled(abilitato);
    griglia.lvwDettagli.setEnabled(abilitato && !inModifica());
    totali.fraTotali.setEnabled(abilitato);
}

bool EditorRighe::conArticoli() const
{
    return std::ranges::any_of(righe(), &RigaDocumento::conImporto);
}

bool EditorRighe::righeConcluse()
{
    if (!inModifica() && !campi.rigaScritta())
        return true;
    campi.txtCodiceArticolo.setFocus();
    if (!sessione_.desktop().askBeforeLosing("C'è una riga non ancora aggiunta. Proseguire senza?", regole_.titolo))
        return false;
    if (inModifica())
        AnnullaDettaglio();
    return true;
}

void EditorRighe::AggiornaTotali()
{
    totali.aggiorna(righe());
}

void EditorRighe::tastoElenco(KeyEvent& evento)
{
    const std::size_t indice = evento.key == Key::enter ? comandoModifica
                               : evento.key == Key::del ? comandoElimina
                                                        : comandoAggiungi;
    if (indice == comandoAggiungi || !griglia.lvwDettagli.selected() || inModifica() ||
        !cmdDettagli[indice].effectivelyEnabled()) {
        return;
    }
    evento.drop();
    comando(static_cast<int>(indice));
}

void EditorRighe::comando(int indice)
{
    if (regole_.puoComandare && !regole_.puoComandare())
        return;
    switch (static_cast<std::size_t>(indice)) {
    case comandoAggiungi:
        return aggiungi();
    case comandoModifica:
        return inModifica() ? AggiornaDettaglio() : ModificaDettaglio();
    default:
        return inModifica() ? AnnullaDettaglio() : EliminaDettaglio();
    }
}

bool EditorRighe::TroppiCodiciIVA(std::int32_t idCodiceIva) const
{
    std::set<std::int32_t> presenti;
    for (const RigaDocumento& riga : righe()) {
        if (!riga.commento())
            presenti.insert(riga.IDCodiceIva);
    }
    if (presenti.empty() || presenti.contains(idCodiceIva))
        return false;
    const auto diversi = static_cast<std::size_t>(std::ranges::count_if(
        campi.cmbIva.items(), [&](const ListItem& voce) { return presenti.contains(voce.data); }));
    if (diversi < codiciIvaMassimi)
        return false;
    sessione_.desktop().inform(troppiCodici, "CODICE IVA");
    return true;
}

void EditorRighe::aggiungi()
{
    if (regole_.puoAggiungere && !regole_.puoAggiungere())
        return;
    if (campi.RigaSpeciale())
        AggiungiCommento();
    else
        AggiungiDettaglio();
}

void EditorRighe::AggiungiDettaglio()
{
    if (regole_.puoAggiungereArticolo && !regole_.puoAggiungereArticolo()) {
        campi.txtCodiceArticolo.setText({});
        return;
    }
    std::optional<RigaDocumento> nuova = campi.rigaControllata();
    if (!nuova)
        return;
    if (regole_.limiteCodiciIva && TroppiCodiciIVA(nuova->IDCodiceIva)) {
        if (regole_.ripetiAvvisoIva)
            sessione_.desktop().inform(troppiCodici, regole_.titolo);
        return;
    }
    if (rigaPresa)
        rigaPresa(*nuova, nullptr);
    griglia.aggiungi(*nuova, regole_.ritentaChiave);
    campi.nuovaRiga();
    campi.riprendiSconti();
    campi.riprendiListino();
    if (rigaMostrata)
        rigaMostrata(nullptr);
    campi.txtCodiceArticolo.setFocus();
    AggiornaTotali();
}

void EditorRighe::AggiungiCommento()
{
    griglia.aggiungi(campi.leggiCommento(), false);
    campi.txtCodiceArticolo.setText({});
    campi.txtCodiceArticolo.setFocus();
    campi.PulisciCampiRiga();
}

void EditorRighe::ModificaDettaglio()
{
    try {
        const std::size_t posizione = griglia.lvwDettagli.selectedOrFail();
        const RigaDocumento riga = griglia.riga(posizione);
        if (regole_.puoModificare && !regole_.puoModificare(riga))
            return;
        rigaInModifica_ = posizione;
        griglia.lvwDettagli.setEnabled(false);
        cmdDettagli[comandoAggiungi].setEnabled(false);
        cmdDettagli[comandoModifica].setCaption("Aggiorna");
        cmdDettagli[comandoElimina].setCaption("Annulla");
        campi.mostra(riga, regole_.soloImporti && regole_.soloImporti(riga));
        if (rigaMostrata)
            rigaMostrata(&riga);
        if (statoCambiato)
            statoCambiato();
        (riga.commento() ? campi.txtDescrizione : campi.txtQuantita).setFocus();
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante) {
            if (!regole_.nulloDaModificare.empty())
                sessione_.desktop().inform(regole_.nulloDaModificare, regole_.titolo);
        } else {
            MostraErroreStandard(sessione_.desktop(), errore, "Routine: ModificaDettaglio",
                                 std::string("Modulo: ") + moduloEmissione);
        }
    }
}

void EditorRighe::AggiornaDettaglio()
{
    // A comment under a code of old stays one.
    const bool daCommento = campi.idArticolo() == righe::commento;
    if (daCommento && (trim(campi.txtCodiceArticolo.text()).empty() || trim(campi.txtDescrizione.text()).empty())) {
        sessione_.desktop().inform(regole_.commentoIncompleto, regole_.titolo);
        return;
    }
    const bool commento = daCommento || campi.RigaSpeciale();
    std::optional<RigaDocumento> cambiata = daCommento ? campi.leggiCommento() : campi.rigaControllata();
    if (!cambiata)
        return;
    if (commento)
        cambiata = campi.leggiCommento();
    const std::size_t posizione = rigaInModifica_.value();
    const bool eraCommento = griglia.riga(posizione).commento();
    if (rigaPresa)
        rigaPresa(*cambiata, &griglia.riga(posizione));
    griglia.cambia(posizione, *cambiata);
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
    campi.sblocca();
    campi.nuovaRiga();
    cmdDettagli[comandoAggiungi].setEnabled(true);
    cmdDettagli[comandoModifica].setCaption("Modifica");
    cmdDettagli[comandoElimina].setCaption("Elimina");
    griglia.lvwDettagli.setEnabled(true);
    campi.riprendiSconti();
    campi.riprendiListino();
    if (rigaMostrata)
        rigaMostrata(nullptr);
    if (statoCambiato)
        statoCambiato();
    campi.txtCodiceArticolo.setFocus();
}

void EditorRighe::EliminaDettaglio()
{
    try {
        const std::size_t posizione = griglia.lvwDettagli.selectedOrFail();
        if (!sessione_.desktop().askBeforeLosing("Vuoi eliminare la riga selezionata?", regole_.titolo))
            return;
        const bool eraCommento = griglia.riga(posizione).commento();
        griglia.togli(posizione);
        if (!eraCommento)
            AggiornaTotali();
    } catch (const Errore& errore) {
        if (errore.numero() == errori::selezioneMancante) {
            sessione_.desktop().inform(regole_.nulloDaEliminare, regole_.titolo);
        } else {
            MostraErroreStandard(sessione_.desktop(), errore, "Routine: EliminaDettaglio",
                                 "Modulo: " + regole_.moduloEliminazione);
        }
    }
}

}  // namespace bravona
