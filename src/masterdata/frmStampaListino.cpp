#include "masterdata/frmStampaListino.h"

#include <array>

#include "printing/modElenchi.h"
#include "session/modMain.h"

namespace bravona {

namespace {

// By the position in `cmbFilterField`.
constexpr std::array campi{"CodiceMagazzino", "DescrizionePrincipale"};

}  // namespace

frmStampaListino::frmStampaListino(Sessione& sessione)
    : Form(sessione.desktop(), "frmStampaListino", "Stampa Listino"),
      sessione_(sessione)
{
    cmbListino.width = 28;
    cmbOrder.width = cmbFilterField.width = 16;
    lblNessunFiltro.style = TextStyle::hint;
    txtTitoloListino.grows = true;
    cmdShow.onClick = [this] { Stampa(); };
    cmdClose.onClick = [this] { unload(); };

    add("cmbListino", cmbListino);
    add("cmbOrder", cmbOrder);
    add("txtFilter", txtFilter);
    add("cmbFilterField", cmbFilterField);
    add("lblNessunFiltro", lblNessunFiltro);
    add("txtTitoloListino", txtTitoloListino);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);
    using namespace layout;
    setLayout(column({form({line("&Listino:", row({of(cmbListino), stretch()})),
                            line("&Ordinato per:", row({of(cmbOrder), stretch()})),
                            line("&Includi solo gli articoli che contengono",
                                 row({of(txtFilter), line("&nel campo", of(cmbFilterField)), stretch()})),
                            line("", of(lblNessunFiltro)), line("&Titolo listino (opzionale)", of(txtTitoloListino))}),
                      rowEnd({of(cmdShow), of(cmdClose)})}));
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

void frmStampaListino::onLoad()
{
    CentraFinestra(*this, false);
    Recordset listini = sessione_.cn.open("SELECT IDlistino,Descrizione FROM DescrizioneListini ORDER BY IDListino");
    for (; !listini.eof(); listini.moveNext()) {
        cmbListino.addItem(listini["Descrizione"].text(), listini["IDlistino"].asLong());
    }
    for (const char* voce : {"Codice", "Descrizione"}) {
        cmbOrder.addItem(voce);
        cmbFilterField.addItem(voce);
    }
    if (!cmbListino.items().empty()) {
        cmbListino.setListIndex(0);
    }
    cmbOrder.setListIndex(0);
}

void frmStampaListino::Stampa()
{
    if (cmbListino.listIndex() < 0) {
        return;
    }
    SceltaListino scelta;
    scelta.listino = cmbListino.itemData();
    scelta.ordine = cmbOrder.listIndex();
    scelta.filtro = txtFilter.text();
    scelta.titolo = txtTitoloListino.text();
    if (cmbFilterField.listIndex() >= 0) {
        scelta.campo = campi.at(static_cast<std::size_t>(cmbFilterField.listIndex()));
    } else if (!scelta.filtro.empty()) {
        desktop().inform("Selezionare il campo al quale applicare il filtro.", "Stampa listino");
        cmbFilterField.setFocus();
        return;
    }
    // First, because a preview asked for by a modal screen goes with it.
    unload();
    const clsCursorWait attesa(desktop());
    StampaListino(sessione_, scelta);
}

}  // namespace bravona
