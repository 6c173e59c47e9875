#include "documents/frmSelezioneDocumento.h"

#include "documents/TipoDocumento.h"
#include "documents/frmEmissioneDocumento.h"
#include "session/modMain.h"

namespace bravona {

namespace {

struct Scelta {
    const char* schermata;
    std::int16_t tipoDocumento;   // of the entry screen
    const char* documentoDaFare;  // of the derivation screen
};

constexpr std::array<Scelta, 8> scelte{{{"frmEmissioneDocumento", tipo::fattura, ""},
                                        {"frmFatturaDaDDT", 0, ""},
                                        {"frmEmissioneDocumento", tipo::ddt, ""},
                                        {"frmEmissioneDocumento", tipo::proforma, ""},
                                        {"frmEmissioneDocumento", tipo::notaCredito, ""},
                                        {"frmEmissioneDocumento", tipo::notaDebito, ""},
                                        {"frmDocumentoDaProforma", 0, "FATTURA"},
                                        {"frmDocumentoDaProforma", 0, "DDT"}}};

}  // namespace

frmSelezioneDocumento::frmSelezioneDocumento(Sessione& sessione)
    : Form(sessione.desktop(), "frmSelezioneDocumento", "Emissione documento"),
      sessione_(sessione)
{
    add("fraTipo", fraTipo);
    add("optTipoDocumento", optTipoDocumento);
    add("cmdAzioni", cmdAzioni);
    std::vector<Layout> opzioni;
    for (std::size_t i = 0; i < optTipoDocumento.size(); ++i) {
        OptionButton& opzione = optTipoDocumento[i];
        opzione.setEnabled(sessione_.schermate().knows(scelte[i].schermata));
        opzione.onDblClick = [this] { conferma(); };
        opzioni.push_back(layout::of(opzione));
    }
    cmdAzioni[0].onClick = [this] { conferma(); };
    cmdAzioni[1].onClick = [this] { unload(); };
    optTipoDocumento[0].choose();
    setLayout(layout::column({layout::frame(fraTipo, layout::column(std::move(opzioni))),
                              layout::rowEnd({layout::of(cmdAzioni[0]), layout::of(cmdAzioni[1])})}));
    setDefaultButton(&cmdAzioni[0]);
    setCancelButton(&cmdAzioni[1]);
}

void frmSelezioneDocumento::conferma()
{
    std::size_t indice = 0;
    while (indice < optTipoDocumento.size() && !optTipoDocumento[indice].chosen())
        ++indice;
    if (indice == optTipoDocumento.size())
        return;
    const Scelta& scelta = scelte[indice];
    if (scelta.tipoDocumento != 0) {
        // One document at a time: the open one goes first, and asks as its own "Annulla" does.
        Form* aperto = sessione_.schermate().find(scelta.schermata);
        if (aperto != nullptr && !aperto->unload())
            return;
        const clsCursorWait attesa(sessione_.desktop());
        auto& schermata = sessione_.schermate().as<frmEmissioneDocumento>(scelta.schermata);
        schermata.TipoDocumento = scelta.tipoDocumento;
        schermata.show();
        unload();
        return;
    }
    Form& schermata = sessione_.schermate().get(scelta.schermata);
    if (*scelta.documentoDaFare != '\0')
        dynamic_cast<DocumentoDaProforma&>(schermata).setTipoDocumento(scelta.documentoDaFare);
    schermata.showModal();
}

}  // namespace bravona
