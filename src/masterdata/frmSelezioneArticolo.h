#pragma once

#include "masterdata/ListaDiScelta.h"

namespace bravona {

// Chooses an article; the answer is `SelezioneArticolo`.
class frmSelezioneArticolo final : public ListaDiScelta {
public:
    explicit frmSelezioneArticolo(Sessione& sessione)
        : ListaDiScelta(sessione, "frmSelezioneArticolo", "Seleziona articolo", sessione.SelezioneArticolo)
    {}

    // Enter chooses wherever the focus is, on the cancel button too.
    void onKeyDown(KeyEvent& evento) override
    {
        if (evento.key == Key::enter) {
            evento.drop();
            Ok();
        }
    }
};

}  // namespace bravona
