#include "masterdata/frmSelezioneDestinazione.h"

#include <map>

#include "masterdata/RiceveDestinazione.h"
#include "masterdata/modDestinazioni.h"
#include "session/modMain.h"

namespace bravona {

namespace {

const std::map<std::string, const char*>& schermateChiamanti()
{
    static const std::map<std::string, const char*> schermate{{"EmissioneFatture", "frmEmissioneDocumento"},
                                                              {"EmissioneDocumenti", "frmEmissioneDocumento"},
                                                              {"ModificaFatture", "frmModificaFattura"},
                                                              {"ModificaBolle", "frmModificaDDT"}};
    return schermate;
}

}  // namespace

frmSelezioneDestinazione::frmSelezioneDestinazione(Sessione& sessione)
    : Form(sessione.desktop(), "frmSelezioneDestinazione", "Destinazione merce"),
      sessione_(sessione)
{
    ImpostaColonneDestinazioni(lvwDestinazioni);
    lvwDestinazioni.sortable = true;
    lvwDestinazioni.setAccessibleName("Destinazioni della merce");
    lvwDestinazioni.onDblClick = [this] { VisualizzaDestinazione(); };
    cmdAzioni[0].onClick = [this] { VisualizzaDestinazione(); };
    cmdAzioni[1].onClick = [this] { unload(); };

    add("lvwDestinazioni", lvwDestinazioni);
    add("cmdAzioni", cmdAzioni);
    setLayout(layout::column({layout::grow(layout::of(lvwDestinazioni)),
                              layout::rowEnd({layout::of(cmdAzioni[0]), layout::of(cmdAzioni[1])})}));
    setDefaultButton(&cmdAzioni[0]);
    setCancelButton(&cmdAzioni[1]);
}

void frmSelezioneDestinazione::onLoad()
{
    CentraFinestra(*this, false);
    CaricaElencoDestinazioni(sessione_, lvwDestinazioni, IDCliente);
    if (lvwDestinazioni.rowCount() > 0) {
        lvwDestinazioni.select(0);  // so that Enter takes it
    }
}

void frmSelezioneDestinazione::VisualizzaDestinazione()
{
    const auto riga = lvwDestinazioni.selected();
    if (!riga) {
        return;
    }
    const ListRow& scelta = lvwDestinazioni.row(*riga);
    if (const auto chiamante = schermateChiamanti().find(FormChiamante); chiamante != schermateChiamanti().end()) {
        if (auto* schermata = dynamic_cast<RiceveDestinazione*>(sessione_.schermate().find(chiamante->second))) {
            schermata->RiceviDestinazione(DestinazioneDaChiave(scelta.key), scelta.text);
        }
    }
    unload();
}

}  // namespace bravona
