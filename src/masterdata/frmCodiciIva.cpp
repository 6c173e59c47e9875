#include "masterdata/frmCodiciIva.h"

#include "masterdata/clsTabellaCodiciIVA.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* titoloTabella = "Tabella codici IVA";
// One more than these can be added, though the message counts them as the most.
constexpr std::size_t massimoCodici = 15;
}  // namespace

frmCodiciIva::frmCodiciIva(Sessione& sessione)
    : Form(sessione.desktop(), "frmCodiciIva", "Codici IVA"),
      sessione_(sessione)
{
    lvwCodiciIva.setColumns({{.caption = "Codice", .key = {}, .width = 1200},
                             {.caption = "Aliquota %", .key = {}, .width = 1200, .align = Align::right},
                             {.caption = "Descrizione", .key = {}, .width = 4600}});
    lvwCodiciIva.sortable = true;
    lvwCodiciIva.lines = 16;
    lvwCodiciIva.setAccessibleName("Codici IVA");
    lvwCodiciIva.onDblClick = [this] { Modifica(); };
    cmdNuova[0].onClick = [this] { Nuovo(); };
    cmdNuova[1].onClick = [this] { Modifica(); };
    cmdNuova[2].onClick = [this] { Elimina(); };
    for (Button& chiudi : cmdAzioni) {
        chiudi.onClick = [this] { unload(); };
    }

    add("lvwCodiciIva", lvwCodiciIva);
    add("cmdNuova", cmdNuova);
    add("cmdAzioni", cmdAzioni);
    setLayout(
        layout::column({layout::grow(layout::row({layout::grow(layout::of(lvwCodiciIva)),
                                                  layout::column({layout::of(cmdNuova[0]), layout::of(cmdNuova[1]),
                                                                  layout::of(cmdNuova[2]), layout::stretch()})})),
                        layout::rowEnd({layout::of(cmdAzioni[0]), layout::of(cmdAzioni[1])})}));
    setDefaultButton(&cmdAzioni[0]);
    setCancelButton(&cmdAzioni[1]);
}

void frmCodiciIva::onLoad()
{
    CentraFinestra(*this, false);
    TabellaIvaDi(sessione_).VisualizzaTabellaIvaSuListView(lvwCodiciIva);
}

bool frmCodiciIva::chiedi(frmInserimentoCodiceIva& dialogo)
{
    dialogo.showModal();
    if (Annulla) {
        Annulla = false;
        return false;
    }
    return true;
}

std::int32_t frmCodiciIva::idSelezionato() const
{
    const auto riga = lvwCodiciIva.selected();
    return riga ? toInt32(mid(lvwCodiciIva.row(*riga).key, 1)) : 0;
}

void frmCodiciIva::Nuovo()
{
    if (lvwCodiciIva.rowCount() > massimoCodici) {
        desktop().inform("Impossibile aggiungere un nuovo codice IVA. E' possibile inserire fino ad un massimo di 15 "
                         "codici IVA differenti.",
                         titoloTabella);
        return;
    }
    if (!chiedi(sessione_.schermate().as<frmInserimentoCodiceIva>("frmInserimentoCodiceIva"))) {
        return;
    }
    auto& tabella = TabellaIvaDi(sessione_);
    const bool aggiunto = tabella.AddCodiceIVA(NuovoCodice, Currency::fromEuro(NuovaAliquota), Descrizione);
    tabella.VisualizzaTabellaIvaSuListView(lvwCodiciIva);
    if (aggiunto) {
        lvwCodiciIva.select(lvwCodiciIva.rowCount() - 1);
        Annuncia(sessione_, "Codice IVA " + NuovoCodice + " aggiunto");
    }
}

void frmCodiciIva::Modifica()
{
    const std::int32_t id = idSelezionato();
    if (id == 0) {
        return;
    }
    const std::size_t riga = lvwCodiciIva.selectedOrFail();
    auto& tabella = TabellaIvaDi(sessione_);
    auto& dialogo = sessione_.schermate().as<frmInserimentoCodiceIva>("frmInserimentoCodiceIva");
    dialogo.Mostra(tabella.GetCodiceAliquotaIvaFromID(id), tabella.GetValoreAliquotaIvaFromID(id),
                   tabella.GetDescrizioneAliquotaIvaFromID(id));
    if (!chiedi(dialogo)) {
        return;
    }
    if (tabella.SetDescrizioneAliquotaIVA(id, Descrizione)) {
        Annuncia(sessione_, "Descrizione del codice IVA " + NuovoCodice + " modificata");
    }
    // Also after a refusal: the row tells the archive's text again when the screen is opened anew.
    lvwCodiciIva.setCell(riga, 2, Descrizione);
}

void frmCodiciIva::Elimina()
{
    const std::int32_t id = idSelezionato();
    if (id == 0 || !desktop().askBeforeLosing("Eliminare il codice IVA selezionato?", titoloTabella)) {
        return;
    }
    auto& tabella = TabellaIvaDi(sessione_);
    if (tabella.RemoveAliquotaIVA(id)) {
        Annuncia(sessione_, "Codice IVA eliminato");
        tabella.VisualizzaTabellaIvaSuListView(lvwCodiciIva);
    }
}

}  // namespace bravona
