#include "masterdata/ListaDiScelta.h"

#include "masterdata/modRicerca.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

ListaDiScelta::ListaDiScelta(Sessione& sessione, const std::string& nome, const std::string& titolo,
                             std::int32_t& risposta)
    : Form(sessione.desktop(), nome, titolo),
      sessione_(sessione),
      risposta_(risposta)
{
    lwSelect.sortable = true;
    lwSelect.lines = 16;
    lwSelect.setAccessibleName(titolo);
    lwSelect.onDblClick = [this] { Ok(); };
    Command1[0].onClick = [this] { Ok(); };
    Command1[1].onClick = [this] { Annulla(); };

    add("lwSelect", lwSelect);
    add("Command1", Command1);
    setLayout(layout::column(
        {layout::grow(layout::of(lwSelect)), layout::rowEnd({layout::of(Command1[0]), layout::of(Command1[1])})}));
    setDefaultButton(&Command1[0]);
    setCancelButton(&Command1[1]);
}

void ListaDiScelta::Riempi(std::vector<ListColumn> colonne, std::vector<ListRow> righe)
{
    lwSelect.clear();
    lwSelect.setColumns(std::move(colonne));
    lwSelect.append(std::move(righe));
    lwSelect.select(0);  // so that Enter takes it
}

void ListaDiScelta::onLoad()
{
    desktop().setPointer(Pointer::normal);
    CentraFinestra(*this, false);
    risposta_ = ricerca::annullata;
}

bool ListaDiScelta::onQueryUnload(CloseCause cause)
{
    if (cause == CloseCause::person) {
        sessione_.SelezioneRecord = ricerca::annullata;
    }
    return true;
}

void ListaDiScelta::Ok()
{
    const auto riga = lwSelect.selected();
    if (!riga) {
        return;
    }
    const std::string& chiave = lwSelect.row(*riga).key;
    risposta_ = toInt32(left(chiave, length(chiave) - 1));
    congeda();
}

void ListaDiScelta::Annulla()
{
    sessione_.SelezioneRecord = ricerca::annullata;
    congeda();
}

void ListaDiScelta::congeda()
{
    lwSelect.clear();
    hide();
    desktop().processEvents();
    unload();
}

}  // namespace bravona
