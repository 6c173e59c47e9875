#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "documents/AlberoPerMese.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// The year's goods received, all of them or by supplier and month; hands one to the screen that changes it.
class frmVisualizzaMovimentiMagazzino final : public Form {
public:
    explicit frmVisualizzaMovimentiMagazzino(Sessione& sessione);

    Frame fraTipoVisualizzazione{"Visualizzazione"};
    std::array<OptionButton, 2> optTipoVisualizzazione{OptionButton{"Tutti"}, OptionButton{"Per fornitore"}};
    Frame Frame1{"Movimenti"};
    ListView lvwDocumentiEx;
    Frame fraDocumenti{"Per fornitore"};
    AlberoPerMese albero;
    ListView lvwDocumenti;
    Button cmdShow{"Visualizza"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    [[nodiscard]] Layout disponi();
    void mostraVista();
    void CaricaDocumenti();
    void caricaNodo(const NodoPerMese& nodo);
    void riempi(ListView& elenco, const std::string& istruzione, bool conFornitore);
    void visualizza();
    void apri(const ListView& elenco);
    Sessione& sessione_;
};

}  // namespace bravona
