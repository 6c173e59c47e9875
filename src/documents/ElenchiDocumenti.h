#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "documents/AlberoPerMese.h"
#include "platform/store/Recordset.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// How the screens that browse documents differ.
struct RegoleElenchi {
    RegoleAlbero albero;
    std::string tutti, perSoggetto;  // the two ways to look at them: "Tutti", "Per fornitore"
    std::string documenti;           // what is listed: "Movimenti"
};

// A year's documents, all of them in one list or, beside a tree, those of a party or of its month. Of each row the main
// text is the number and the first column the date.
class ElenchiDocumenti final : public ControlGroup {
public:
    ElenchiDocumenti(Connection& cn, RegoleElenchi regole);

    Frame fraTipoVisualizzazione{"Visualizzazione"};
    std::array<OptionButton, 2> optTipoVisualizzazione;
    Frame Frame1;
    ListView lvwDocumentiEx;  // all
    Frame fraDocumenti;
    AlberoPerMese albero;
    ListView lvwDocumenti;  // of the tree's node

    std::function<void()> visualizza;  // a row was double-clicked

    void mostraTutti();
    [[nodiscard]] const ListView& inVista() const;
    // The months of what is listed, below the party in the tree.
    void mostraMesi(std::int32_t idSoggetto);
    [[nodiscard]] Layout layout();

private:
    [[nodiscard]] bool tutti() const;
    void mostraVista();
};

// Fills the list anew, a row for each record.
void riempi(ListView& elenco, Recordset record, const std::function<ListRow(Recordset&)>& riga);
// Runs what fills the list anew; the selected row, if it is still there, and the order by a column stay.
void rileggi(ListView& elenco, const std::function<void()>& carica);

}  // namespace bravona
