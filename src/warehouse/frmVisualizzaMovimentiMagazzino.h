#pragma once

#include <string>

#include "documents/ElenchiDocumenti.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// The year's goods received, all of them or by supplier and month; hands one to the screen that changes it.
class frmVisualizzaMovimentiMagazzino final : public Form {
public:
    explicit frmVisualizzaMovimentiMagazzino(Sessione& sessione);

    ElenchiDocumenti elenchi;
    Button cmdShow{"Visualizza"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    [[nodiscard]] Layout disponi();
    void CaricaDocumenti();
    void caricaNodo(const NodoPerMese& nodo);
    void rileggi();
    void visualizza();
    void apri();
    Sessione& sessione_;
};

}  // namespace bravona
